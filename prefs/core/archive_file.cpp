#include "prefs/core/archive_file.h"

#include <algorithm>

namespace prefs {
namespace {

using platform::Result;

bool isBinary(plist::Bytes bytes) {
  constexpr std::string_view kMagic = "bplist";
  return bytes.size() >= kMagic.size() && std::equal(kMagic.begin(), kMagic.end(), bytes.begin());
}

std::string notAnArchive(const std::string& reason) {
  return "not a keyed archive: " + reason;
}

// There is one reader of archives, of the binary form; XML is brought to that form first.
template <class Read>
auto readArchive(plist::Bytes bytes, platform::XmlPropertyLists& xml, Read read)
    -> Result<std::remove_cvref_t<decltype(*read(bytes))>, std::string> {
  std::vector<std::uint8_t> converted;
  if (!isBinary(bytes)) {
    auto list = xml.read(bytes);
    if (!list) return notAnArchive(list.error().message());
    auto binary = plist::writeBinary(*list);
    if (!binary) return notAnArchive(binary.error().reason());
    converted = std::move(*binary);
    bytes = converted;
  }
  auto found = read(bytes);
  if (found) return std::move(*found);
  // Places in what was brought to binary form are not places in the user's file.
  return notAnArchive(converted.empty() ? found.error().message() : found.error().reason());
}

}  // namespace

Result<plist::Value, std::string> unarchive(plist::Bytes bytes, platform::XmlPropertyLists& xml) {
  return readArchive(bytes, xml, [](plist::Bytes binary) { return archive::unarchive(binary); });
}

Result<archive::Lookup, std::string> lookUpInArchive(plist::Bytes bytes,
                                                     std::span<const std::string_view> keys,
                                                     platform::XmlPropertyLists& xml) {
  return readArchive(bytes, xml,
                     [keys](plist::Bytes binary) { return archive::lookUp(binary, keys); });
}

}  // namespace prefs
