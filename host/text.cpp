#include "host/text.h"

#include <algorithm>
#include <charconv>

namespace host {
namespace {

template <class Number>
std::string digitsOf(Number number) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

std::string realText(const plist::Value& value) {
  const double real = *value.real();
  std::string text =
      value.isSinglePrecision() ? digitsOf(static_cast<float>(real)) : digitsOf(real);
  const bool whole = text.find_first_of(".en") == std::string::npos;
  return whole ? text + ".0" : text;
}

}  // namespace

std::string numberText(double number) {
  char digits[512];
  const auto end = std::to_chars(digits, std::end(digits), number, std::chars_format::fixed, 3).ptr;
  std::string text(digits, end);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::optional<std::string> namingText(const plist::Value& value) {
  if (value.text()) return *value.text();
  if (const auto boolean = value.boolean()) return std::string(*boolean ? "true" : "false");
  if (const auto integer = value.integer()) return digitsOf(*integer);
  if (const auto integer = value.unsignedInteger()) return digitsOf(*integer);
  if (value.real()) return realText(value);
  return std::nullopt;
}

bool isTypable(std::string_view text, bool lines) {
  return std::ranges::none_of(text, [lines](unsigned char c) {
    return (c < ' ' && !(lines && (c == '\n' || c == '\t'))) || c == 0x7F;
  });
}

std::string capital(std::string text) {
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] += 'A' - 'a';
  return text;
}

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) (all += all.empty() ? "" : ", ") += text;
  return all;
}

std::string oneLine(std::string_view text) {
  std::string line = foundation::replacingInvalidUtf8(text);
  std::ranges::replace_if(
      line, [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
  return line;
}

}  // namespace host
