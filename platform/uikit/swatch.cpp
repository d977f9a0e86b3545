#include "platform/uikit/swatch.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace uikit {

std::vector<std::uint8_t> Swatch::rgba() const {
  const auto pixels = [](double points) {
    return static_cast<std::size_t>(std::ceil(std::max(points, 0.0)));
  };
  const auto byte = [](double part) {
    return static_cast<std::uint8_t>(std::clamp(part, 0.0, 1.0) * 255 + 0.5);
  };
  const std::array pixel{byte(color.red), byte(color.green), byte(color.blue), byte(color.alpha)};
  std::vector<std::uint8_t> bytes(pixels(size.width) * pixels(size.height) * pixel.size());
  for (auto at = bytes.begin(); at != bytes.end(); at += pixel.size()) std::ranges::copy(pixel, at);
  return bytes;
}

}  // namespace uikit
