#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/directory.h"
#include "platform/result.h"

namespace foundation {

// How long a lock is waited for unless the host says otherwise.
inline constexpr std::chrono::milliseconds kLockPatience{5000};

// The exclusive lock, between processes, on whoever may replace the file `name`: an flock of
// .NAME.lock beside it, a file that is made when it is missing and stays. Held until the descriptor
// is closed.
//
// A lock that another process holds is waited for no longer than `patience`; the error is then
// "another program holds " and `what` ("the settings"), with the program's name and process id
// where /proc/locks has them.
platform::Result<Descriptor> takeLock(const Directory& folder, const std::string& name,
                                      std::chrono::milliseconds patience, std::string_view what);
std::string lockName(const std::string& name);  // of the file beside it

// Whether takeLock of another process waits for this lock file, held or not.
bool isWaitedFor(const Descriptor& lock);

}  // namespace foundation
