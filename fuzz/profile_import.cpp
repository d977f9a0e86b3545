// A profile from any bytes: what the import accepts is a whole profile of a known trigger, each of
// its values of the right kind, and the profile file that is made of it reads back the same.
#include <algorithm>

#include "fuzz/require.h"
#include "host/profile_import.h"
#include "platform/archive/keyed_archive.h"
#include "prefs/core/names.h"
#include "prefs/profiles/profile_settings.h"
#include "services/xml_reader.h"
#include "services/xml_writer.h"

namespace {

struct Xml : platform::XmlPropertyLists {
  platform::Result<plist::Value> read(plist::Bytes bytes) override {
    return services::readXml(bytes);
  }
  platform::Result<std::vector<std::uint8_t>> write(const plist::Value& value) override {
    return services::writeXml(value);
  }
};

void check(const host::ImportedProfile& profile) {
  static const std::vector<host::Trigger> kTriggers = host::triggers();
  require(std::ranges::count(kTriggers, profile.trigger.profileID, &host::Trigger::profileID) == 1);
  require(profile.values.begin()->key == prefs::kProfilePercentage);
  require(*profile.values.begin()->value.text() == profile.trigger.profileID);
  static const auto kKeys = prefs::profileKeys();
  for (auto entry = profile.values.begin() + 1; entry != profile.values.end(); ++entry) {
    require(std::ranges::count(kKeys, entry->key) == 1);
    require(entry->value.text() || entry->value.isNumber());
  }
  const auto bytes = archive::archive(profile.values, archive::Mutability::Mutable);
  require(static_cast<bool>(bytes));
  const auto again = archive::unarchive(plist::Bytes(*bytes));
  require(again && *again == plist::Value(profile.values));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Xml xml;
  const auto imported = host::readImport({data, size}, xml);
  if (imported)
    check(*imported);
  else
    require(!imported.error().problem.words.empty() && imported.error().problem.path.empty());
  return 0;
}
