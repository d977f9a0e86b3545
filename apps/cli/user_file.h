#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "apps/cli/session.h"

// Files that the user names, anywhere on this machine.
namespace cli {

using Bytes = std::span<const std::uint8_t>;

// A regular file or whatever else can be read to its end, whole.
Outcome<std::vector<std::uint8_t>> readUserFile(const std::string& path);

// A new file in place of the one that is there, which stays if that fails; what is not a regular
// file is written to as it is.
Outcome<Done> writeUserFile(const std::string& path, Bytes bytes);

}  // namespace cli
