#pragma once

#include "platform/services.h"

namespace assembly {

// Property lists in XML. The module is loaded at the first call; where it can't be, every call
// fails with the reason.
class LazyXml : public platform::XmlPropertyLists {
 public:
  platform::Result<plist::Value, std::string> read(plist::Bytes bytes) override;
  platform::Result<std::vector<std::uint8_t>, std::string> write(
      const plist::Value& value) override;
};

}  // namespace assembly
