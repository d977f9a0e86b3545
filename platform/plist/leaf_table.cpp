#include "platform/plist/leaf_table.h"

#include <bit>
#include <cstring>

#include "platform/plist/text_hash.h"

namespace plist {
namespace {

// Places that stand for the kinds of numbers: no text is there.
constexpr char kKinds[5] = {};
constexpr const char* kBoolean = &kKinds[0];
constexpr const char* kNegative = &kKinds[1];
constexpr const char* kInteger = &kKinds[2];
constexpr const char* kSingle = &kKinds[3];
constexpr const char* kDouble = &kKinds[4];

bool isNumber(const char* text) {
  return text >= kBoolean && text <= kDouble;
}

struct Number {
  const char* kind;
  std::uint64_t bits;
};

Number numberOf(const Value& value) {
  if (const auto large = value.unsignedInteger()) return {kInteger, *large};
  if (const auto truth = value.boolean()) return {kBoolean, *truth};
  if (const auto small = value.integer()) return {kNegative, static_cast<std::uint64_t>(*small)};
  const double real = *value.real();
  if (!value.isSinglePrecision()) return {kDouble, std::bit_cast<std::uint64_t>(real)};
  return {kSingle, std::bit_cast<std::uint32_t>(static_cast<float>(real))};
}

}  // namespace

LeafTable::LeafTable(std::size_t expected) : slots_(std::bit_ceil(2 * expected)) {
  entries_.reserve(expected);
}

std::uint32_t LeafTable::text(std::string_view text) {
  const auto isSame = [text](const char* other) {
    return !isNumber(other) && std::memcmp(other, text.data(), text.size()) == 0;
  };
  return find(hashText(text), text.size(), text.data(), isSame);
}

std::uint32_t LeafTable::number(const Value& number) {
  const auto [kind, bits] = numberOf(number);
  const std::uint64_t hash = hashBits(bits + static_cast<std::uint64_t>(kind - kBoolean));
  return find(hash, bits, kind, [kind = kind](const char* other) { return other == kind; });
}

template <class IsSame>
inline std::uint32_t LeafTable::find(std::uint64_t hash, std::uint64_t bits, const char* text,
                                     IsSame isSame) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const Entry& entry = entries_[slots_[slot] - 1];
    if (entry.hash == hash && entry.bits == bits && isSame(entry.text)) return slots_[slot] - 1;
  }
  entries_.push_back({hash, bits, text, {}});
  const auto position = static_cast<std::uint32_t>(entries_.size());
  slots_[slot] = position;
  if (entries_.size() * 2 > slots_.size()) grow();
  return position - 1;
}

void LeafTable::grow() {
  const std::size_t mask = slots_.size() * 2 - 1;
  slots_.assign(mask + 1, 0);
  for (std::uint32_t i = 0; i < entries_.size(); ++i) {
    std::size_t slot = entries_[i].hash & mask;
    while (slots_[slot] != 0) slot = (slot + 1) & mask;
    slots_[slot] = i + 1;
  }
}

}  // namespace plist
