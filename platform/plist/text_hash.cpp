#include "platform/plist/text_hash.h"

#include <sys/auxv.h>

namespace plist {

// The random bytes that the kernel gives each process at its start: no file can know them, and
// every module with a copy of this code draws the same, so dictionaries may pass between
// them.
HashSeed drawHashSeed() {
  HashSeed seed;
  std::memcpy(&seed, reinterpret_cast<const void*>(getauxval(AT_RANDOM)), sizeof seed);
  seed.b |= 1;
  return seed;
}

}  // namespace plist
