#pragma once

#include <cstdint>

#include "platform/plist/binary.h"

namespace foundation {

// 64 bits, mixed from 8 bytes at a time by steps that can be undone: any change within 8 bytes that
// follow each other from a multiple of 8 on changes it. Not for keeping out who means to deceive.
std::uint64_t checksumOf(plist::Bytes bytes);

}  // namespace foundation
