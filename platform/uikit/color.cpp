#include "platform/uikit/color.h"

#include <algorithm>
#include <cstdio>

namespace uikit {
namespace {

double hueOf(const Color& color, double largest, double spread) {
  const auto [red, green, blue, alpha] = color;
  if (spread == 0) return 0;
  const double sixths = largest == red     ? (green - blue) / spread
                        : largest == green ? 2 + (blue - red) / spread
                                           : 4 + (red - green) / spread;
  return sixths < 0 ? sixths / 6 + 1 : sixths / 6;
}

}  // namespace

std::string Color::hex() const {
  auto byte = [](double part) { return static_cast<unsigned>(part * 255 + 0.5) & 0xFF; };
  char text[8];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", byte(red), byte(green), byte(blue));
  return text;
}

Hsb hsbOf(const Color& color) {
  const auto [smallest, largest] = std::minmax({color.red, color.green, color.blue});
  const double spread = largest - smallest;
  return {hueOf(color, largest, spread), largest == 0 ? 0 : spread / largest, largest};
}

}  // namespace uikit
