#include "tests/platform_plist/raw_plist.h"

namespace plist_test {

ByteVector hex(std::string_view digits) {
  ByteVector bytes;
  std::string pair;
  for (const char digit : digits) {
    if (digit == ' ') continue;
    pair += digit;
    if (pair.size() < 2) continue;
    bytes.push_back(static_cast<std::uint8_t>(std::stoul(pair, nullptr, 16)));
    pair.clear();
  }
  return bytes;
}

ByteVector operator+(ByteVector a, const ByteVector& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

ByteVector bigEndian(std::uint64_t number, std::size_t size) {
  ByteVector bytes(size);
  for (std::size_t i = size; i > 0; --i, number >>= 8)
    bytes[i - 1] = static_cast<std::uint8_t>(number);
  return bytes;
}

ByteVector RawPlist::bytes() const {
  ByteVector all(header.begin(), header.end()), offsets;
  const auto append = [](ByteVector& to, const ByteVector& more) {
    to.insert(to.end(), more.begin(), more.end());
  };
  for (const ByteVector& object : objects) {
    append(offsets, bigEndian(all.size(), offsetSize));
    append(all, object);
  }
  for (const std::uint64_t offset : moreOffsets) append(offsets, bigEndian(offset, offsetSize));
  append(all, gap);
  const std::uint64_t tableAt = table.value_or(all.size());
  const std::uint64_t number = count.value_or(objects.size() + moreOffsets.size());
  append(all, offsets + unused + bigEndian(offsetSize, 1) + bigEndian(referenceSize, 1));
  append(all, bigEndian(number, 8) + bigEndian(top, 8) + bigEndian(tableAt, 8) + tail);
  return all;
}

ByteVector container(unsigned high, const std::vector<std::uint8_t>& references) {
  const std::size_t count = high == 0xD ? references.size() / 2 : references.size();
  return bigEndian(high << 4 | count, 1) + ByteVector(references);
}

ByteVector nestedArrays(std::size_t depth) {
  RawPlist raw;
  raw.offsetSize = raw.referenceSize = 4;
  for (std::size_t i = 0; i + 1 < depth; ++i)
    raw.objects.push_back(hex("A1") + bigEndian(i + 1, 4));
  raw.objects.push_back(hex("A0"));
  return raw.bytes();
}

std::string verdict(const ByteVector& bytes) {
  const auto value = plist::readBinary(bytes);
  if (value) return "ok";
  return std::string(nameOf(value.error().kind)) + " " + std::to_string(value.error().offset);
}

}  // namespace plist_test
