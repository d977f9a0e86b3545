#include "apps/cli/one_line.h"

#include <algorithm>

#include "platform/foundation/text.h"

namespace cli {

std::string oneLine(std::string_view text) {
  std::string line = foundation::replacingInvalidUtf8(text);
  std::ranges::replace_if(
      line, [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
  return line;
}

}  // namespace cli
