#pragma once

#include <string_view>

#include "host/problem.h"
#include "platform/preferences/environment.h"

namespace host {

// A platform path.
std::string_view batteryLogPath();

// As stored, the oldest entry first; empty without a log.
Attempt<plist::Array> readBatteryLog(const preferences::Environment& environment);

// The entries of `now` that weren't there before: the log grows at its end, and may lose entries at
// its beginning.
plist::Array newEntries(const plist::Array& before, const plist::Array& now);

}  // namespace host
