#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/archive/keyed_archive.h"
#include "platform/services.h"

// Keyed archives from files, binary or XML. Errors are human-readable.
namespace prefs {

platform::Result<plist::Value, std::string> unarchive(plist::Bytes bytes,
                                                      platform::XmlPropertyLists& xml);

// Only the values of a few keys of the root dictionary, but accepted just where unarchive accepts.
platform::Result<archive::Lookup, std::string> lookUpInArchive(
    plist::Bytes bytes, std::span<const std::string_view> keys, platform::XmlPropertyLists& xml);

}  // namespace prefs
