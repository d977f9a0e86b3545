#include "platform/preferences/specifier_list.h"

namespace preferences {
namespace {

using platform::Result;

Result<std::shared_ptr<PSSpecifier>, std::string> readRow(const plist::Value& item) {
  const plist::Dictionary* properties = item.dictionary();
  if (!properties) return std::string("a row must be a dictionary");
  for (auto key :
       {"id", "key", "label", "defaults", "cell", "cellClass", "set", "get", "action", "detail",
        "PostNotification", "PreviewNotification", "valuesDataSource", "titlesDataSource"}) {
    const plist::Value* value = properties->find(key);
    if (value && !value->text()) return std::string(key) + " must be text";
  }
  const plist::Value* cell = properties->find("cell");
  if (!cell) return std::string("cell is missing");
  auto type = cellTypeNamed(*cell->text());
  if (!type) return "unknown cell type \"" + *cell->text() + "\"";
  return std::make_shared<PSSpecifier>(*type, *properties);
}

// The choices that stand in the list itself; what has no partner is dropped.
std::string readChoices(PSSpecifier& specifier) {
  const plist::Value& values = specifier.propertyForKey("validValues");
  const plist::Value& titles = specifier.propertyForKey("validTitles");
  if (values.isNothing() && titles.isNothing()) return {};
  if (!values.array() || !titles.array()) return "validValues and validTitles must be arrays";
  Choices choices;
  for (std::size_t i = 0; i < std::min(values.array()->size(), titles.array()->size()); ++i) {
    const std::string* title = (*titles.array())[i].text();
    if (!title) return "validTitles must hold texts";
    choices.values.push_back((*values.array())[i]);
    choices.titles.push_back(*title);
  }
  specifier.setChoices(std::move(choices));
  return {};
}

}  // namespace

Result<SpecifierList, ListError> readSpecifierList(const plist::Value& root) {
  const plist::Dictionary* dictionary = root.dictionary();
  if (!dictionary) return ListError{-1, "the root must be a dictionary"};
  SpecifierList list;
  if (const plist::Value* title = dictionary->find("title")) {
    if (!title->text()) return ListError{-1, "title must be text"};
    list.title = *title->text();
  }
  const plist::Value* items = dictionary->find("items");
  if (!items || !items->array()) return ListError{-1, "items must be an array"};
  for (const plist::Value& item : *items->array()) {
    int row = static_cast<int>(list.specifiers.size());
    auto specifier = readRow(item);
    if (!specifier) return ListError{row, specifier.error()};
    if (auto wrong = readChoices(**specifier); !wrong.empty()) return ListError{row, wrong};
    list.specifiers.push_back(std::move(*specifier));
  }
  return list;
}

}  // namespace preferences
