#pragma once

#include <optional>
#include <string>
#include <vector>

#include "prefs/profiles/profile_file.h"

// Profiles and the preference domain: a save copies the domain's settings to a file, a load copies
// them back. Both read the whole domain and write it back whole, without a lock: what another
// process stores in between is overwritten.
namespace prefs {

using foundation::Existing;
// Whether a save whose file can't be written still makes its trigger the domain's.
enum class AfterFailure { GoOn, Stop };
enum class SaveOutcome {
  Saved,
  Overwritten,   // over a file that was there
  Exists,        // there is a file, and it is to be kept: nothing has changed
  Unreadable,    // the settings can't be read: nothing has changed
  NotWritten,    // the file can't be written; what was there stays
  NotRemembered  // the file is written, but the domain doesn't name its trigger
};

struct SaveResult {
  SaveOutcome outcome;
  // Why, for the last three; of the kind Unconfirmed where the file is written but not flushed.
  std::optional<platform::Error> failure{};
};

// Saves the domain's settings, with defaults for those that it lacks, as the profile of that ID,
// and remembers the ID in the domain as the trigger saved last. Posts nothing.
SaveResult saveProfile(const preferences::Environment& environment, const std::string& profileID,
                       const std::string& path, Existing existing, AfterFailure afterFailure);

struct LoadedProfile {
  bool active;                                // the truth of its "profileactive"
  std::string missing{};                      // that there was no file, human-readable; else empty
  std::optional<platform::Error> unstored{};  // why the domain couldn't be written and is as it was
};

// Sets every setting of a profile in the domain to the file's value, else to its default; a setting
// with neither, and a trigger that the file lacks, stay as they are. A value that a property list
// can't hold (see plist::storable) counts as absent. A file that is not a keyed archive is refused,
// and nothing changes; one that isn't there is loaded as an empty profile.
platform::Result<LoadedProfile> loadProfile(const preferences::Environment& environment,
                                            const std::string& path);

struct Difference {
  std::string key;
  std::optional<plist::Value> from, to;  // empty where the key is absent
};

// What differs between two dictionaries, numbers compared by value: the first one's keys in its
// order, then those that only the second one has.
std::vector<Difference> differences(const plist::Dictionary& from, const plist::Dictionary& to);

// The domain as the first change of a load, of the whole domain, would leave it; and as the load
// would, the switch of the profile page included.
plist::Dictionary domainAfterFirstChange(const plist::Dictionary& profile,
                                         plist::Dictionary domain);
plist::Dictionary domainAfterLoad(const plist::Dictionary& profile, plist::Dictionary domain);

}  // namespace prefs
