#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/plist/value.h"
#include "platform/result.h"

namespace services {

// Writes an XML property list as other tools write it: UTF-8, the usual header and DOCTYPE, one tab
// a level, reals with as many digits as it takes to read back the same number (a 4-byte real
// widened), dates in whole seconds, a UID as {CF$UID: number}.
//
// Fails, saying why, for what the form can't carry: nothing, a set, text that is not UTF-8 or holds
// a control character that XML has not, and more than plist::kMaximumDepth containers in one
// another.
platform::Result<std::vector<std::uint8_t>> writeXml(const plist::Value& value);

}  // namespace services
