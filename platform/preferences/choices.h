#pragma once

#include <string>
#include <vector>

#include "platform/plist/value.h"

namespace preferences {

// Values and titles, paired by index. Shared and never changed once a row has them, so that copying
// and comparing a list of many thousands costs nothing.
struct Choices {
  plist::Array values;
  std::vector<std::string> titles;
  bool operator==(const Choices&) const = default;
};

}  // namespace preferences
