#include "services/lazy_services.h"

#include <utility>

#include "services/ascii_collation.h"
#include "services/collation_locale.h"
#include "services/services.h"

namespace services {

UserCollator::UserCollator(Told told)
    : asciiOrderKnown_(hasRootAsciiOrder(collationLocale())), told_(std::move(told)) {}

int UserCollator::compare(std::string_view a, std::string_view b) {
  if (asciiOrderKnown_)
    if (const auto order = compareAscii(a, b)) return *order;
  const auto& collator = collation();
  if (collator) return (*collator)->compare(a, b);
  if (const Told told = std::exchange(told_, {})) told(collator.error());
  return a.compare(b);
}

void SessionNotificationCenter::post(std::string_view name) {
  if (const auto& center = bus()) (*center)->post(name);
}

bool DesktopUrls::canOpen(std::string_view url) {
  const auto& desktop = urls();
  return desktop && (*desktop)->canOpen(url);
}

bool DesktopUrls::open(std::string_view url) {
  const auto& desktop = urls();
  return desktop && (*desktop)->open(url);
}

platform::Result<plist::Value, std::string> LazyXml::read(plist::Bytes bytes) {
  const auto& xml = xmlPropertyLists();
  if (!xml) return xml.error();
  return (*xml)->read(bytes);
}

platform::Result<std::vector<std::uint8_t>, std::string> LazyXml::write(const plist::Value& value) {
  const auto& xml = xmlPropertyLists();
  if (!xml) return xml.error();
  return (*xml)->write(value);
}

}  // namespace services
