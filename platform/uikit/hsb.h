#pragma once

#include "platform/uikit/color.h"

namespace uikit {

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
