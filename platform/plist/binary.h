#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/plist/error.h"
#include "platform/plist/value.h"
#include "platform/result.h"

// Binary property lists ("bplist0?"): an 8-byte header, objects, their offset table, a trailer.
namespace plist {

using Bytes = std::span<const std::uint8_t>;

// A container in a container ... in the top container: this many are read and written.
constexpr std::size_t kMaximumDepth = 512;

// Objects may be shared in the bytes and are apart in a Value. What a Value takes (its members,
// their texts and data, in bytes of memory) is bounded by this, and so is the work of reading it.
// It is far above what bytes without shared objects come to.
constexpr std::uint64_t expansionLimit(std::size_t bytes) {
  return std::uint64_t{bytes} * 48 + 512 * 1024;
}

// Reads every type that the format has. Of equal keys the first counts. A key that is not text
// becomes text: a number its digits, a boolean "true" or "false", null "null", a date its seconds,
// a UID its index, data its bytes in hexadecimal between "<" and ">". Half of a surrogate pair
// becomes U+FFFD. Only objects that the top object leads to are looked at.
platform::Result<Value, Error> readBinary(Bytes bytes);

// Writes objects in the order container, keys, values with all that is in them. Equal texts and
// equal numbers are written once, unless so much is shared that readBinary would refuse it.
platform::Result<std::vector<std::uint8_t>, Error> writeBinary(const Value& value);

}  // namespace plist
