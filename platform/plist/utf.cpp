#include "platform/plist/utf.h"

#include <cstring>

namespace plist {
namespace {

constexpr std::uint64_t kHighBits = 0x8080808080808080;
constexpr char32_t kReplacement = 0xFFFD;

void appendUtf8(char32_t point, std::string& text) {
  const auto tail = [&text](char32_t bits) { text += static_cast<char>(0x80 | (bits & 0x3F)); };
  if (point < 0x80) {
    text += static_cast<char>(point);
  } else if (point < 0x800) {
    text += static_cast<char>(0xC0 | point >> 6);
    tail(point);
  } else if (point < 0x10000) {
    text += static_cast<char>(0xE0 | point >> 12);
    tail(point >> 6);
    tail(point);
  } else {
    text += static_cast<char>(0xF0 | point >> 18);
    tail(point >> 12);
    tail(point >> 6);
    tail(point);
  }
}

}  // namespace

// The second byte's range is narrower where it would make an overlong form, a surrogate or more
// than U+10FFFF.
Character firstCharacter(std::string_view text) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) return {lead, 1, true};
  if (lead < 0xC2 || lead > 0xF4) return {kReplacement, 1, false};
  const std::size_t size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  char32_t point = lead & (0x7Fu >> size);
  for (std::size_t i = 1; i < size; ++i) {
    if (i == text.size() || byte(i) < lowest || byte(i) > highest) return {kReplacement, i, false};
    point = point << 6 | (byte(i) & 0x3F);
    lowest = 0x80;
    highest = 0xBF;
  }
  return {point, size, true};
}

bool isAscii(const char* bytes, std::size_t size) {
  const auto word = [bytes](std::size_t at) {
    std::uint64_t eight;
    std::memcpy(&eight, bytes + at, 8);
    return eight;
  };
  std::uint64_t seen = 0;
  if (size >= 8) {
    for (std::size_t at = 0; at + 8 < size; at += 8) seen |= word(at);
    seen |= word(size - 8);
  } else {
    for (std::size_t at = 0; at < size; ++at) seen |= static_cast<unsigned char>(bytes[at]);
  }
  return !(seen & kHighBits);
}

void readLatin1(const std::uint8_t* bytes, std::size_t count, std::string& text) {
  const auto* chars = reinterpret_cast<const char*>(bytes);
  if (isAscii(chars, count)) {
    text.assign(chars, count);
    return;
  }
  std::size_t size = count;
  for (std::size_t i = 0; i < count; ++i) size += bytes[i] >> 7;
  text.clear();
  text.reserve(size);
  for (std::size_t i = 0; i < count; ++i) appendUtf8(bytes[i], text);
}

void readUtf16(const std::uint8_t* bytes, std::size_t units, std::string& text) {
  const auto unit = [bytes](std::size_t i) -> char32_t {
    return static_cast<char32_t>(bytes[2 * i]) << 8 | bytes[2 * i + 1];
  };
  const auto isHigh = [](char32_t point) { return (point & 0xFC00) == 0xD800; };
  const auto isLow = [](char32_t point) { return (point & 0xFC00) == 0xDC00; };
  std::size_t size = 0;
  for (std::size_t i = 0; i < units; ++i) size += unit(i) < 0x80 ? 1 : unit(i) < 0x800 ? 2 : 3;
  text.clear();
  text.reserve(size);
  for (std::size_t i = 0; i < units; ++i) {
    char32_t point = unit(i);
    if (isHigh(point) && i + 1 < units && isLow(unit(i + 1)))
      point = 0x10000 + ((point & 0x3FF) << 10 | (unit(++i) & 0x3FF));
    else if (isHigh(point) || isLow(point))
      point = kReplacement;
    appendUtf8(point, text);
  }
}

std::optional<std::size_t> firstNotUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const Character next = firstCharacter(text.substr(at));
    if (!next.isValid) return at;
    at += next.size;
  }
  return {};
}

std::size_t utf16Units(std::string_view text) {
  std::size_t units = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    units += (byte & 0xC0) != 0x80;
    units += byte >= 0xF0;
  }
  return units;
}

std::uint8_t* writeUtf16(std::string_view text, std::uint8_t* to) {
  const auto put = [&to](char32_t unit) {
    *to++ = static_cast<std::uint8_t>(unit >> 8);
    *to++ = static_cast<std::uint8_t>(unit);
  };
  for (std::size_t at = 0; at < text.size();) {
    const auto [point, size, isValid] = firstCharacter(text.substr(at));
    at += size;
    if (point < 0x10000) {
      put(point);
    } else {
      put(0xD800 | (point - 0x10000) >> 10);
      put(0xDC00 | ((point - 0x10000) & 0x3FF));
    }
  }
  return to;
}

}  // namespace plist
