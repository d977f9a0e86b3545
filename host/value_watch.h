#pragma once

#include <string>
#include <vector>

#include "host/problem.h"
#include "platform/foundation/preferences.h"
#include "prefs/profiles/profile_snapshot.h"

namespace host {

// The stored values, looked at again and again.
class ValueWatch {
 public:
  explicit ValueWatch(foundation::Preferences& preferences) : preferences_(preferences) {}

  static std::string path();  // the platform path of the file that they are in

  // What has changed since the last look; the first one finds nothing.
  Attempt<std::vector<prefs::Difference>> look();

 private:
  foundation::Preferences& preferences_;
  bool looked_ = false;
  plist::Dictionary last_;
};

}  // namespace host
