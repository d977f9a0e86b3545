#include "host/setting_lookup.h"

#include <algorithm>

#include "host/closest.h"
#include "host/color_choice.h"
#include "platform/plist/binary.h"
#include "platform/plist/binary_walk.h"
#include "platform/preferences/cell_type.h"

namespace host {
namespace {

std::string_view textIn(const plist::Dictionary& properties, std::string_view property) {
  const plist::Value* value = properties.find(property);
  return value && value->text() ? std::string_view(*value->text()) : std::string_view();
}

using plist::Object;
using plist::ObjectTable;

// Null when the dictionary has no such key.
const Object* valueUnder(const ObjectTable& list, const Object& dictionary, std::string_view key) {
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    const Object* name = list.find(list.member(dictionary, i));
    if (name && name->isText() && name->is(key))
      return list.find(list.member(dictionary, dictionary.count + i));
  }
  return nullptr;
}

bool has(const ObjectTable& list, const Object& row, std::string_view property,
         std::string_view text) {
  const Object* value = valueUnder(list, row, property);
  return value && value->isText() && value->is(text);
}

plist::Dictionary readRow(const ObjectTable& list, std::uint64_t index) {
  plist::Value row;
  plist::MemoryBudget budget(plist::expansionLimit(list.bytes()));
  const bool read = plist::BinaryWalk(list).read(index, &row, budget) && row.dictionary();
  return read ? std::move(*row.dictionary()) : plist::Dictionary();
}

// Whether a list may have a row of that name: text stands in it byte for byte, and looking for it
// is much faster than opening the list.
bool mayName(std::string_view key, const preferences::ListResource& list) {
  const std::string_view bytes(reinterpret_cast<const char*>(list.bytes.data()), list.bytes.size());
  return bytes.find(key) != std::string_view::npos;
}

plist::Dictionary readList(const preferences::Bundle& bundle, std::string_view name) {
  const preferences::ListResource* resource = bundle.list(name);
  if (!resource) return {};
  auto list = plist::readBinary(resource->bytes);
  return list && list->dictionary() ? std::move(*list->dictionary()) : plist::Dictionary();
}

// Of the rows of all lists, in the order of the bundle's pages: visit(page, properties).
template <class Visit>
void eachRow(const preferences::Bundle& bundle, Visit visit) {
  for (const preferences::PageClass& page : bundle.pages) {
    const plist::Dictionary list = readList(bundle, page.list);
    const plist::Value* items = list.find("items");
    if (!items || !items->array()) continue;
    for (const plist::Value& row : *items->array())
      if (row.dictionary()) visit(page, *row.dictionary());
  }
}

bool holdsValue(const plist::Dictionary& properties) {
  const auto type = preferences::cellTypeNamed(textIn(properties, "cell"));
  return !textIn(properties, "key").empty() || (type && preferences::hasChoices(*type));
}

}  // namespace

std::string_view Setting::text(std::string_view property) const {
  return textIn(row, property);
}

std::string_view Setting::id() const {
  return text("id").empty() ? text("key") : text("id");
}

// Of a list only the row that is wanted is read.
std::optional<Setting> findSetting(const preferences::Bundle& bundle, std::string_view key) {
  std::optional<Setting> byId;
  for (const preferences::PageClass& page : bundle.pages) {
    const preferences::ListResource* resource = bundle.list(page.list);
    if (!resource || !mayName(key, *resource)) continue;
    const auto list = ObjectTable::open(resource->bytes);
    const Object* root = list ? list->find(list->top()) : nullptr;
    const Object* items = root ? valueUnder(*list, *root, "items") : nullptr;
    for (std::uint64_t i = 0; items && i < items->count; ++i) {
      const Object* row = list->find(list->member(*items, i));
      if (!row || row->type != plist::ObjectType::Dictionary) continue;
      const std::uint64_t index = list->member(*items, i);
      if (has(*list, *row, "key", key)) return Setting{&page, readRow(*list, index)};
      if (byId || !has(*list, *row, "id", key)) continue;
      if (auto properties = readRow(*list, index); holdsValue(properties))
        byId = Setting{&page, std::move(properties)};
    }
  }
  return byId;
}

std::vector<std::string> settingKeys(const preferences::Bundle& bundle) {
  std::vector<std::string> keys;
  for (const LabeledKey& each : labeledKeys(bundle)) keys.push_back(each.key);
  return keys;
}

std::vector<LabeledKey> labeledKeys(const preferences::Bundle& bundle) {
  std::vector<LabeledKey> keys;
  eachRow(bundle, [&](const preferences::PageClass& page, const plist::Dictionary& row) {
    const std::string key(textIn(row, "key"));
    if (!key.empty() && std::ranges::find(keys, key, &LabeledKey::key) == keys.end())
      keys.push_back({key, std::string(textIn(row, "label")), &page});
  });
  return keys;
}

std::optional<std::string> listRowLabeled(const preferences::Bundle& bundle,
                                          std::string_view label) {
  std::optional<std::string> found;
  eachRow(bundle, [&](const preferences::PageClass& page, const plist::Dictionary& properties) {
    if (found || !equalInAnyCase(textIn(properties, "label"), label)) return;
    const auto type = preferences::cellTypeNamed(textIn(properties, "cell"));
    if ((type && preferences::hasChoices(*type)) ||
        leadsToColorPicker(textIn(properties, "detail")))
      found = Setting{&page, properties}.id();
  });
  return found;
}

std::string labelOf(const preferences::Bundle& bundle, const std::string& key) {
  const auto setting = findSetting(bundle, key);
  if (!setting || setting->text("label").empty()) return key;
  return std::string(setting->text("label")) + " (" + titleOf(bundle, *setting->page) + ")";
}

std::string titleOf(const preferences::Bundle& bundle, const preferences::PageClass& page) {
  return std::string(textIn(readList(bundle, page.list), "title"));
}

std::string nameOf(const preferences::Bundle& bundle, const preferences::PageClass& page) {
  return leadsToColorPicker(page.name) ? kColorPickerName : titleOf(bundle, page);
}

const preferences::PageClass* findPage(const preferences::Bundle& bundle, std::string_view name) {
  if (const preferences::PageClass* page = bundle.pageClass(name)) return page;
  std::vector<std::string> names;
  for (const preferences::PageClass& page : bundle.pages) names.push_back(nameOf(bundle, page));
  if (name.empty()) return nullptr;
  if (const auto index = indexNamed(name, names)) return &bundle.pages[*index];
  const preferences::PageClass* linked = nullptr;
  eachRow(bundle, [&](const preferences::PageClass&, const plist::Dictionary& row) {
    if (linked || !textIn(row, "key").empty() || !equalInAnyCase(textIn(row, "label"), name))
      return;
    const auto page =
        std::ranges::find(bundle.pages, textIn(row, "detail"), &preferences::PageClass::name);
    if (page != bundle.pages.end()) linked = &*page;
  });
  return linked;
}

}  // namespace host
