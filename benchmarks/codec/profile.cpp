#include "benchmarks/codec/profile.h"

#include "prefs/core/names.h"
#include "prefs/keys.h"
#include "prefs/profiles/profile_settings.h"

plist::Dictionary typicalProfile() {
  plist::Dictionary profile;
  profile.set(prefs::kProfilePercentage, "55");
  for (std::string_view key : prefs::profileKeys())
    profile.set(key, prefs::profileDefault(key).value_or(0));
  // Sliders store reals.
  for (auto [key, value] :
       {std::pair{prefs::key::custbright, 50.0}, {prefs::key::customvolume, 37.5}})
    profile.set(key, value);
  return profile;
}
