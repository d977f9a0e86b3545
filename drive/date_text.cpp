#include "drive/date_text.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace drive {
namespace {

using namespace std::chrono;

constexpr sys_days kEpoch = year(2001) / 1 / 1;
constexpr double kFirst = duration<double>(sys_days(year(1) / 1 / 1) - kEpoch).count();
constexpr double kEnd = duration<double>(sys_days(year(10000) / 1 / 1) - kEpoch).count();

}  // namespace

std::string writeDate(plist::Date date) {
  const double known = std::isnan(date.seconds) ? 0 : date.seconds;
  const sys_seconds time =
      floor<seconds>(kEpoch + duration<double>(std::clamp(known, kFirst, kEnd - 1)));
  const auto midnight = floor<days>(time);
  const year_month_day day(midnight);
  const hh_mm_ss clock(time - midnight);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
                static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text;
}

std::optional<plist::Value> readDate(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00T00:00:00Z";
  if (text.size() != kForm.size()) return std::nullopt;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  for (std::size_t i = 0; i < kForm.size(); ++i)
    if (kForm[i] == '0' ? !isDigit(text[i]) : text[i] != kForm[i]) return std::nullopt;
  const auto number = [&](std::size_t at, std::size_t digits) {
    int sum = 0;
    for (const char c : text.substr(at, digits)) sum = sum * 10 + (c - '0');
    return sum;
  };
  const year_month_day day = year(number(0, 4)) / number(5, 2) / number(8, 2);
  const int h = number(11, 2), m = number(14, 2), s = number(17, 2);
  if (!day.ok() || h > 23 || m > 59 || s > 59) return std::nullopt;
  const auto time = sys_days(day) - kEpoch + hours(h) + minutes(m) + seconds(s);
  return plist::Value(plist::Date{duration<double>(time).count()});
}

}  // namespace drive
