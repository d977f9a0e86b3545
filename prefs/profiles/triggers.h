#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/plist/value.h"

// The 108 triggers that a profile can be bound to, and the one table from which their titles come.
namespace prefs {

inline constexpr int kBatteryLevels = 100;

// "1" to "100", then the event codes.
plist::Array triggerValues();
// Row for row the titles of the values.
plist::Array triggerTitles();

// The title of a stored profile ID: an event's, else that of a battery level with the text inserted
// as it stands. There is no range check.
std::string triggerTitle(std::string_view profileID);

// Which of the eight events, counted from 0, a title or the beginning of a longer one names.
std::optional<std::size_t> eventOfTitle(std::string_view title);

}  // namespace prefs
