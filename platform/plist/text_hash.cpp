#include "platform/plist/text_hash.h"

#include <random>

namespace plist {

HashSeed drawHashSeed() {
  std::random_device device;
  const auto draw = [&device] { return std::uint64_t{device()} << 32 | device(); };
  return {draw(), draw() | 1};
}

}  // namespace plist
