// Sorting 108 titles of profiles as Settings does, beside ICU's own ways and a bare comparison.
#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include <string>
#include <vector>

#include "benchmarks/race.h"
#include "platform/localized_sort.h"
#include "prefs/profiles/saved_profiles.h"
#include "services/lazy_services.h"

namespace {

using Titles = std::vector<std::string>;
constexpr int kTitles = 108;

// In the order of no folder in particular.
Titles titles(const char* description) {
  static constexpr const char* kEvents[] = {
      "Charging started",        "Charging stopped",       "Device locked",  "Device unlocked",
      "Do Not Disturb disabled", "Do Not Disturb enabled", "WiFi connected", "WiFi disconnected"};
  Titles made;
  for (int i = 0; i < kTitles; ++i) {
    const int number = i * 37 % kTitles;
    if (number < 100)
      made.push_back("Battery " + std::to_string(number + 1) + "%" +
                     (number % 3 == 0 ? description : ""));
    else
      made.emplace_back(kEvents[number - 100]);
  }
  return made;
}

class Icu {
 public:
  explicit Icu(const Titles& titles) : order_(titles.size()), keys_(titles.size()) {
    UErrorCode error = U_ZERO_ERROR;
    collator_ = ucol_open("en_US", &error);
    ucol_setAttribute(collator_, UCOL_NUMERIC_COLLATION, UCOL_ON, &error);
    bench::expect(U_SUCCESS(error), "a collator");
    for (const std::string& title : titles) {
      std::u16string units(title.size(), u'\0');
      int32_t length = 0;
      u_strFromUTF8(units.data(), static_cast<int32_t>(units.size()), &length, title.data(),
                    static_cast<int32_t>(title.size()), &error);
      units.resize(static_cast<std::size_t>(length));
      texts_.push_back(units);
    }
  }
  ~Icu() { ucol_close(collator_); }

  void sortByComparing() {
    reset();
    std::sort(order_.begin(), order_.end(), [this](std::size_t a, std::size_t b) {
      return ucol_strcoll(collator_, texts_[a].data(), lengthOf(a), texts_[b].data(),
                          lengthOf(b)) == UCOL_LESS;
    });
  }

  void sortByKeys() {
    reset();
    for (std::size_t i = 0; i < texts_.size(); ++i)
      ucol_getSortKey(collator_, texts_[i].data(), lengthOf(i), keys_[i].bytes,
                      sizeof keys_[i].bytes);
    std::sort(order_.begin(), order_.end(), [this](std::size_t a, std::size_t b) {
      return std::strcmp(reinterpret_cast<const char*>(keys_[a].bytes),
                         reinterpret_cast<const char*>(keys_[b].bytes)) < 0;
    });
  }

  Titles sorted(const Titles& titles) const {
    Titles made;
    for (const std::size_t i : order_) made.push_back(titles[i]);
    return made;
  }

 private:
  struct Key {
    std::uint8_t bytes[256];
  };

  void reset() {
    for (std::size_t i = 0; i < order_.size(); ++i) order_[i] = i;
  }
  int32_t lengthOf(std::size_t i) const { return static_cast<int32_t>(texts_[i].size()); }

  UCollator* collator_ = nullptr;
  std::vector<std::u16string> texts_;
  std::vector<std::size_t> order_;
  std::vector<Key> keys_;
};

// Digits by value, letters without case, and nothing else: too little for a user, but as quick as
// a comparison can be that gets these titles right.
bool barelyLess(const std::string& a, const std::string& b) {
  const auto digit = [](char c) { return static_cast<unsigned>(c - '0') < 10; };
  for (const char *s = a.c_str(), *t = b.c_str();; ++s, ++t) {
    if (digit(*s) && digit(*t)) {
      unsigned long x = 0, y = 0;
      while (digit(*s)) x = x * 10 + static_cast<unsigned long>(*s++ - '0');
      while (digit(*t)) y = y * 10 + static_cast<unsigned long>(*t++ - '0');
      if (x != y) return x < y;
    }
    const auto folded = [](char c) { return static_cast<unsigned>(c - 'A') < 26 ? c | 32 : c; };
    if (folded(*s) != folded(*t)) return folded(*s) < folded(*t);
    if (!*s) return false;
  }
}

void sortTitles(bench::Race& race, const char* description) {
  static services::UserCollator collator;
  const Titles unsorted = titles(description);
  static Titles ours;
  static std::vector<const std::string*> bare;
  Icu icu(unsorted);
  race.add("ours", [&] {
    ours = unsorted;
    platform::sortLocalized(ours, collator);
  });
  race.add("ICU strcoll", [&] { icu.sortByComparing(); });
  race.add("ICU sort keys", [&] { icu.sortByKeys(); });
  race.add("bare ASCII compare", [&] {
    bare.clear();
    for (const std::string& title : unsorted) bare.push_back(&title);
    std::sort(bare.begin(), bare.end(), [](auto* a, auto* b) { return barelyLess(*a, *b); });
  });
  race.run();
  icu.sortByComparing();
  bench::expect(icu.sorted(unsorted) == ours, "the same order as ICU's");
  icu.sortByKeys();
  bench::expect(icu.sorted(unsorted) == ours, "the same order as ICU's sort keys");
}

void ascii(bench::Race& race) {
  sortTitles(race, " - Night");
}

void accents(bench::Race& race) {
  sortTitles(race, " - Nächte für Zoë");
}

}  // namespace

int main(int count, char** arguments) {
  return bench::runRow(count, arguments, {{"sort", ascii}, {"sort-accents", accents}});
}
