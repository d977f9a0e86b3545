#pragma once

#include <string>

namespace foundation {

// Whether a removal takes a folder with all that it holds.
enum class Folders { Refuse, Remove };

// Removes an entry of an open folder: a file, a link (not what it leads to), or a folder with all
// that it holds (EISDIR where folders are refused). 0, or the errno of the first entry that
// couldn't be removed; EMFILE where folders are nested deeper than this process may have files
// open.
int removeEntry(int folder, const std::string& name, Folders folders);

}  // namespace foundation
