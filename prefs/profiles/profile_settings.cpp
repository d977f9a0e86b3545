#include "prefs/profiles/profile_settings.h"

#include <variant>

#include "prefs/core/names.h"

namespace prefs {
namespace {

struct Setting {
  std::string_view key;
  std::variant<int, std::string_view> standard;
  std::string_view defaultKey = key;  // under which the default is found
};

constexpr Setting kSettings[] = {
    {kProfileActive, 1},
    {kProfileDescription, ""},
    {"airplanemode", 0},
    {"wifi", 0},
    {"locationservices", 0},
    {"bluetooth", 0},
    {"mobiledata", 0},
    {"mobiledatarate", 0},
    {"personalhotspot", 0},
    {"vpn", 0},
    {"bgapprefresh", 0},
    // The spelling has to stay: a load must not touch "autoupdates" where the file lacks it.
    {"autoupdates", 0, "autoupdatess"},
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
