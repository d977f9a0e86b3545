#pragma once

#include <cstdlib>

// What has to hold whatever the input is; in every build.
inline void require(bool holds) {
  if (!holds) std::abort();
}
