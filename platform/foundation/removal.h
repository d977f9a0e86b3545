#pragma once

#include <string>

namespace foundation {

// Removes an entry of an open folder: a file, a link (not what it leads to), or a folder with all
// that it holds. 0, or the errno of the first entry that couldn't be removed; EMFILE where folders
// are nested deeper than this process may have files open.
int removeEntry(int folder, const std::string& name);

}  // namespace foundation
