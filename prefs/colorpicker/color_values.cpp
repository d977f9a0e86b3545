#include "prefs/colorpicker/color_values.h"

#include <cstdint>
#include <cstdio>

#include "platform/foundation/scanner.h"

namespace prefs {

uikit::Color colorFromHexString(std::string_view text) {
  const std::uint32_t value = foundation::scanHexInt(text, 1).value_or(0);
  const auto byte = [value](int shift) { return static_cast<int>(value >> shift & 0xFF); };
  return uikit::Color::fromBytes(byte(16), byte(8), byte(0));
}

uikit::Swatch thumbnailWithSize(const uikit::Color& color, uikit::Size size) {
  return {size, color};
}

std::string colorStringOf(float red, float green, float blue) {
  const auto whole = [](float part) {
    return static_cast<unsigned>(static_cast<std::int64_t>(part));
  };
  char text[3 * 8 + 2];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", whole(red), whole(green), whole(blue));
  return text;
}

uikit::Swatch rowThumbnail(std::string_view text) {
  return thumbnailWithSize(colorFromHexString(text), {48, 24});
}

}  // namespace prefs
