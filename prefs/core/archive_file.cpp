#include "prefs/core/archive_file.h"

namespace prefs {
namespace {

using platform::Error;
using platform::Result;

Error notAnArchive(Error reason) {
  return Error{.what = "not a keyed archive"}.because(std::move(reason));
}

// There is one reader of archives, of the binary form; XML is brought to that form first.
template <class Read>
auto readArchive(plist::Bytes bytes, platform::XmlPropertyLists& xml, Read read)
    -> Result<std::remove_cvref_t<decltype(*read(bytes))>> {
  std::vector<std::uint8_t> converted;
  if (!foundation::isBinary(bytes)) {
    auto list = xml.read(bytes);
    if (!list) return notAnArchive(list.error());
    auto binary = plist::writeBinary(*list);
    if (!binary) return notAnArchive({.what = binary.error().reason()});
    converted = std::move(*binary);
    bytes = converted;
  }
  auto found = read(bytes);
  if (found) return std::move(*found);
  // Places in what was brought to binary form are not places in the user's file.
  if (!converted.empty()) return notAnArchive({.what = found.error().reason()});
  return notAnArchive(found.error());
}

}  // namespace

foundation::XmlReader readerOf(platform::XmlPropertyLists& lists) {
  return [&lists](plist::Bytes bytes) { return lists.read(bytes); };
}

Result<plist::Value> unarchive(plist::Bytes bytes, platform::XmlPropertyLists& xml) {
  return readArchive(bytes, xml, [](plist::Bytes binary) { return archive::unarchive(binary); });
}

Result<archive::Lookup> lookUpInArchive(plist::Bytes bytes, std::span<const std::string_view> keys,
                                        platform::XmlPropertyLists& xml) {
  return readArchive(bytes, xml,
                     [keys](plist::Bytes binary) { return archive::lookUp(binary, keys); });
}

}  // namespace prefs
