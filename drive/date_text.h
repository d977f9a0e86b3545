#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/request.h"

namespace drive {

// "2026-01-31T12:00:00Z". Fractions of a second are dropped; what lies beyond the years 1 to 9999
// shows as the end of that span, and what is no number as 2001. Reading gives nothing for anything
// but that form and dates of the calendar.
std::string writeDate(plist::Date date);
std::optional<plist::Value> readDate(std::string_view text);

}  // namespace drive
