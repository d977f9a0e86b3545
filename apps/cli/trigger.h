#pragma once

#include <string>
#include <string_view>

#include "apps/cli/outcome.h"
#include "prefs/profiles/profile_file.h"

namespace cli {

struct Trigger {
  std::string profileID, path;  // path: of its profile, whether there is one or not
};

// One of the 108 triggers by its ID ("55", "101") or its title ("Charging started"); NotFound when
// it is none.
Outcome<Trigger> findTrigger(std::string_view text);
// By its ID alone.
Outcome<Trigger> triggerOfID(std::string_view profileID);

// Of a trigger's profile that couldn't be had: NotFound when there is none, else Failed.
Failure failureOf(const Trigger& trigger, const prefs::ProfileError& error);

// NotFound without a profile, Failed for a file that is none.
Outcome<plist::Dictionary> readProfile(const preferences::Environment& environment,
                                       std::string_view trigger);

}  // namespace cli
