// An XML property list from any bytes; what is read can be written and is read back the same.
#include <cstdlib>

#include "services/xml_reader.h"
#include "services/xml_writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  auto list = services::readXmlWithLines({bytes, size});
  if (!list) return 0;
  auto text = services::writeXml(list->value);
  if (!text) return 0;
  auto again = services::readXml(*text);
  if (!again) std::abort();
  return 0;
}
