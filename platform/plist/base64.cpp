#include "platform/plist/base64.h"

#include <algorithm>
#include <array>

namespace plist {
namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view kBlanks = " \t\r\n";

constexpr std::array<signed char, 256> kValues = [] {
  std::array<signed char, 256> values{};
  values.fill(-1);
  for (std::size_t i = 0; i < kDigits.size(); ++i)
    values[static_cast<unsigned char>(kDigits[i])] = static_cast<signed char>(i);
  return values;
}();

}  // namespace

std::string writeBase64(const Data& data) {
  std::string text;
  text.reserve((data.bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < data.bytes.size(); at += 3) {
    std::uint32_t group = 0;
    const std::size_t count = std::min<std::size_t>(3, data.bytes.size() - at);
    for (std::size_t i = 0; i < 3; ++i) group = group << 8 | (i < count ? data.bytes[at + i] : 0u);
    for (std::size_t i = 0; i < 4; ++i)
      text += i <= count ? kDigits[group >> (18 - 6 * i) & 63] : '=';
  }
  return text;
}

std::optional<Data> readBase64(std::string_view text, Base64Form form) {
  Data data;
  data.bytes.reserve(text.size() / 4 * 3);
  std::uint32_t bits = 0;
  std::size_t digits = 0, padding = 0;
  for (const char c : text) {
    if (form == Base64Form::Lenient && kBlanks.find(c) != kBlanks.npos) continue;
    if (c == '=') {
      ++padding;
      continue;
    }
    const int value = kValues[static_cast<unsigned char>(c)];
    if (value < 0 || padding > 0) return std::nullopt;
    bits = bits << 6 | static_cast<std::uint32_t>(value);
    const std::size_t place = digits++ % 4;
    if (place > 0) data.bytes.push_back(static_cast<std::uint8_t>(bits >> (6 - 2 * place)));
  }
  if (digits % 4 == 1) return std::nullopt;
  if (form == Base64Form::Strict && padding != (4 - digits % 4) % 4) return std::nullopt;
  return data;
}

}  // namespace plist
