// Decoding all of an archive and looking up some keys accept and refuse the same, and an archive is
// a property list; what was decoded can be archived and decoded again.
#include <array>

#include "fuzz/require.h"
#include "platform/archive/keyed_archive.h"

namespace {

constexpr std::array<std::string_view, 4> kKeys = {"a", "profilepercentage", "1", "\xC3\xA9"};

void compare(const plist::Value& root, const archive::Lookup& lookup) {
  const plist::Dictionary* dictionary = root.dictionary();
  require(lookup.isDictionary == (dictionary != nullptr));
  for (std::size_t i = 0; i < kKeys.size(); ++i) {
    const plist::Value* value = dictionary ? dictionary->find(kKeys[i]) : nullptr;
    require(value ? lookup.values[i] == *value : lookup.values[i].isNothing());
  }
}

void archiveAgain(const plist::Value& root) {
  const auto bytes = archive::archive(root, archive::Mutability::Mutable);
  if (!bytes) {
    const auto kind = bytes.error().kind;
    require(kind == archive::ErrorKind::NotArchivable || kind == archive::ErrorKind::TooDeep);
    return;
  }
  const auto again = archive::unarchive(plist::Bytes(*bytes));
  require(again && *again == root);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const plist::Bytes bytes(data, size);
  const auto root = archive::unarchive(bytes);
  const auto lookup = archive::lookUp(bytes, kKeys);
  require(static_cast<bool>(root) == static_cast<bool>(lookup));
  if (!root) {
    require(root.error().kind == lookup.error().kind);
    require(root.error().offset == lookup.error().offset && root.error().offset <= size);
    require(!root.error().message().empty());
    return 0;
  }
  compare(*root, *lookup);
  require(static_cast<bool>(plist::readBinary(bytes)));
  archiveAgain(*root);
  return 0;
}
