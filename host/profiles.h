#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/problem.h"
#include "host/triggers.h"
#include "platform/preferences/environment.h"
#include "prefs/profiles/profile_snapshot.h"

// What can be done with profiles without a page on screen. Unlike the page, which says "Success"
// and "Done" in any case, each outcome says what truly happened. What was done all the same, only
// not as well, is reported to the environment's problem handler. While the settings can't be read
// no profile is made, changed or removed: no snapshot could be kept before.
namespace host {

struct SavedProfile {
  std::string path;
  std::string trigger, title;  // the ID that the file names, empty without one, and its title
  std::string description;
  bool active = true;  // its trigger does something

  std::string longTitle() const;  // "Battery 20% - Night"
  bool operator==(const SavedProfile&) const = default;
};

class Profiles {
 public:
  using Done = platform::Done;
  using Difference = prefs::Difference;
  using Existing = prefs::Existing;
  using Folders = foundation::Folders;

  explicit Profiles(preferences::Environment& environment) : environment_(environment) {}

  // Those that can be read, in the order of the pages, and why each other one can't be.
  struct Listing {
    std::vector<SavedProfile> profiles;
    std::vector<platform::Error> skipped;
  };
  Attempt<Listing> listing();
  // The former alone; each of the latter is reported.
  Attempt<std::vector<SavedProfile>> list();
  Attempt<plist::Dictionary> read(const Trigger& trigger);
  // What a list says of a profile with these values.
  static SavedProfile saved(const std::string& path, const plist::Dictionary& profile);

  // Saves the settings, and remembers the trigger in them. When the latter fails a file of that
  // name is again what it was; where that fails too the failure is PartlyDone.
  Attempt<Done> save(const Trigger& trigger, Existing existing);
  // Through the profile page, with its announcements. It stores twice; when the second fails the
  // settings are made again what they were, with an announcement; where that fails too the failure
  // is PartlyDone, and only the kind of "profileactive" isn't what the load makes it.
  Attempt<Done> load(const Trigger& trigger);
  Attempt<Done> remove(const Trigger& trigger, Folders folders);
  // Binds a copy of one's profile to another trigger.
  Attempt<Done> copy(const Trigger& from, const Trigger& to, Existing existing);

  // Gives it another description, which may be empty; its other values stay. It fails where another
  // program has changed the file meanwhile.
  Attempt<Done> describe(const Trigger& trigger, const std::string& description);

  // What a load would change in the settings; what differs between two profiles. Numbers are
  // compared by value.
  Attempt<std::vector<Difference>> changesOfLoad(const Trigger& trigger);
  Attempt<std::vector<Difference>> differences(const Trigger& one, const Trigger& other);

  // As an XML property list.
  Attempt<std::vector<std::uint8_t>> exportXml(const Trigger& trigger);
  // From a property list, XML or binary, plain or a keyed archive. Refused, with the key's name,
  // unless each key is one that a profile has, each value is of its kind (a number for a number,
  // text for a text), and "profilepercentage" is the ID of a trigger. Gives that trigger. The path
  // of a failure is empty where these bytes are at fault, and places in it are places in them.
  Attempt<Trigger> import(plist::Bytes bytes, Existing existing);

 private:
  Attempt<Done> write(const Trigger& trigger, const plist::Dictionary& profile, Existing existing,
                      preferences::ProfileStep::What what);
  Attempt<Done> checkFree(const Trigger& trigger, Existing existing) const;
  // Whether the file is again what it was.
  bool restore(const Trigger& trigger, const platform::Result<std::vector<std::uint8_t>>& before);
  // Whether the settings are again what they were before the profile was put over them, but for
  // what another process has changed since.
  bool takeBack(const plist::Dictionary& profile, const plist::Dictionary& before);
  // Takes the lock and reads the settings, and changes nothing; without a settings file it finds
  // out nothing.
  platform::Result<Done> checkWritable();
  // Of the settings; `what` is what isn't done where they can't be read.
  Attempt<Done> checkReadable(const std::string& what);
  Attempt<Done> finish();

  preferences::Environment& environment_;
};

}  // namespace host
