#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace foundation {

// The hexadecimal number that stands in the text from a location on, which counts UTF-16 units.
// White space and line ends before it are passed over (U+00A0, U+2000 to U+200B and U+3000 are such
// as well); so is "0x" or "0X", if a digit follows. The number ends at the first character that is
// no ASCII hexadecimal digit. One above 32 bits is the largest of 32 bits; leading zeros don't
// count. Empty when there is no digit, within a surrogate pair and past the end of the text.
std::optional<std::uint32_t> scanHexInt(std::string_view text, std::size_t location);

}  // namespace foundation
