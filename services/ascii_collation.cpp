#include "services/ascii_collation.h"

#include <algorithm>
#include <array>

namespace services {

namespace {

constexpr std::string_view kOrder =
    " _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$0123456789abcdefghijklmnopqrstuvwxyz";
constexpr std::size_t kLongestNumber = 19;  // digits that always fit 64 bits

// By character, 0 for those that are not in the order; both cases of a letter have one weight.
constexpr std::array<unsigned char, 256> kWeights = [] {
  std::array<unsigned char, 256> weights{};
  for (std::size_t i = 0; i < kOrder.size(); ++i) {
    const char c = kOrder[i];
    weights[static_cast<unsigned char>(c)] = static_cast<unsigned char>(i + 1);
    if (c >= 'a' && c <= 'z')
      weights[static_cast<unsigned char>(c - 'a' + 'A')] = static_cast<unsigned char>(i + 1);
  }
  return weights;
}();

constexpr int weight(char c) {
  return kWeights[static_cast<unsigned char>(c)];
}
constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isKnown(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return weight(c) != 0; });
}

std::string_view number(std::string_view text) {
  std::size_t digits = 0;
  while (digits < text.size() && isDigit(text[digits])) ++digits;
  return text.substr(0, digits);
}

// How much both begin with, to the start of a number that may go on differently.
std::size_t equalStart(std::string_view a, std::string_view b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  std::size_t equal = 0;
  while (equal < shorter && a[equal] == b[equal]) ++equal;
  while (equal > 0 && isDigit(a[equal - 1])) --equal;
  return equal;
}

int compareNumbers(std::string_view a, std::string_view b) {
  a.remove_prefix(std::min(a.find_first_not_of('0'), a.size()));
  b.remove_prefix(std::min(b.find_first_not_of('0'), b.size()));
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return a.compare(b);
}

// What compares as the text does where nothing but case and zeros before a number differ, and then
// what decides those: the length of each number, the case of each letter.
bool appendKey(std::string_view text, std::string& key, std::string& ties) {
  ties.clear();
  while (!text.empty()) {
    const char first = text.front();
    if (weight(first) == 0) return false;
    if (!isDigit(first)) {
      key += static_cast<char>(weight(first));
      ties += first >= 'A' && first <= 'Z' ? '\2' : '\1';
      text.remove_prefix(1);
      continue;
    }
    const std::string_view digits = number(text);
    if (digits.size() > kLongestNumber) return false;
    const std::size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
    key += static_cast<char>(weight('0'));
    key += static_cast<char>(digits.size() - zeros);
    key += digits.substr(zeros);
    ties += static_cast<char>(digits.size());
    text.remove_prefix(digits.size());
  }
  key += '\0';
  key += ties;
  return true;
}

}  // namespace

bool hasRootAsciiOrder(std::string_view locale) {
  constexpr std::array<std::string_view, 11> languages = {"root", "en", "de", "fr", "it", "es",
                                                          "pt",   "nl", "pl", "ru", "uk"};
  const auto language = locale.substr(0, locale.find_first_of("_-"));
  return std::find(languages.begin(), languages.end(), language) != languages.end();
}

std::optional<int> compareAscii(std::string_view a, std::string_view b) {
  if (!isKnown(a)) return std::nullopt;
  const std::size_t equal = equalStart(a, b);
  a.remove_prefix(equal);
  b.remove_prefix(equal);
  if (!isKnown(b)) return std::nullopt;
  int tie = 0;  // what decides when nothing weightier does
  while (!a.empty() && !b.empty()) {
    const std::string_view first = number(a), second = number(b);
    if (!first.empty() && !second.empty()) {
      if (std::max(first.size(), second.size()) > kLongestNumber) return std::nullopt;
      if (const int order = compareNumbers(first, second)) return order;
      if (tie == 0) tie = static_cast<int>(first.size()) - static_cast<int>(second.size());
      a.remove_prefix(first.size());
      b.remove_prefix(second.size());
      continue;
    }
    if (const int order = weight(a[0]) - weight(b[0])) return order;
    if (tie == 0) tie = b[0] - a[0];
    a.remove_prefix(1);
    b.remove_prefix(1);
  }
  if (a.empty() != b.empty()) return a.empty() ? -1 : 1;
  return tie;
}

std::optional<platform::SortKeys> asciiSortKeys(const std::vector<std::string_view>& texts) {
  platform::SortKeys keys;
  std::string ties;
  for (const std::string_view text : texts) {
    if (!appendKey(text, keys.bytes(), ties)) return std::nullopt;
    keys.finishKey();
  }
  return keys;
}

}  // namespace services
