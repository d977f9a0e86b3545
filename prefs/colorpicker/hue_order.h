#pragma once

#include "platform/plist/value.h"

namespace prefs {

// Colour entries (dictionaries with a "hex") by ascending hue, then saturation, then brightness:
// the greys first, from black to white. Entries that are equal in all three stay in their order.
plist::Array sortedByHue(plist::Array entries);

}  // namespace prefs
