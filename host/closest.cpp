#include "host/closest.h"

#include <algorithm>
#include <utility>

namespace host {
namespace {

constexpr std::size_t kShortestBeginning = 3;
constexpr std::size_t kLongest = 200;  // what is longer is not a slip of the hand

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string digitsOf(std::string_view text) {
  std::string digits(text);
  std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
  return digits;
}

// "Battery 20%" is another one than "Battery 200%", and 0 than "x".
bool isAnotherNumber(std::string_view name, std::string_view text) {
  const bool isNumber = name.find_first_not_of("+-.0123456789") == std::string_view::npos;
  const std::string digits = digitsOf(name), typed = digitsOf(text);
  return digits != typed && (isNumber || (!digits.empty() && !typed.empty()));
}

}  // namespace

std::string lowerCase(std::string_view text) {
  std::string lowered(text);
  std::ranges::transform(lowered, lowered.begin(), lower);
  return lowered;
}

bool equalInAnyCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, lower, lower);
}

std::size_t typosBetween(std::string_view a, std::string_view b) {
  std::vector<std::size_t> beforeLast, last(b.size() + 1), row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) last[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const bool same = lower(a[i - 1]) == lower(b[j - 1]);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
      const bool swapped = i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) &&
                           lower(a[i - 2]) == lower(b[j - 1]);
      if (swapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    beforeLast = last;
    last = row;
  }
  return last[b.size()];
}

std::optional<std::size_t> indexNamed(std::string_view text,
                                      const std::vector<std::string>& among) {
  const auto indexOf = [&](auto found) { return static_cast<std::size_t>(found - among.begin()); };
  if (const auto same = std::ranges::find(among, text); same != among.end()) return indexOf(same);
  const auto isSame = [&](const std::string& each) { return equalInAnyCase(each, text); };
  const auto first = std::ranges::find_if(among, isSame);
  const bool only =
      first != among.end() && std::find_if(first + 1, among.end(), isSame) == among.end();
  return only ? std::optional(indexOf(first)) : std::nullopt;
}

std::optional<std::string> closest(std::string_view text, const std::vector<std::string>& among) {
  if (text.empty() || text.size() > kLongest) return std::nullopt;
  const std::string lowered = lowerCase(text);
  const std::string* best = nullptr;
  auto fewest = std::pair<std::size_t, bool>();  // typos, and whether its beginning differs
  for (const std::string& each : among) {
    if (each.empty() || each.size() > kLongest || isAnotherNumber(each, text)) continue;
    const bool begins = lowerCase(each).starts_with(lowered);
    const std::size_t typos =
        begins && text.size() >= kShortestBeginning ? 1 : typosBetween(text, each);
    const std::size_t most = std::max<std::size_t>(1, std::min(text.size(), each.size()) / 3);
    const std::pair distance(typos, !begins);
    if (typos > most || typos >= each.size() || (best && distance >= fewest)) continue;
    best = &each;
    fewest = distance;
  }
  return best ? std::optional(*best) : std::nullopt;
}

std::string didYouMean(std::string_view text, const std::vector<std::string>& among) {
  const auto near = closest(text, among);
  return near ? "; did you mean \"" + *near + "\"?" : "";
}

}  // namespace host
