#pragma once

#include "platform/uikit/color.h"

namespace prefs {

// The bundle's accent, #34495E. One step away from a colour that the picker offers, on purpose.
inline uikit::Color accentColor() {
  return uikit::Color::fromBytes(52, 73, 94);
}

}  // namespace prefs
