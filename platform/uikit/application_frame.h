#pragma once

#include "platform/uikit/geometry.h"

namespace uikit {

// The main screen below its status bar of 20 points, upright.
inline Rect applicationFrame(Idiom idiom) {
  return idiom == Idiom::Tablet ? Rect{0, 20, 768, 1004} : Rect{0, 20, 320, 460};
}

}  // namespace uikit
