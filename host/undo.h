#pragma once

#include <string>
#include <vector>

#include "host/backups.h"
#include "host/problem.h"

namespace host {

// What was done, and what wasn't, since another program has changed it meanwhile.
struct Undone {
  std::string what;               // of the change: "set wifi"
  std::vector<std::string> left;  // keys of settings, paths of profiles
};

// Takes back the last change that this user made by window or shell, or makes the one that was
// taken back last. What holds neither what the change has left nor what it was before stays as it
// is. A profile's file becomes byte for byte what it was. The settings are announced as changed.
// NotFound: there is none.
Attempt<Undone> undo(preferences::Environment& environment, Backups& backups);
Attempt<Undone> redo(preferences::Environment& environment, Backups& backups);

// Makes a change: settings and files that are `from` become `to`. Gives those that are neither, and
// are left. All files, then all settings, or nothing; where the failure is Unconfirmed, all.
Attempt<std::vector<std::string>> apply(preferences::Environment& environment, Backups& backups,
                                        const Change& change);

}  // namespace host
