#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace plist {

bool isAscii(const char* bytes, std::size_t size);
inline bool isAscii(std::string_view text) {
  return isAscii(text.data(), text.size());
}

// Text of one byte a character, each the character's number (ISO 8859-1), to UTF-8.
void readLatin1(const std::uint8_t* bytes, std::size_t count, std::string& text);

// Big-endian UTF-16 to UTF-8; half of a surrogate pair becomes U+FFFD.
void readUtf16(const std::uint8_t* bytes, std::size_t units, std::string& text);

// The character at the front of UTF-8 text that isn't empty. Overlong forms, surrogates and more
// than U+10FFFF are not characters: then it is U+FFFD, not valid, and takes the bytes that begin a
// character and break off, or one byte that begins none.
struct Character {
  char32_t point;
  std::size_t size;  // in bytes
  bool isValid;
};
Character firstCharacter(std::string_view text);

// Where text stops being UTF-8; nothing when it is UTF-8 throughout.
std::optional<std::size_t> firstNotUtf8(std::string_view text);

// The number of UTF-16 units of UTF-8 text.
std::size_t utf16Units(std::string_view text);

// Writes UTF-8 text as big-endian UTF-16; returns the end.
std::uint8_t* writeUtf16(std::string_view text, std::uint8_t* to);

}  // namespace plist
