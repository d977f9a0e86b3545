#include "bench/codec/profile.h"

#include "prefs/core/names.h"
#include "prefs/profiles/profile_settings.h"

plist::Dictionary typicalProfile() {
  plist::Dictionary profile{{std::string(prefs::kProfilePercentage), "55"}};
  for (std::string_view key : prefs::profileKeys())
    profile.set(key, prefs::profileDefault(key).value_or(0));
  // What a user of the profile has changed.
  for (const char* on : {"wifi", "bluetooth", "autoupdates", "custbrightenabled"})
    profile.set(on, 1);
  profile.set(prefs::kProfileDescription, "Night");
  profile.set("custbright", 50.0);
  profile.set("customvolume", 37.5);
  return profile;
}
