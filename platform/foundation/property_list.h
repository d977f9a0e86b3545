#pragma once

#include <functional>

#include "platform/plist/binary.h"
#include "platform/plist/value.h"
#include "platform/result.h"

namespace foundation {

// Reads a property list that isn't binary, or says what is wrong with it.
using XmlReader = std::function<platform::Result<plist::Value>(plist::Bytes)>;

// Whether the bytes begin as a binary property list does.
bool isBinary(plist::Bytes bytes);

// A property list of either form; without a reader of the other one only the binary form.
platform::Result<plist::Value> readPropertyList(plist::Bytes bytes, const XmlReader& xml);

}  // namespace foundation
