#include "apps/assembly/lazy_xml.h"

#include "linux/services.h"

namespace assembly {

platform::Result<plist::Value, std::string> LazyXml::read(plist::Bytes bytes) {
  const auto& xml = services::xmlPropertyLists();
  if (!xml) return xml.error();
  return (*xml)->read(bytes);
}

platform::Result<std::vector<std::uint8_t>, std::string> LazyXml::write(const plist::Value& value) {
  const auto& xml = services::xmlPropertyLists();
  if (!xml) return xml.error();
  return (*xml)->write(value);
}

}  // namespace assembly
