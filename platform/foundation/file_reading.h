#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/foundation/descriptor.h"
#include "platform/result.h"

// The system calls below DeviceRoot and Directory.
namespace foundation {

// A file of more bytes than this is refused (EFBIG, with both numbers) rather than taken into
// memory; by its size before a byte is read, where it has one.
inline constexpr std::uint64_t kLargestFile = std::uint64_t{64} << 20;

// How a path is kept below a folder: what leads out of it is taken as if the folder were "/", or is
// an error (EXDEV).
enum class Resolve { InRoot, Beneath };

// openat2: `path` below `folder`, without blocking and without giving the descriptor away to a
// child. The result is empty and errno set when it fails.
Descriptor openBelow(int folder, const std::string& path, int flags, Resolve resolve);

// What the open file is, once it is known to be a regular one of bearable size.
platform::Result<struct stat> statRegular(const Descriptor& file, const std::string& path);

// The whole of an open file of about `size` bytes into the front of `buffer`, which grows as
// needed and never shrinks. Gives the number of bytes that there were. Only for a file of unknown
// size is a short read not taken as its end, so that it may be a pipe.
inline constexpr std::size_t kUnknownSize = 0;
platform::Result<std::size_t> readWhole(const Descriptor& file, std::size_t size,
                                        std::vector<std::uint8_t>& buffer, const std::string& path);

// All of the bytes to an open file, in as many steps as it takes; false with errno when one fails.
bool writeWhole(int file, std::span<const std::uint8_t> bytes);

}  // namespace foundation
