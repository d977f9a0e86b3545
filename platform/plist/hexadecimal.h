#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace plist {

inline constexpr std::string_view kHexDigits = "0123456789abcdef";
inline constexpr std::string_view kUpperHexDigits = "0123456789ABCDEF";

// Appends a byte's two digits.
inline void appendHex(std::string& text, std::uint8_t byte, std::string_view digits = kHexDigits) {
  text += digits[byte >> 4];
  text += digits[byte & 15];
}

// The value of a digit, in either case; nothing for any other character.
constexpr std::optional<unsigned> hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return std::nullopt;
}

}  // namespace plist
