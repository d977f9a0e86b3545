#pragma once

#include <string>

#include "platform/archive/keyed_archive.h"
#include "platform/foundation/device_root.h"
#include "prefs/core/names.h"
#include "prefs/profiles/triggers.h"

namespace bench {

// As many settings as a real profile holds, and a description on every third.
inline plist::Dictionary sampleProfile(const std::string& trigger, int number) {
  plist::Dictionary values{{"profilepercentage", trigger}};
  if (number % 3 == 0) values.set("profiledescription", "Night " + std::to_string(number));
  for (int key = 0; key < 44; ++key) values.set("setting" + std::to_string(key), key % 3);
  values.set("custbright", 50.0);
  values.set("alertmsg", "Current battery level %BAT%");
  values.set("msgtext", "Current battery level on device %DNAME%: %BAT%");
  values.set("playsound", "Disabled");
  return values;
}

// Saves a profile for each of the 108 triggers; false where one can't be written.
inline bool saveProfiles(foundation::DeviceRoot& root) {
  int number = 0;
  for (const plist::Value& trigger : prefs::triggerValues()) {
    const auto bytes =
        archive::archive(sampleProfile(*trigger.text(), number++), archive::Mutability::Mutable);
    const auto path = std::string(prefs::kDocuments) + "profile_" + *trigger.text() + ".qvx";
    if (!bytes || !root.writeDurably(path, *bytes)) return false;
  }
  return true;
}

}  // namespace bench
