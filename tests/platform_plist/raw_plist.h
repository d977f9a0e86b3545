#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/plist/binary.h"

namespace plist_test {

using ByteVector = std::vector<std::uint8_t>;

// The bytes of hexadecimal digits; blanks don't count.
ByteVector hex(std::string_view digits);

ByteVector operator+(ByteVector a, const ByteVector& b);

// A big-endian number.
ByteVector bigEndian(std::uint64_t number, std::size_t size);

// A binary property list put together by hand: as its fields say, right or wrong.
struct RawPlist {
  std::vector<ByteVector> objects;
  std::uint64_t top = 0;
  std::size_t offsetSize = 1, referenceSize = 1;
  std::string header = "bplist00";
  ByteVector gap = {};                          // between objects and offset table
  ByteVector unused = ByteVector(6);            // the trailer's first bytes
  std::optional<std::uint64_t> count = {};      // instead of the true one
  std::optional<std::uint64_t> table = {};      // instead of the true position
  std::vector<std::uint64_t> moreOffsets = {};  // after the objects' own
  ByteVector tail = {};                         // after the trailer

  ByteVector bytes() const;
};

// An array (0xA), set (0xC) or dictionary (0xD) with fewer than 15 members or pairs.
ByteVector container(unsigned high, const std::vector<std::uint8_t>& references);

// An array in an array ... `depth` of them.
ByteVector nestedArrays(std::size_t depth);

// How reading these bytes ends: "ok", or the name of the error and its offset.
std::string verdict(const ByteVector& bytes);

}  // namespace plist_test
