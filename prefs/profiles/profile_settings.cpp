#include "prefs/profiles/profile_settings.h"

#include <variant>

#include "prefs/keys.h"

namespace prefs {
namespace {

struct Setting {
  Key key;
  std::variant<int, std::string_view> standard;
  std::string_view defaultKey = key;  // under which the default is found
};

constexpr Setting kSettings[] = {
    {key::profileactive, 1},
    {key::profiledescription, ""},
    {key::airplanemode, 0},
    {key::wifi, 0},
    {key::locationservices, 0},
    {key::bluetooth, 0},
    {key::mobiledata, 0},
    {key::mobiledatarate, 0},
    {key::personalhotspot, 0},
    {key::vpn, 0},
    {key::bgapprefresh, 0},
    // The spelling has to stay: a load must not touch "autoupdates" where the file lacks it.
    {key::autoupdates, 0, "autoupdatess"},
    {key::reducemotion, 0},
    {key::grayscale, 0},
    {key::handoff, 0},
    {key::siri, 0},
    {key::autolock, 0},
    {key::quorvantislowpowermode, 0},
    {key::ioslowpowermode, 0},
    {key::autobrightness, 0},
    {key::custbrightenabled, 0},
    {key::custbright, 50},
    {key::killallbgapps, 0},
    {key::poweroptions, 0},
    {key::poweroptionsdelay, 0},
    {key::ringer, 0},
    {key::ringvibration, 0},
    {key::silentvibration, 0},
    {key::customvolumeenabled, 0},
    {key::customvolume, 50},
    {key::locksound, 0},
    {key::keyboardclick, 0},
    {key::dnd, 0},
    {key::alerttype, 0},
    {key::alertmsg, "Current battery level %BAT%"},
    {key::sendmessage, 0},
    {key::msgrecipient, ""},
    {key::msgtext, "Current battery level on device %DNAME%: %BAT%"},
    {key::vibrate, 0},
    {key::vibrateduration, 5},
    {key::flashled, 0},
    {key::flashledduration, 5},
    {key::playsound, "Disabled"},
    {key::music, 0},
    {key::takescreenshot, 0},
    {key::disableonfire, 0},
    {key::firewhenbattery, 0},
    {key::fireat, 0},
    {key::fireincall, 0},
    {key::firemusicplaying, 1},
};

}  // namespace

std::vector<std::string_view> profileKeys() {
  std::vector<std::string_view> keys;
  for (const Setting& setting : kSettings) keys.push_back(setting.key);
  return keys;
}

std::optional<plist::Value> profileDefault(std::string_view key) {
  for (const Setting& setting : kSettings)
    if (setting.defaultKey == key)
      return std::visit([](auto value) { return plist::Value(value); }, setting.standard);
  return std::nullopt;
}

}  // namespace prefs
