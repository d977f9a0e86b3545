#pragma once

#include <span>
#include <string_view>

#include "platform/archive/keyed_archive.h"
#include "platform/foundation/property_list.h"
#include "platform/services.h"

// Keyed archives from files, binary or XML. Errors name no path.
namespace prefs {

// What the store takes to read XML; the lists have to outlive it.
foundation::XmlReader readerOf(platform::XmlPropertyLists& lists);

platform::Result<plist::Value> unarchive(plist::Bytes bytes, platform::XmlPropertyLists& xml);

// Only the values of a few keys of the root dictionary, but accepted just where unarchive accepts.
platform::Result<archive::Lookup> lookUpInArchive(plist::Bytes bytes,
                                                  std::span<const std::string_view> keys,
                                                  platform::XmlPropertyLists& xml);

}  // namespace prefs
