#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/plist/value.h"

namespace plist {

// A date in the Gregorian calendar, UTC. A fraction of a second is dropped.
struct CalendarTime {
  int year = 0;
  unsigned month = 0, day = 0;
  int hour = 0, minute = 0, second = 0;
};

// Only for dates less than this many seconds from 2001: the calendar's years have 16 bits.
inline constexpr double kCalendarEnd = 9e11;
CalendarTime calendarTime(Date date);

// "2026-01-31T12:00:00Z", a year before 0 with a minus sign in front. Dates beyond the years
// `firstYear` (from -9999 up) to 9999 become the first or last second of that span, and one that is
// not a number the start of 2001.
std::string writeDate(Date date, int firstYear = -9999);

// Nothing for anything but that form and dates of the calendar; a leap second counts as the second
// after it.
std::optional<Date> readDate(std::string_view text);

}  // namespace plist
