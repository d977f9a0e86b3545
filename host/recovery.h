#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/backups.h"
#include "host/problem.h"
#include "prefs/profiles/profile_snapshot.h"

namespace host {

// Whether the settings can be read; if not, the two ways out; and what snapshots hold.
class Recovery {
 public:
  Recovery(preferences::Environment& environment, Backups& backups)
      : environment_(environment), backups_(backups) {}

  struct State {
    std::optional<platform::Error> damage{};  // why the settings can't be read, if they can't
    std::size_t settings = 0;                 // how many there are
    std::optional<LastSeen::Sighting> seen{};
    bool changedOutside = false;  // since then
    // Profiles that other programs have changed since this one wrote them, by their paths.
    std::vector<std::string> profilesOutside{};
  };
  State state();

  // A snapshot that can be used: its number, when and before what it was taken.
  struct Entry {
    int number = 0;
    plist::Date time{};
    std::string before{};
    bool hasProfiles = true;
  };
  struct List {
    std::vector<Entry> entries{};       // the oldest first
    std::vector<Problem> unreadable{};  // why others can't be
  };
  Attempt<List> snapshots();
  // The newest whose settings can be read; an error where the system can't read a newer one now.
  Attempt<std::optional<Entry>> lastGood();

  // The two ways out. Settings that can't be read are kept aside, as DomainFile::replace does it;
  // others are not replaced (Refused). Only the settings change, not the profiles, and an undo
  // doesn't take it back. The first gives the snapshot that was put in place; where there is none
  // it fails.
  Attempt<Entry> restoreLast();
  Attempt<platform::Done> startAnew();

  // The settings of a snapshot. NotFound: no such snapshot.
  Attempt<plist::Dictionary> settingsOf(int number);
  // What a restore would change: settings by their keys, then profiles by their paths, with the
  // dictionaries that they hold (data where it is none).
  Attempt<std::vector<prefs::Difference>> changesOfRestore(int number);
  // Settings and profiles, where the snapshot has those, become what they were; failures are those
  // of host::apply. A snapshot is taken before, with a warning where that can't be, and it can be
  // undone.
  struct Restored {
    std::vector<std::string> deleted{};  // profiles that were saved later, by their paths
    std::vector<std::string> left{};     // what another program has changed at the same moment
    bool hadProfiles = true;             // else those stay as they are
  };
  Attempt<Restored> restore(int number);

 private:
  struct Good {
    Entry entry{};
    plist::Dictionary settings{};
  };
  Attempt<std::optional<Good>> newestGood();
  Attempt<Snapshot> read(int number);
  Attempt<plist::Dictionary> settingsIn(const Snapshot& snapshot);
  Attempt<platform::Done> damaged();  // or Refused
  Attempt<platform::Done> replace(const plist::Dictionary& settings);
  Attempt<Change> changeTo(const Snapshot& snapshot);

  preferences::Environment& environment_;
  Backups& backups_;
};

}  // namespace host
