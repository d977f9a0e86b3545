#include "platform/plist/utf.h"

#include <cstring>

namespace plist {
namespace {

constexpr std::uint64_t kHighBits = 0x8080808080808080;

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

struct Point {
  char32_t value;
  std::size_t size;  // 0: not UTF-8
};

Point pointAt(std::string_view text, std::size_t at) {
  const auto byte = [text](std::size_t i) -> char32_t {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
  };
  const auto tail = [&byte](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
  const char32_t first = byte(at);
  if (first < 0x80) return {first, 1};
  if (first < 0xC2 || first > 0xF4 || !tail(at + 1)) return {0, 0};
  if (first < 0xE0) return {(first & 0x1F) << 6 | (byte(at + 1) & 0x3F), 2};
  if (!tail(at + 2)) return {0, 0};
  if (first < 0xF0) {
    const char32_t point =
        (first & 0x0F) << 12 | (byte(at + 1) & 0x3F) << 6 | (byte(at + 2) & 0x3F);
    const bool good = point >= 0x800 && (point < 0xD800 || point > 0xDFFF);
    return {point, good ? 3u : 0u};
  }
  if (!tail(at + 3)) return {0, 0};
  const char32_t point = (first & 0x07) << 18 | (byte(at + 1) & 0x3F) << 12 |
                         (byte(at + 2) & 0x3F) << 6 | (byte(at + 3) & 0x3F);
  return {point, point >= 0x10000 && point <= 0x10FFFF ? 4u : 0u};
}

}  // namespace

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
      point = 0xFFFD;
    appendUtf8(point, text);
  }
}

std::optional<std::size_t> firstNotUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const Point point = pointAt(text, at);
    if (point.size == 0) return at;
    at += point.size;
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
    const Point point = pointAt(text, at);
    at += point.size;
    if (point.value < 0x10000) {
      put(point.value);
    } else {
      put(0xD800 | (point.value - 0x10000) >> 10);
      put(0xDC00 | ((point.value - 0x10000) & 0x3FF));
    }
  }
  return to;
}

}  // namespace plist
