#include "drive/base64.h"

namespace drive {
namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string writeBase64(const plist::Data& data) {
  std::string text;
  const auto& bytes = data.bytes;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(bytes.size() - i, 3);
    unsigned group = bytes[i] << 16;
    if (count > 1) group |= bytes[i + 1] << 8;
    if (count > 2) group |= bytes[i + 2];
    for (std::size_t digit = 0; digit < 4; ++digit)
      text += digit <= count ? kDigits[group >> (18 - 6 * digit) & 63] : '=';
  }
  return text;
}

std::optional<plist::Value> readBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
  text.remove_suffix(padding);
  plist::Data data;
  unsigned group = 0;
  int bits = 0;
  for (const char c : text) {
    const std::size_t digit = kDigits.find(c);
    if (digit == std::string_view::npos) return std::nullopt;
    group = group << 6 | static_cast<unsigned>(digit);
    if ((bits += 6) < 8) continue;
    data.bytes.push_back(static_cast<std::uint8_t>(group >> (bits -= 8)));
  }
  return plist::Value(std::move(data));
}

}  // namespace drive
