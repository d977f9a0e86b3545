#include "services/lazy_services.h"

#include <utility>

#include "services/ascii_collation.h"
#include "services/collation_locale.h"
#include "services/services.h"

namespace services {

UserCollator::UserCollator(platform::Report report)
    : asciiOrderKnown_(hasRootAsciiOrder(collationLocale())), report_(std::move(report)) {}

int UserCollator::compare(std::string_view a, std::string_view b) {
  if (asciiOrderKnown_)
    if (const auto order = compareAscii(a, b)) return *order;
  const auto& collator = find<platform::Collator>();
  if (collator) return (*collator)->compare(a, b);
  if (const platform::Report report = std::exchange(report_, {})) report(collator.error());
  return a.compare(b);
}

std::optional<platform::SortKeys> UserCollator::sortKeys(
    const std::vector<std::string_view>& texts) {
  if (asciiOrderKnown_)
    if (auto keys = asciiSortKeys(texts)) return keys;
  const auto& collator = find<platform::Collator>();
  return collator ? (*collator)->sortKeys(texts) : std::nullopt;
}

void SessionNotificationCenter::post(std::string_view name) {
  if (const auto& center = find<Bus>()) (*center)->post(name);
}

bool DesktopUrls::canOpen(std::string_view url) {
  const auto& desktop = find<platform::Urls>();
  return desktop && (*desktop)->canOpen(url);
}

bool DesktopUrls::open(std::string_view url) {
  const auto& desktop = find<platform::Urls>();
  return desktop && (*desktop)->open(url);
}

platform::Result<plist::Value> LazyXml::read(plist::Bytes bytes) {
  return find<platform::XmlPropertyLists>().and_then([&](auto* xml) { return xml->read(bytes); });
}

platform::Result<std::vector<std::uint8_t>> LazyXml::write(const plist::Value& value) {
  return find<platform::XmlPropertyLists>().and_then([&](auto* xml) { return xml->write(value); });
}

}  // namespace services
