#pragma once

#include <cstdint>
#include <vector>

#include "platform/uikit/color.h"
#include "platform/uikit/geometry.h"

namespace uikit {

// A bitmap of one color, in points at scale 1.
struct Swatch {
  Size size;
  Color color;

  // Row by row, four bytes a pixel: red, green, blue, alpha, each rounded to the nearest of 255. A
  // part of a pixel counts as a whole one; a size that isn't positive has none.
  std::vector<std::uint8_t> rgba() const;
};

}  // namespace uikit
