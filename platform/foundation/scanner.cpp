#include "platform/foundation/scanner.h"

#include <algorithm>

#include "platform/plist/hexadecimal.h"
#include "platform/plist/utf.h"

namespace foundation {
namespace {

constexpr std::string_view kBlanks[] = {
    "\t",     "\n",     "\v",     "\f",     "\r",     " ",      "\u0085", "\u00A0", "\u1680",
    "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
    "\u2009", "\u200A", "\u200B", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000",
};

// Empty when the location is within a character or past the end.
std::optional<std::string_view> from(std::string_view text, std::size_t location) {
  while (location > 0) {
    if (text.empty()) return std::nullopt;
    const plist::Character first = plist::firstCharacter(text);
    const std::size_t units = first.point < 0x10000 ? 1 : 2;
    if (units > location) return std::nullopt;
    location -= units;
    text.remove_prefix(first.size);
  }
  return text;
}

std::string_view withoutBlanks(std::string_view text) {
  const auto leads = [&](std::string_view blank) { return text.starts_with(blank); };
  for (auto blank = std::ranges::find_if(kBlanks, leads); blank != std::end(kBlanks);
       blank = std::ranges::find_if(kBlanks, leads))
    text.remove_prefix(blank->size());
  return text;
}

std::optional<unsigned> digitAt(std::string_view text, std::size_t at) {
  return at < text.size() ? plist::hexDigit(text[at]) : std::nullopt;
}

}  // namespace

std::optional<std::uint32_t> scanHexInt(std::string_view text, std::size_t location) {
  const auto rest = from(text, location);
  if (!rest) return std::nullopt;
  std::string_view digits = withoutBlanks(*rest);
  const bool prefixed = digits.starts_with("0x") || digits.starts_with("0X");
  if (prefixed && digitAt(digits, 2)) digits.remove_prefix(2);
  if (!digitAt(digits, 0)) return std::nullopt;

  std::uint64_t value = 0;
  for (std::size_t at = 0; auto digit = digitAt(digits, at); ++at)
    value = std::min<std::uint64_t>(value * 16 + *digit, UINT32_MAX);
  return static_cast<std::uint32_t>(value);
}

}  // namespace foundation
