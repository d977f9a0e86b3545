#pragma once

#include <string>
#include <string_view>

#include "platform/preferences/environment.h"
#include "platform/result.h"

// Profile files: named, written, read and deleted. Nothing here shows or announces anything.
namespace prefs {

// "/var/mobile/Documents/Quorvantis/profile_55.qvx"
std::string profilePath(int profileID);

// Why a profile couldn't be read, human-readable.
struct ProfileError {
  bool missing = false;  // there is no such file
  std::string message;
};

// The file's dictionary; an archive of anything else gives an empty one. What is not a keyed
// archive at all is an error: a damaged or foreign file, a folder, a FIFO, a link that leaves the
// folder.
platform::Result<plist::Dictionary, ProfileError> readProfile(
    const preferences::Environment& environment, const std::string& path);

// Writes a dictionary as a profile, durably, in place of the file that is there; a folder of that
// name is an error. The error is human-readable.
platform::Result<platform::Done, std::string> writeProfile(
    const preferences::Environment& environment, const std::string& path,
    const plist::Dictionary& profile);

// Removes a profile, whatever its file holds.
platform::Result<platform::Done> deleteProfile(
    const preferences::Environment& environment, const std::string& path,
    foundation::Folders folders = foundation::Folders::Refuse);

}  // namespace prefs
