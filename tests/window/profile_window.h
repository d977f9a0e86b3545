#pragma once

#include "apps/window/tools.h"
#include "prefs/core/names.h"
#include "tests/window/bundle_window.h"

inline constexpr const char* kProfile20 = "/var/mobile/Documents/Quorvantis/profile_20.qvx";
inline constexpr const char* kProfile101 = "/var/mobile/Documents/Quorvantis/profile_101.qvx";

// The bundle with two saved profiles, one of which is looked at.
class ProfileWindow : public BundleWindow {
 protected:
  void openWithProfiles(const char* pageClass = nullptr) {
    write(kProfile20,
          plist::Dictionary{
              {"profilepercentage", "20"}, {"profiledescription", "Night"}, {"vibrate", 1}});
    write(kProfile101, plist::Dictionary{{"profilepercentage", "101"}, {"flashled", 1}});
    open(pageClass);
  }
  void show(const char* path) {
    emit bridge().tools()->profileWanted(path);
    driver->waitUntilIdle();
    ASSERT_FALSE(driver->itemsOfType("ProfileView").empty());
  }
  ::window::ProfileTool& opened() { return *bridge().tools()->profiles()->opened(); }
  QString exported(const char* name) { return folder.filePath(name); }
};
