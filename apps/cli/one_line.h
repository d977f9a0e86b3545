#pragma once

#include <string>
#include <string_view>

namespace cli {

// A text that may hold anything, as one line for a terminal: blanks in place of control characters,
// U+FFFD in place of what is no UTF-8.
std::string oneLine(std::string_view text);

}  // namespace cli
