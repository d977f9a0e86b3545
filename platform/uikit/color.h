#pragma once

#include <string>

namespace uikit {

// Components as fractions, 0 to 1.
struct Color {
  double red = 0, green = 0, blue = 0, alpha = 1;
  bool operator==(const Color&) const = default;

  static Color fromBytes(int red, int green, int blue, int alpha = 255) {
    return {red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0};
  }
  std::string hex() const;  // "#RRGGBB", components rounded to the nearest of 255
};

// Each from 0 to 1. Greys have the hue 0 and the saturation 0.
struct Hsb {
  double hue = 0, saturation = 0, brightness = 0;
  bool operator==(const Hsb&) const = default;
};

// With M the largest component, m the smallest and d = M - m: brightness M; saturation d/M, 0 for
// black; hue (g-b)/d, 2+(b-r)/d or 4+(r-g)/d where red, green or blue is M, a sixth of it, and one
// more if that is negative.
Hsb hsbOf(const Color& color);

}  // namespace uikit
