// Whatever the reader accepts, the writer writes and the reader reads again as the same.
#include "fuzz/require.h"
#include "platform/plist/binary.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto value = plist::readBinary({data, size});
  if (!value) {
    require(value.error().offset <= size);
    require(!value.error().message().empty());
    return 0;
  }
  const auto bytes = plist::writeBinary(*value);
  require(static_cast<bool>(bytes));
  const auto again = plist::readBinary(*bytes);
  require(again && *again == *value);
  return 0;
}
