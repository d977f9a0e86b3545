#pragma once

#include <string>
#include <string_view>

#include "platform/preferences/environment.h"
#include "platform/result.h"

// Profile files: named, written, read and deleted. Nothing here shows or announces anything.
namespace prefs {

// "/var/mobile/Documents/Quorvantis/profile_55.qvx"
std::string profilePath(int profileID);

// The file's dictionary; an archive of anything else gives an empty one. What is not a keyed
// archive at all is an error: a damaged or foreign file, a folder, a FIFO, a link that leaves the
// folder. The code is ENOENT only where there is no such file.
platform::Result<plist::Dictionary> readProfile(const preferences::Environment& environment,
                                                const std::string& path);
// What it says of a link to no file.
inline constexpr std::string_view kDeadLink = "a link that leads nowhere";

// Writes a dictionary as a profile, durably, in place of the file that is there, or not (EEXIST); a
// folder of that name is an error. The environment's guard learns of it as a save or an import.
platform::Result<platform::Done> writeProfile(
    const preferences::Environment& environment, const std::string& path,
    const plist::Dictionary& profile,
    foundation::Existing existing = foundation::Existing::Overwrite,
    preferences::ProfileStep::What what = preferences::ProfileStep::Save);

// Removes a profile, whatever its file holds, under the environment's guard; not while the settings
// can't be read, since no snapshot could be kept before.
platform::Result<platform::Done> deleteProfile(
    const preferences::Environment& environment, const std::string& path,
    foundation::Folders folders = foundation::Folders::Refuse);

}  // namespace prefs
