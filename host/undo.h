#pragma once

#include <string>
#include <vector>

#include "host/backups.h"
#include "host/problem.h"

namespace host {

// What was done, and what wasn't, since it was changed after that.
struct Undone {
  std::string what;               // the label of the change: "set wifi"
  bool done = true;               // false: nothing was done, all of it is left
  std::vector<std::string> left;  // keys of settings, paths of profiles
};

// Takes back the last change that this user made by window or shell, or makes the one that was
// taken back last. What holds neither what the change has left nor what it was before stays as it
// is. A profile's file becomes byte for byte what it was. The settings are announced as changed; a
// page sees them once it reads the store anew (Activate). One of which all is left counts as
// undone, or redone, so that the next one can be; where that can't be noted, a warning says so.
// Where the record of the last one is damaged that is an error, and the record is removed.
// NotFound: there is none. While the settings can't be read nothing is undone or redone.
Attempt<Undone> undo(preferences::Environment& environment, Backups& backups);
Attempt<Undone> redo(preferences::Environment& environment, Backups& backups);

// What each of the two would be about now. What they begin with is done: a change under way ends,
// and what a set that failed has left to be stored is stored if it can be.
History::Latest nextUndo(preferences::Environment& environment, Backups& backups);
History::Latest nextRedo(preferences::Environment& environment, Backups& backups);

// What the label of a change says once it has been made: "loaded 55" of "load 55".
std::string asDone(const std::string& what);

}  // namespace host
