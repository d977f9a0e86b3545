#include "platform/services.h"
#include "services/module.h"
#include "services/xml_reader.h"
#include "services/xml_writer.h"

namespace services {

namespace {

class ExpatPropertyLists : public platform::XmlPropertyLists {
 public:
  platform::Result<plist::Value> read(plist::Bytes bytes) override { return readXml(bytes); }
  platform::Result<std::vector<std::uint8_t>> write(const plist::Value& value) override {
    return writeXml(value);
  }
};

}  // namespace

}  // namespace services

QUORVANTIS_SERVICE {
  (void)reason;
  return static_cast<platform::XmlPropertyLists*>(new services::ExpatPropertyLists);
}
