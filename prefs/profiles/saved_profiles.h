#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/preferences/environment.h"

// The profile files in the documents folder.
namespace prefs {

enum class TitleForm {
  Trigger,          // "Battery 20%"
  WithDescription,  // "Battery 20% - Night", where the profile has a description
};

// What a profile's file says of itself; Nothing for what it lacks.
struct ProfileFile {
  std::string path;
  plist::Value trigger, description, active;
};
struct ProfileFiles {
  std::vector<ProfileFile> files{};  // sorted by their paths with localizedStandardCompare:
  std::string failure{};             // why the folder couldn't be listed; empty where it could
  // Why files that bear a profile's extension can't be one, in the order of their paths.
  std::vector<platform::Error> skipped{};
};

// Every entry whose extension is exactly "qvx" and that holds a keyed archive, each read once; a
// folder that is missing, or can't be listed, yields none.
ProfileFiles profileFiles(const preferences::Environment& environment);

// Full paths and titles, each sorted on its own with localizedStandardCompare:. No pairing is kept;
// they line up because a profile's file is named after its trigger and both sort alike.
struct SavedProfiles {
  std::vector<std::string> paths, titles;
  std::vector<platform::Error> skipped;  // as in ProfileFiles
};

// Of profileFiles(). An archive without a dictionary or without a trigger is listed as
// "Battery (null)%", a trigger that isn't text by its description.
SavedProfiles savedProfiles(const preferences::Environment& environment, TitleForm form);

// What is to be reported of files that were skipped, of which there are some, as one error about
// the folder: it names three of them at most, and has what the first one is about behind it.
platform::Error errorOfSkipped(const std::vector<platform::Error>& skipped);
// How its words begin.
inline constexpr std::string_view kNoProfileIn = "no profile can be read from ";

// With localizedStandardCompare:, what compares equal stays in order; but events are in the order
// of their codes whatever the user's language: in Czech "ch" comes behind "d", and a title would
// stand beside the path of another profile.
void sortTitles(std::vector<std::string>& titles, platform::Collator& collator);

// The two lists as a page's data sources give them.
plist::Array asArray(const std::vector<std::string>& texts);

}  // namespace prefs
