#include "platform/uikit/color.h"

#include <cstdio>

namespace uikit {

std::string Color::hex() const {
  auto byte = [](double part) { return static_cast<unsigned>(part * 255 + 0.5) & 0xFF; };
  char text[8];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", byte(red), byte(green), byte(blue));
  return text;
}

}  // namespace uikit
