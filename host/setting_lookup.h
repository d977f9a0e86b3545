#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/plist/value.h"
#include "platform/preferences/bundle.h"

namespace host {

// A setting as the bundle's lists have it: the page that it is on and the row's properties.
struct Setting {
  const preferences::PageClass* page;
  plist::Dictionary row;

  std::string_view text(std::string_view property) const;  // empty when it isn't text
  std::string_view id() const;
};

// The first row, in the order of the bundle's pages, that stores under this key, else the first
// that has it as its id and holds a value or choices. Keys and ids of a bundle are ASCII.
std::optional<Setting> findSetting(const preferences::Bundle& bundle, std::string_view key);

// The keys of all rows, in the order of the bundle's pages, each once.
std::vector<std::string> settingKeys(const preferences::Bundle& bundle);

// The same with the label of the first row of each, and its page.
struct LabeledKey {
  std::string key, label;
  const preferences::PageClass* page;
};
std::vector<LabeledKey> labeledKeys(const preferences::Bundle& bundle);

// The id, or else the key, of the first row with that label, in any case, which leads to a list of
// choices or of colors.
std::optional<std::string> listRowLabeled(const preferences::Bundle& bundle,
                                          std::string_view label);

// "Wi-Fi (Power Saving)": the label of that key's row and the title of its page; the key itself
// where there is none.
std::string labelOf(const preferences::Bundle& bundle, const std::string& key);

// The title that the page's list gives it; empty for a page without one.
std::string titleOf(const preferences::Bundle& bundle, const preferences::PageClass& page);
// What a user calls the page besides its class: its title, or kColorPickerName.
std::string nameOf(const preferences::Bundle& bundle, const preferences::PageClass& page);
// The page of that class or, where there is none, the one of that name (nameOf), else of a link
// with that label, in any case; null when none is a page.
const preferences::PageClass* findPage(const preferences::Bundle& bundle, std::string_view name);

}  // namespace host
