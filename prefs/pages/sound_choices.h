#pragma once

#include "platform/plist/value.h"
#include "platform/preferences/environment.h"

namespace prefs {

inline constexpr const char* kNoSound = "Disabled";

// "Disabled", then every file below the system sound folder in the order of the walk: its URL, or
// its name as the URL has it ("a%20b.caf"). The walk is made at each call.
plist::Array soundValues(const preferences::Environment& environment);
plist::Array soundTitles(const preferences::Environment& environment);

}  // namespace prefs
