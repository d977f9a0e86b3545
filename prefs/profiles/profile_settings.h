#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/plist/value.h"

// What a profile holds besides its trigger.
namespace prefs {

// The 50 settings of a profile, in the order in which they are copied.
std::vector<std::string_view> profileKeys();

// What a setting is where a profile, or the domain, has no value for it. Every key has one but
// "autoupdates": the table's entry for it is spelled "autoupdatess".
std::optional<plist::Value> profileDefault(std::string_view key);

}  // namespace prefs
