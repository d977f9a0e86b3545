#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/services.h"

namespace services {

// Whether plain ASCII has the root collation's order in this locale ("en_US"): true for languages
// that are known to leave it alone. Others move letters ("z" in Estonian), join them ("ch" in
// Czech) or put capitals first.
bool hasRootAsciiOrder(std::string_view locale);

// The order of localizedStandardCompare in such a locale, or nothing where this function doesn't
// know it: text that is not all printable ASCII, and numbers of 20 digits and more.
//
// It is the same because each such character has a primary weight of its own, but for the two cases
// of a letter: what decides is the first difference that is more than case, numbers by value, then
// the first difference at all, the shorter number or the lower case first.
std::optional<int> compareAscii(std::string_view a, std::string_view b);

// In the same order; nothing where a text is one that compareAscii doesn't know.
std::optional<platform::SortKeys> asciiSortKeys(const std::vector<std::string_view>& texts);

}  // namespace services
