#include "services/xml_scalars.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace services {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view withoutLeadingBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text;
}

template <class Number, class... Format>
std::optional<Number> readWhole(std::string_view text, Format... format) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, format...);
  if (error != std::errc{} || stop != end) return std::nullopt;
  return number;
}

}  // namespace

std::optional<plist::Value> readInteger(std::string_view text) {
  text = withoutLeadingBlanks(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text = withoutLeadingBlanks(text.substr(1));
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  const auto magnitude =
      readWhole<std::uint64_t>(text.substr(hexadecimal ? 2 : 0), hexadecimal ? 16 : 10);
  if (!magnitude) return std::nullopt;

  constexpr std::uint64_t limit = std::numeric_limits<std::int64_t>::max();
  if (!negative && *magnitude > limit) return plist::Value(*magnitude);
  if (*magnitude > limit + 1) return std::nullopt;
  return plist::Value(static_cast<std::int64_t>(negative ? 0 - *magnitude : *magnitude));
}

std::optional<double> readReal(std::string_view text) {
  text = withoutLeadingBlanks(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  return readWhole<double>(text, std::chars_format::general);
}

std::string writeReal(double real) {
  if (std::isnan(real)) return "nan";
  if (std::isinf(real)) return real < 0 ? "-infinity" : "+infinity";
  std::array<char, 32> text;
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), real).ptr};
}

}  // namespace services
