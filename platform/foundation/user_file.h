#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/durable_file.h"
#include "platform/plist/binary.h"
#include "platform/result.h"

// Files outside the device root that the user names by this machine's paths, and the program's
// own streams.
namespace foundation {

// A regular file of at most 64 MB, whole, through links; a folder, a FIFO, a device is an error at
// once. "-" is standard input, whatever it is, up to the same size.
inline constexpr std::string_view kStandardStream = "-";
platform::Result<std::vector<std::uint8_t>> readUserFile(const std::string& path);

// A new file in place of the one that is there, which stays if that fails; with Existing::Keep one
// that is there, whoever made it meanwhile, is an error (EEXIST). Durable, or there and an error of
// the kind Unconfirmed; in a folder that can't be listed, there. What is not a regular file is
// written to as it is; a FIFO that nobody reads is an error at once.
platform::Result<platform::Done> writeUserFile(const std::string& path, plist::Bytes bytes,
                                               Existing existing = Existing::Overwrite);

// From the working folder on, without "." and ".."; links stay as they are. Empty for an empty one.
std::string absolutePath(const std::string& path);

// A program may be started without standard streams. A file that it opens then would take the
// number of one and get what is written to it. Before anything is opened this takes the free
// numbers, so that reading and writing those streams fail.
void occupyStandardStreams();

// As it is; on a terminal, what could control it or reorder its text is escaped (see visibleText),
// unless it is kept.
enum class Stream { Output = 1, Error = 2 };
enum class Controls { Escaped, Kept };
platform::Result<platform::Done> writeStream(Stream stream, std::string_view text,
                                             Controls controls = Controls::Escaped);

}  // namespace foundation
