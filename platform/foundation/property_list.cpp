#include "platform/foundation/property_list.h"

#include <string_view>

namespace foundation {

using platform::Error;

bool isBinary(plist::Bytes bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  return text.starts_with("bplist");
}

platform::Result<plist::Value> readPropertyList(plist::Bytes bytes, const XmlReader& xml) {
  if (!isBinary(bytes)) return xml ? xml(bytes) : Error{.what = "not a binary property list"};
  auto read = plist::readBinary(bytes);
  if (!read) return Error(read.error());
  return std::move(*read);
}

}  // namespace foundation
