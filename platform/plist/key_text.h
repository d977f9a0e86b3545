#pragma once

#include <string>

#include "platform/plist/value.h"

namespace plist {

// The text that a leaf becomes as a dictionary's key; see readBinary. Not for containers.
std::string keyText(const Value& leaf);

}  // namespace plist
