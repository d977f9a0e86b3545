#pragma once

#include <string>

#include "platform/foundation/directory.h"
#include "platform/result.h"

// Damaged files are kept beside the file that takes their place, as NAME.unreadable-1, -2, …
namespace foundation {

// Gives the file a second name, one above the highest that there is, and says which; it stays in
// place. For one who holds the lock of that file.
platform::Result<std::string> keepAside(const Directory& folder, const std::string& name);

// Removes all but the five that were kept last.
void removeOldest(const Directory& folder, const std::string& name);

}  // namespace foundation
