#include "platform/foundation/checksum.h"

namespace foundation {

std::uint64_t checksumOf(plist::Bytes bytes) {
  std::uint64_t sum = 0xcbf29ce484222325;
  for (const std::uint8_t byte : bytes) sum = (sum ^ byte) * 0x100000001b3;
  return sum;
}

}  // namespace foundation
