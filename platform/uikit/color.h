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

}  // namespace uikit
