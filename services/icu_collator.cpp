#include "services/icu_collator.h"

#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <cstdint>

namespace services {

namespace {

constexpr std::size_t kWrappingDigits = 20;  // a number of fewer digits fits 64 bits

struct CloseCollator {
  void operator()(UCollator* collator) const { ucol_close(collator); }
};
using Collation = std::unique_ptr<UCollator, CloseCollator>;

bool isDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

char16_t lowerAscii(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

std::u16string utf16(std::string_view text) {
  std::u16string units(text.size(), u'\0');
  std::int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF8WithSub(units.data(), static_cast<std::int32_t>(units.size()), &length, text.data(),
                       static_cast<std::int32_t>(text.size()), 0xFFFD, nullptr, &status);
  units.resize(U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
  return units;
}

std::size_t numberLength(std::u16string_view text) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) -
                                  text.begin());
}

bool hasWrappingNumber(std::u16string_view text) {
  for (; !text.empty(); text.remove_prefix(1)) {
    const std::size_t length = numberLength(text);
    if (length >= kWrappingDigits) return true;
    text.remove_prefix(std::min(length, text.size() - 1));
  }
  return false;
}

// Puts the value that a 64-bit number has after the run's digits in their place, in as many digits.
void wrap(char16_t* digits, std::size_t length) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < length; ++i) value = value * 10 + (digits[i] - u'0');
  for (std::size_t i = length; i-- > 0; value /= 10)
    digits[i] = static_cast<char16_t>(u'0' + value % 10);
}

void wrapNumbers(std::u16string& a, std::u16string& b) {
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    if (isDigit(a[i]) && isDigit(b[j])) {
      const std::size_t first = numberLength(std::u16string_view(a).substr(i));
      const std::size_t second = numberLength(std::u16string_view(b).substr(j));
      wrap(&a[i], first);
      wrap(&b[j], second);
      i += first;
      j += second;
    } else if (lowerAscii(a[i++]) != lowerAscii(b[j++])) {
      return;
    }
  }
}

// Of the number around or behind this place.
std::size_t numberLengthAround(std::u16string_view text, std::size_t place) {
  while (place > 0 && isDigit(text[place - 1])) --place;
  return numberLength(text.substr(place));
}

int compareFirstNumbers(std::u16string_view a, std::u16string_view b) {
  const auto difference = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  const auto place = static_cast<std::size_t>(difference.first - a.begin());
  const std::size_t first = numberLengthAround(a, place), second = numberLengthAround(b, place);
  if (first == 0 || second == 0) return 0;
  return first < second ? -1 : first > second;
}

class IcuCollator : public platform::Collator {
 public:
  IcuCollator(Collation letters, Collation cases)
      : letters_(std::move(letters)), cases_(std::move(cases)) {}

  int compare(std::string_view a, std::string_view b) override {
    if (a == b) return 0;
    std::u16string first = utf16(a), second = utf16(b);
    if (!hasWrappingNumber(first) && !hasWrappingNumber(second))
      return order(first, second, first, second);
    std::u16string wrappedFirst = first, wrappedSecond = second;
    wrapNumbers(wrappedFirst, wrappedSecond);
    return order(wrappedFirst, wrappedSecond, first, second);
  }

  // Of the first of the four steps.
  std::optional<platform::SortKeys> sortKeys(const std::vector<std::string_view>& texts) override {
    platform::SortKeys keys;
    for (const std::string_view text : texts) {
      const std::u16string units = utf16(text);
      if (hasWrappingNumber(units)) return std::nullopt;
      appendKey(units, keys.bytes());
      keys.finishKey();
    }
    return keys;
  }

 private:
  void appendKey(const std::u16string& units, std::string& bytes) const {
    const std::size_t before = bytes.size();
    for (std::size_t room = 4 * units.size() + 16;;) {
      bytes.resize(before + room);
      const auto needed = static_cast<std::size_t>(ucol_getSortKey(
          letters_.get(), units.data(), static_cast<std::int32_t>(units.size()),
          reinterpret_cast<std::uint8_t*>(bytes.data() + before), static_cast<std::int32_t>(room)));
      if (needed <= room) return bytes.resize(before + needed);
      room = needed;
    }
  }

  int order(const std::u16string& a, const std::u16string& b, const std::u16string& unitsOfA,
            const std::u16string& unitsOfB) const {
    if (const int order = collate(letters_.get(), a, b)) return order;
    if (const int order = compareFirstNumbers(a, b)) return order;
    if (const int order = collate(cases_.get(), a, b)) return order;
    return unitsOfA.compare(unitsOfB);
  }

  static int collate(const UCollator* collator, const std::u16string& a, const std::u16string& b) {
    return ucol_strcoll(collator, a.data(), static_cast<std::int32_t>(a.size()), b.data(),
                        static_cast<std::int32_t>(b.size()));
  }

  Collation letters_, cases_;
};

Collation openCollator(const std::string& locale, UColAttributeValue strength,
                       UColAttributeValue caseLevel, UErrorCode& status) {
  Collation collator(ucol_open(locale.c_str(), &status));
  ucol_setAttribute(collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
  ucol_setAttribute(collator.get(), UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
  ucol_setAttribute(collator.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
  ucol_setAttribute(collator.get(), UCOL_STRENGTH, strength, &status);
  ucol_setAttribute(collator.get(), UCOL_CASE_LEVEL, caseLevel, &status);
  return collator;
}

}  // namespace

platform::Result<std::unique_ptr<platform::Collator>> makeCollator(const std::string& locale) {
  UErrorCode status = U_ZERO_ERROR;
  Collation letters = openCollator(locale, UCOL_SECONDARY, UCOL_OFF, status);
  Collation cases = openCollator(locale, UCOL_TERTIARY, UCOL_ON, status);
  if (U_FAILURE(status)) return platform::Error{.what = u_errorName(status)};
  return std::unique_ptr<platform::Collator>(
      std::make_unique<IcuCollator>(std::move(letters), std::move(cases)));
}

}  // namespace services
