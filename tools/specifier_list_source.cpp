#include "tools/specifier_list_source.h"

#include <fstream>
#include <iterator>
#include <optional>

#include "services/xml_reader.h"

namespace tools {
namespace {

using platform::Done;
using platform::Result;
using preferences::ListError;

constexpr const char* kSettingDefaults = "settingDefaults";
constexpr const char* kRowDefaults = "rowDefaults";

// A table of the root, taken out of it; empty where there is none.
Result<plist::Dictionary, ListError> takeTable(plist::Dictionary& root, const char* name) {
  plist::Value* table = root.find(name);
  if (!table) return plist::Dictionary();
  if (!table->dictionary()) return ListError{-1, std::string(name) + " must be a dictionary"};
  plist::Dictionary taken = std::move(*table->dictionary());
  root.remove(name);
  return taken;
}

void addMissing(plist::Dictionary& row, const plist::Dictionary& defaults) {
  for (const auto& [key, value] : defaults) row.insert(key, value);
}

}  // namespace

Result<Done, ListError> addRowDefaults(plist::Value& root) {
  plist::Dictionary* list = root.dictionary();
  plist::Value* items = list ? list->find("items") : nullptr;
  if (!items || !items->array()) return ListError{-1, "items must be an array"};
  auto settings = takeTable(*list, kSettingDefaults);
  if (!settings) return settings.error();
  auto rows = takeTable(*list, kRowDefaults);
  if (!rows) return rows.error();
  for (const auto& [type, defaults] : *rows)
    if (!defaults.dictionary())
      return ListError{-1, std::string(kRowDefaults) + ": " + type + " must be a dictionary"};

  plist::Dictionary unused = *rows;
  bool settingsUsed = settings->empty();
  items = list->find("items");
  for (plist::Value& item : *items->array()) {
    plist::Dictionary* row = item.dictionary();
    if (!row) continue;  // which the reader of specifier lists reports
    const plist::Value* type = row->find("cell");
    const plist::Value* defaults = type && type->text() ? rows->find(*type->text()) : nullptr;
    if (defaults) {
      unused.remove(*type->text());
      addMissing(*row, *defaults->dictionary());
    }
    if (const plist::Value* key = row->find("key")) {
      settingsUsed = true;
      row->insert("id", *key);
      addMissing(*row, *settings);
    }
  }
  if (!unused.empty())
    return ListError{-1, std::string(kRowDefaults) + ": no row is a " + unused.begin()->key};
  if (!settingsUsed) return ListError{-1, std::string(kSettingDefaults) + ": no row has a key"};
  return Done();
}

Result<SpecifierListSource, std::string> SpecifierListSource::read(std::filesystem::path file) {
  SpecifierListSource source;
  source.file_ = std::move(file);
  std::ifstream in(source.file_, std::ios::binary);
  std::vector<std::uint8_t> text{std::istreambuf_iterator<char>(in), {}};
  if (!in) return source.message({-1, "can't be read"});
  auto read = services::readXmlWithLines(text);
  if (!read) return source.message({-1, read.error().message()});
  source.root_ = std::move(read->value);
  source.lines_ = std::move(read->itemLines);
  auto added = addRowDefaults(source.root_);
  if (!added) return source.message(added.error());
  return source;
}

std::string SpecifierListSource::message(const ListError& error) const {
  std::string place = file_.string();
  if (error.row >= 0 && error.row < std::ssize(lines_))
    place += ":" + std::to_string(lines_[error.row]);
  if (error.row >= 0) place += ": row " + std::to_string(error.row);
  return place + ": " + error.what;
}

}  // namespace tools
