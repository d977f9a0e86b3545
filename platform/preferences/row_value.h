#pragma once

#include "platform/foundation/preferences.h"
#include "platform/plist/value.h"

// What a row shows, by the properties that its list gives it: "key" and "defaults" (the domain) say
// where its value is stored, "default" stands in for one that isn't, and "negate" turns a boolean.
namespace preferences {

// Nothing where the row has none.
plist::Value defaultValue(const plist::Dictionary& row);

// The stored value as it was last synchronised, else the default.
plist::Value storedOrDefault(const plist::Dictionary& row, foundation::Preferences& preferences);

}  // namespace preferences
