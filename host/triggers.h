#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/problem.h"

namespace host {

// One of the 108 triggers.
struct Trigger {
  std::string profileID, title;
  std::string path;  // of its profile, whether there is one or not
  bool operator==(const Trigger&) const = default;
};

// The title of the trigger whose profile has that path; of a file that is no trigger's, its name.
std::string profileName(std::string_view path);

std::vector<Trigger> triggers();  // battery levels before events
int batteryLevels();              // how many of them are levels

// Whether a profile's file may be there: one of the profile folder, with its extension.
bool isProfilePath(std::string_view text);

// By its ID ("55", "101"), its title in any case, with or without hyphens ("Wi-Fi connected"), its
// level ("55%") or the path of its profile.
std::optional<Trigger> findTrigger(std::string_view text);
// The same; NotFound, with what could be meant.
Attempt<Trigger> triggerNamed(std::string_view text);
// Likewise, and by the path of a profile whose file is named after no trigger, which then has
// neither ID nor title.
Attempt<Trigger> profileNamed(std::string_view text);

}  // namespace host
