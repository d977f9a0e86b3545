#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/problem.h"
#include "platform/preferences/environment.h"
#include "prefs/profiles/profile_snapshot.h"

// What can be done with profiles without a page on screen. Unlike the page, which says "Success"
// and "Done" in any case, each outcome says what truly happened; on a failure nothing has changed.
// What was done all the same, only not as well, the environment's problem handler is given.
namespace host {

// One of the 108 triggers.
struct Trigger {
  std::string profileID, title;
  std::string path;  // of its profile, whether there is one or not
};

std::vector<Trigger> triggers();
// By its ID ("55", "101") or its title ("Charging started").
std::optional<Trigger> findTrigger(std::string_view text);

struct ProfileFailure {
  enum Reason {
    NotATrigger,
    NoProfile,
    Exists,    // and is not to be overwritten
    IsFolder,  // a folder bears the profile's name
    BadValue,  // the profile to import isn't one
    Failed,    // a file or the settings can't be read or written
  };
  Reason reason;
  Problem problem;
};

template <class T>
using ProfileOutcome = platform::Result<T, ProfileFailure>;

struct SavedProfile {
  std::string path, title;  // paired by their order, as the pages do
};

class Profiles {
 public:
  using Done = platform::Done;
  using Difference = prefs::Difference;
  using Existing = prefs::Existing;
  using Folders = foundation::Folders;

  explicit Profiles(preferences::Environment& environment) : environment_(environment) {}

  // Those that can be read, in the order of the pages; each other one is reported.
  ProfileOutcome<std::vector<SavedProfile>> list();
  ProfileOutcome<plist::Dictionary> read(const Trigger& trigger);

  // Saves the settings, and remembers the trigger in them. When the latter fails a file of that
  // name is again what it was.
  ProfileOutcome<Done> save(const Trigger& trigger, Existing existing);
  // Through the profile page, with its announcements.
  ProfileOutcome<Done> load(const Trigger& trigger);
  ProfileOutcome<Done> remove(const Trigger& trigger, Folders folders);

  // What a load would change in the settings; what differs between two profiles. Numbers are
  // compared by value.
  ProfileOutcome<std::vector<Difference>> changesOfLoad(const Trigger& trigger);
  ProfileOutcome<std::vector<Difference>> differences(const Trigger& one, const Trigger& other);

  // As an XML property list.
  ProfileOutcome<std::vector<std::uint8_t>> exportXml(const Trigger& trigger);
  // From a property list, XML or binary, plain or a keyed archive. BadValue, with the key's name,
  // unless each key is one that a profile has, each value is of its kind (a number for a number,
  // text for a text), and "profilepercentage" is the ID of a trigger. Gives that trigger.
  ProfileOutcome<Trigger> import(plist::Bytes bytes, Existing existing);

 private:
  ProfileOutcome<Done> checkFree(const Trigger& trigger, Existing existing) const;
  // Whether the file is again what it was.
  bool restore(const Trigger& trigger,
               const platform::Result<std::vector<std::uint8_t>, foundation::FileError>& before);

  preferences::Environment& environment_;
};

}  // namespace host
