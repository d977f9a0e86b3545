#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace plist {

// Two numbers that differ from process to process.
struct HashSeed {
  std::uint64_t a, b;
};
HashSeed drawHashSeed();

inline const HashSeed& hashSeed() {
  static const HashSeed seed = drawHashSeed();
  return seed;
}

// The two halves of the 128-bit product, folded.
inline std::uint64_t foldProduct(std::uint64_t a, std::uint64_t b) {
  const auto product = static_cast<unsigned __int128>(a) * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

inline std::uint64_t hashBits(std::uint64_t bits) {
  return foldProduct(bits ^ hashSeed().a, hashSeed().b);
}

template <class Word>
std::uint64_t loadWord(const char* at) {
  Word word;
  std::memcpy(&word, at, sizeof word);
  return word;
}

// A seeded hash of any bytes: multiply and fold, 16 bytes a step, the last step from both ends.
inline std::uint64_t hashText(std::string_view text) {
  const HashSeed& seed = hashSeed();
  const char* at = text.data();
  std::size_t left = text.size();
  std::uint64_t state = seed.a ^ left;
  for (; left > 16; left -= 16, at += 16)
    state =
        foldProduct(loadWord<std::uint64_t>(at) ^ seed.b, loadWord<std::uint64_t>(at + 8) ^ state);
  std::uint64_t low = 0, high = 0;
  if (left >= 8) {
    low = loadWord<std::uint64_t>(at);
    high = loadWord<std::uint64_t>(at + left - 8);
  } else if (left >= 4) {
    low = loadWord<std::uint32_t>(at);
    high = loadWord<std::uint32_t>(at + left - 4);
  } else if (left > 0) {
    low = loadWord<std::uint8_t>(at) << 8 | loadWord<std::uint8_t>(at + left / 2);
    high = loadWord<std::uint8_t>(at + left - 1);
  }
  return foldProduct(low ^ seed.b, high ^ state);
}

}  // namespace plist
