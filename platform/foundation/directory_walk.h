#pragma once

#include <functional>
#include <string_view>

#include "platform/foundation/fallback_folder.h"

namespace foundation {

// Is called with an entry below a folder: the absolute string of its file URL, which ends in "/"
// for a folder and is good until the visit returns.
using Visit = std::function<void(std::string_view url, bool isDirectory)>;

// enumeratorAtURL:…: everything below a folder, at any depth. Each folder comes before what it
// holds, the entries of a folder in the order in which the file system returns them; hidden files
// too. Symbolic links are entries that are not folders, never entered; where `path` itself is one,
// or can't be opened, there is nothing. Other file systems aren't entered either; a folder that
// can't be read is passed over.
void walkDirectory(const DeviceRoot& root, const FallbackFolder& fallback, std::string_view path,
                   const Visit& visit);

}  // namespace foundation
