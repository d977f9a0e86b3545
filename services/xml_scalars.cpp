#include "services/xml_scalars.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>

namespace services {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kBase64 =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::chrono::sys_seconds kReference{
    std::chrono::sys_days{std::chrono::year{2001} / 1 / 1}};

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

constexpr std::array<signed char, 256> kBase64Values = [] {
  std::array<signed char, 256> values{};
  values.fill(-1);
  for (std::size_t i = 0; i < kBase64.size(); ++i)
    values[static_cast<unsigned char>(kBase64[i])] = static_cast<signed char>(i);
  return values;
}();

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

std::optional<plist::Date> readDate(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  constexpr std::string_view shape = "dddd-dd-ddTdd:dd:ddZ";
  if (text.size() != shape.size()) return std::nullopt;
  for (std::size_t i = 0; i < shape.size(); ++i)
    if (shape[i] == 'd' ? text[i] < '0' || text[i] > '9' : text[i] != shape[i]) return std::nullopt;
  const auto field = [&](std::size_t at, std::size_t length) {
    return *readWhole<int>(text.substr(at, length));
  };
  using namespace std::chrono;
  const year_month_day day{year{negative ? -field(0, 4) : field(0, 4)},
                           month(static_cast<unsigned>(field(5, 2))),
                           std::chrono::day(static_cast<unsigned>(field(8, 2)))};
  const int hour = field(11, 2), minute = field(14, 2), second = field(17, 2);
  if (!day.ok() || hour > 23 || minute > 59 || second > 60) return std::nullopt;
  const sys_seconds time = sys_days{day} + hours{hour} + minutes{minute} + seconds{second};
  return plist::Date{static_cast<double>((time - kReference).count())};
}

std::optional<plist::Data> readBase64(std::string_view text) {
  plist::Data data;
  data.bytes.reserve(text.size() / 4 * 3);
  std::uint32_t bits = 0;
  std::size_t digits = 0, padding = 0;
  for (const char c : text) {
    if (kBlanks.find(c) != kBlanks.npos) continue;
    if (c == '=') {
      ++padding;
      continue;
    }
    const int value = kBase64Values[static_cast<unsigned char>(c)];
    if (value < 0 || padding) return std::nullopt;
    bits = bits << 6 | static_cast<std::uint32_t>(value);
    const std::size_t place = digits++ % 4;
    if (place > 0) data.bytes.push_back(static_cast<std::uint8_t>(bits >> (6 - 2 * place)));
  }
  if (digits % 4 == 1) return std::nullopt;
  return data;
}

std::string writeReal(double real) {
  if (std::isnan(real)) return "nan";
  if (std::isinf(real)) return real < 0 ? "-infinity" : "+infinity";
  std::array<char, 32> text;
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), real).ptr};
}

std::string writeDate(plist::Date date) {
  using namespace std::chrono;
  constexpr sys_days first{year{-9999} / January / 1}, last{year{9999} / December / 31};
  const auto low = static_cast<double>((sys_seconds{first} - kReference).count());
  const auto high = static_cast<double>((sys_seconds{last} + 86399s - kReference).count());
  const double whole = std::isnan(date.seconds) ? 0 : std::floor(date.seconds);
  const sys_seconds time =
      kReference + seconds{static_cast<std::int64_t>(std::clamp(whole, low, high))};
  const sys_days midnight = floor<days>(time);
  const year_month_day day{midnight};
  const hh_mm_ss clock{time - midnight};
  const int shownYear = static_cast<int>(day.year());
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%s%04d-%02u-%02uT%02d:%02d:%02dZ",
                shownYear < 0 ? "-" : "", std::abs(shownYear), static_cast<unsigned>(day.month()),
                static_cast<unsigned>(day.day()), static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text.data();
}

std::string writeBase64(const plist::Data& data) {
  std::string text;
  text.reserve((data.bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < data.bytes.size(); at += 3) {
    std::uint32_t group = 0;
    const std::size_t count = std::min<std::size_t>(3, data.bytes.size() - at);
    for (std::size_t i = 0; i < 3; ++i) group = group << 8 | (i < count ? data.bytes[at + i] : 0u);
    for (std::size_t i = 0; i < 4; ++i)
      text += i <= count ? kBase64[group >> (18 - 6 * i) & 63] : '=';
  }
  return text;
}

}  // namespace services
