#pragma once

#include <string>
#include <vector>

#include "host/backups.h"
#include "host/problem.h"

// A change of settings and files that was made before, or is given by a snapshot, is made whole.
namespace host {

// Makes a change: settings and files that are `from` become `to`. Gives those that are neither, and
// are left. All files, then all settings, or nothing; where the failure is Unconfirmed, all; where
// it is PartlyDone, the files that it names. A change of more than one file, the settings being
// one, is noted before, so that it doesn't stay half made, partly done or stopped; where it can't
// be, a warning says so.
Attempt<std::vector<std::string>> apply(preferences::Environment& environment, Backups& backups,
                                        const Change& change, ChangeNote::Kind kind);

// Makes the rest of a change that a process which is gone has begun; a warning says why it can't
// be. It stands in the history then where it would stand if nothing had stopped it.
void finishChange(preferences::Environment& environment, Backups& backups);

}  // namespace host
