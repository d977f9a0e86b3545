#pragma once

#include "platform/plist/value.h"

namespace testing_support {

struct ProfileSetting {
  const char* key;
  plist::Value standard;
};

// The 50 settings of a profile in their order, each with its default; nothing where it has none.
// Written out: the code under test has a table of its own.
inline const ProfileSetting kProfileTable[] = {
    {"profileactive", 1},
    {"profiledescription", ""},
    {"airplanemode", 0},
    {"wifi", 0},
    {"locationservices", 0},
    {"bluetooth", 0},
    {"mobiledata", 0},
    {"mobiledatarate", 0},
    {"personalhotspot", 0},
    {"vpn", 0},
    {"bgapprefresh", 0},
    {"autoupdates", {}},
    {"reducemotion", 0},
    {"grayscale", 0},
    {"handoff", 0},
    {"siri", 0},
    {"autolock", 0},
    {"quorvantislowpowermode", 0},
    {"ioslowpowermode", 0},
    {"autobrightness", 0},
    {"custbrightenabled", 0},
    {"custbright", 50},
    {"killallbgapps", 0},
    {"poweroptions", 0},
    {"poweroptionsdelay", 0},
    {"ringer", 0},
    {"ringvibration", 0},
    {"silentvibration", 0},
    {"customvolumeenabled", 0},
    {"customvolume", 50},
    {"locksound", 0},
    {"keyboardclick", 0},
    {"dnd", 0},
    {"alerttype", 0},
    {"alertmsg", "Current battery level %BAT%"},
    {"sendmessage", 0},
    {"msgrecipient", ""},
    {"msgtext", "Current battery level on device %DNAME%: %BAT%"},
    {"vibrate", 0},
    {"vibrateduration", 5},
    {"flashled", 0},
    {"flashledduration", 5},
    {"playsound", "Disabled"},
    {"music", 0},
    {"takescreenshot", 0},
    {"disableonfire", 0},
    {"firewhenbattery", 0},
    {"fireat", 0},
    {"fireincall", 0},
    {"firemusicplaying", 1},
};

}  // namespace testing_support
