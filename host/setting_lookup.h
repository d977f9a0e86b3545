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

// The title that the page's list gives it; empty for a page without one.
std::string titleOf(const preferences::Bundle& bundle, const preferences::PageClass& page);
// The page of that class or, where there is none, of that title, in any case; null when neither is
// a page.
const preferences::PageClass* findPage(const preferences::Bundle& bundle, std::string_view name);

}  // namespace host
