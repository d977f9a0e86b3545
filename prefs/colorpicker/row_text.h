#pragma once

#include <optional>
#include <string>

#include "platform/preferences/PSSpecifier.h"

namespace prefs {

// A property of a row that has to be text; unset where there is no row.
inline std::optional<std::string> rowText(const preferences::PSSpecifier* row,
                                          std::string_view key) {
  const std::string* text = row ? row->propertyForKey(key).text() : nullptr;
  return text ? std::optional(*text) : std::nullopt;
}

}  // namespace prefs
