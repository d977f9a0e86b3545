#pragma once

#include <string_view>

// What the bundle shares with the extension, by name.
namespace prefs {

inline constexpr std::string_view kDomain = "com.zorvek.quorvantis";

// Cross-process: the extension re-reads its settings.
inline constexpr std::string_view kPrefsNotification = "com.zorvek.quorvantis.prefs";
// Cross-process, named by the row of "profileactive": the current profile was turned on or off. A
// name of its own, since a load sets that row too and posts kPrefsNotification just once.
inline constexpr std::string_view kProfileNotification = "com.zorvek.quorvantis.profile";
// In-process: the pages rebuild their rows.
inline constexpr std::string_view kReloadSpecifiersNotification =
    "com.zorvek.quorvantis.reloadSpecifiers";
// In-process, from the platform: the Settings application returned to the foreground.
inline constexpr std::string_view kDidBecomeActiveNotification =
    "UIApplicationDidBecomeActiveNotification";

// Profile files and the battery log. Paths are formed by appending a name.
inline constexpr std::string_view kDocuments = "/var/mobile/Documents/Quorvantis/";
inline constexpr std::string_view kProfileExtension = "qvx";
inline constexpr std::string_view kBatteryLog = "/var/mobile/Documents/Quorvantis/quorvantis.log";

// Rows of the first page, by their ids.
inline constexpr std::string_view kSavedProfilesRow = "savedprofiles";
inline constexpr std::string_view kBatteryLogRow = "batterylog";

// The extension and its user agree on these keys of a profile.
inline constexpr std::string_view kProfilePercentage = "profilepercentage";
inline constexpr std::string_view kProfileDescription = "profiledescription";

}  // namespace prefs
