#include "platform/foundation/checksum.h"

#include <algorithm>
#include <cstring>

namespace foundation {
namespace {

constexpr std::uint64_t kOffset = 0xcbf29ce484222325, kPrime = 0x9e3779b97f4a7c15;

}  // namespace

std::uint64_t checksumOf(plist::Bytes bytes) {
  std::uint64_t sum = kOffset + bytes.size();
  while (!bytes.empty()) {
    std::uint64_t word = 0;
    const std::size_t size = std::min(bytes.size(), sizeof word);
    std::memcpy(&word, bytes.data(), size);
    sum = (sum ^ word) * kPrime;
    sum ^= sum >> 32;
    bytes = bytes.subspan(size);
  }
  return sum;
}

}  // namespace foundation
