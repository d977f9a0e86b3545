#include "prefs/profiles/triggers.h"

#include <iterator>

namespace prefs {
namespace {

struct Event {
  std::string_view code;
  std::string_view title;
};

// In the order of the codes, which is the alphabetical order of the titles too: lists that are
// sorted by title and by code stay side by side.
constexpr Event kEvents[] = {
    {"101", "Charging started"},        {"102", "Charging stopped"},
    {"111", "Device locked"},           {"112", "Device unlocked"},
    {"121", "Do Not Disturb disabled"}, {"122", "Do Not Disturb enabled"},
    {"131", "WiFi connected"},          {"132", "WiFi disconnected"},
};

}  // namespace

plist::Array triggerValues() {
  plist::Array values;
  for (int level = 1; level <= kBatteryLevels; ++level) values.push_back(std::to_string(level));
  for (const Event& event : kEvents) values.push_back(event.code);
  return values;
}

plist::Array triggerTitles() {
  plist::Array titles;
  for (const plist::Value& value : triggerValues()) titles.push_back(triggerTitle(*value.text()));
  return titles;
}

std::string triggerTitle(std::string_view profileID) {
  for (const Event& event : kEvents)
    if (event.code == profileID) return std::string(event.title);
  return "Battery " + std::string(profileID) + "%";
}

std::optional<std::size_t> eventOfTitle(std::string_view title) {
  for (std::size_t i = 0; i < std::size(kEvents); ++i)
    if (title.starts_with(kEvents[i].title)) return i;
  return std::nullopt;
}

}  // namespace prefs
