#include "platform/plist/date_text.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace plist {
namespace {

using namespace std::chrono;

constexpr sys_seconds kReference{sys_days{year{2001} / January / 1}};

double startOf(int number) {
  return static_cast<double>((sys_days{year{number} / January / 1} - kReference).count());
}

}  // namespace

CalendarTime calendarTime(Date date) {
  // Rounds down without libm, which the command line's start does without.
  const sys_seconds time = kReference + floor<seconds>(duration<double>(date.seconds));
  const sys_days midnight = floor<days>(time);
  const year_month_day day{midnight};
  const hh_mm_ss clock{time - midnight};
  return {static_cast<int>(day.year()),
          static_cast<unsigned>(day.month()),
          static_cast<unsigned>(day.day()),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count())};
}

std::string writeDate(Date date, int firstYear) {
  const double known = std::isnan(date.seconds) ? 0 : date.seconds;
  const auto [year, month, day, hour, minute, second] =
      calendarTime({std::clamp(known, startOf(firstYear), startOf(10000) - 1)});
  char text[32];
  std::snprintf(text, sizeof text, "%s%04d-%02u-%02uT%02d:%02d:%02dZ", year < 0 ? "-" : "",
                std::abs(year), month, day, hour, minute, second);
  return text;
}

std::optional<Date> readDate(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  constexpr std::string_view kShape = "dddd-dd-ddTdd:dd:ddZ";
  if (text.size() != kShape.size()) return std::nullopt;
  for (std::size_t i = 0; i < kShape.size(); ++i)
    if (kShape[i] == 'd' ? text[i] < '0' || text[i] > '9' : text[i] != kShape[i])
      return std::nullopt;
  const auto field = [text](std::size_t at, std::size_t length) {
    int number = 0;
    std::from_chars(text.data() + at, text.data() + at + length, number);
    return number;
  };
  const year_month_day date =
      year{negative ? -field(0, 4) : field(0, 4)} / field(5, 2) / field(8, 2);
  const int hour = field(11, 2), minute = field(14, 2), second = field(17, 2);
  if (!date.ok() || hour > 23 || minute > 59 || second > 60) return std::nullopt;
  const sys_seconds time = sys_days{date} + hours{hour} + minutes{minute} + seconds{second};
  return Date{static_cast<double>((time - kReference).count())};
}

}  // namespace plist
