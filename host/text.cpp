#include "host/text.h"

#include <charconv>

namespace host {

std::string numberText(double number) {
  char digits[512];
  const auto end = std::to_chars(digits, std::end(digits), number, std::chars_format::fixed, 3).ptr;
  std::string text(digits, end);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

}  // namespace host
