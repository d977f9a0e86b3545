#pragma once

#include <cstdint>

#include "platform/plist/binary.h"

namespace foundation {

// 64 bits of FNV-1a. Any change of a single byte changes it.
std::uint64_t checksumOf(plist::Bytes bytes);

}  // namespace foundation
