#include "services/ascii_collation.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "services/icu_collator.h"

using services::compareAscii;

namespace {

int sign(int order) {
  return (order > 0) - (order < 0);
}

// Pairs that differ little, so that every step of the order decides some of them.
class Pairs {
 public:
  std::pair<std::string, std::string> next() {
    const std::string first = text();
    return {first, below(3) == 0 ? text() : changed(first)};
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }

  char character() {
    constexpr std::string_view nasty = "aAbBzZ0012599 _-.%($";
    if (below(4) == 0) return static_cast<char>(' ' + below(95));
    return nasty[below(nasty.size())];
  }

  std::string text() {
    std::string text;
    for (std::size_t length = below(9); length > 0; --length) text += character();
    return text;
  }

  std::string changed(std::string text) {
    for (std::size_t changes = 1 + below(3); changes > 0; --changes) {
      const std::size_t place = below(text.size() + 1);
      switch (below(4)) {
        case 0:
          text.insert(place, 1, '0');
          break;
        case 1:
          text.insert(place, 1, character());
          break;
        case 2:
          if (place < text.size()) text.erase(place, 1);
          break;
        default:
          if (place < text.size() && std::isalpha(text[place])) text[place] ^= 0x20;
      }
    }
    return text;
  }

  std::mt19937_64 random_{20260131};
};

std::vector<std::string> titlesAndPaths() {
  std::vector<std::string> texts = {
      "Charging started",        "Charging stopped",       "Device locked",  "Device unlocked",
      "Do Not Disturb disabled", "Do Not Disturb enabled", "WiFi connected", "WiFi disconnected"};
  const auto add = [&](int id) {
    texts.push_back("/var/mobile/Documents/Quorvantis/profile_" + std::to_string(id) + ".qvx");
  };
  for (int level = 1; level <= 100; ++level) {
    texts.push_back("Battery " + std::to_string(level) + "%");
    add(level);
  }
  for (const int event : {101, 102, 111, 112, 121, 122, 131, 132}) add(event);
  return texts;
}

class AsciiOrder : public testing::TestWithParam<const char*> {
 protected:
  void expectSame(std::string_view a, std::string_view b) {
    const auto order = compareAscii(a, b);
    ASSERT_TRUE(order) << a << " : " << b;
    ASSERT_EQ(sign(*order), sign((*icu_)->compare(a, b))) << a << " : " << b;
  }
  platform::Result<std::unique_ptr<platform::Collator>> icu_ = services::makeCollator(GetParam());
};

}  // namespace

TEST_P(AsciiOrder, IsIcusForRandomPairs) {
  Pairs pairs;
  for (int i = 0; i < 200'000; ++i) {
    const auto [a, b] = pairs.next();
    expectSame(a, b);
    if (HasFatalFailure()) return;
  }
}

// Of either kind of key; those of ICU leave case and zeros to the comparison.
TEST_P(AsciiOrder, IsThatOfTheSortKeys) {
  Pairs pairs;
  for (int i = 0; i < 200'000; ++i) {
    const auto [a, b] = pairs.next();
    const auto keys = services::asciiSortKeys({a, b});
    ASSERT_TRUE(keys) << a << " : " << b;
    const int order = sign(compareAscii(a, b).value());
    ASSERT_EQ(sign((*keys)[0].compare((*keys)[1])), order) << a << " : " << b;
    const auto icus = (*icu_)->sortKeys({a, b});
    ASSERT_TRUE(icus) << a << " : " << b;
    const int ofIcu = sign((*icus)[0].compare((*icus)[1]));
    if (ofIcu != 0) {
      ASSERT_EQ(ofIcu, order) << a << " : " << b;
    }
  }
}

TEST_P(AsciiOrder, IsIcusForEveryPairOfCharacters) {
  for (char a = ' '; a <= '~'; ++a)
    for (char b = ' '; b <= '~'; ++b) expectSame(std::string(1, a), std::string(1, b));
}

// No two letters are one to this language: what is joined in Czech or Danish isn't here.
TEST_P(AsciiOrder, IsIcusForEveryTwoLettersBesideOne) {
  for (char a = 'a'; a <= 'z'; ++a)
    for (char b = 'a'; b <= 'z'; ++b)
      for (char c = 'a'; c <= 'z'; ++c) {
        expectSame(std::string{a, b}, std::string(1, c));
        expectSame(std::string{a, b, 'a'}, std::string{a, c, 'a'});
      }
}

TEST_P(AsciiOrder, IsIcusForAllTitlesAndPaths) {
  const auto texts = titlesAndPaths();
  ASSERT_EQ(texts.size(), 216u);
  for (const auto& a : texts)
    for (const auto& b : texts) expectSame(a, b);
}

TEST_P(AsciiOrder, IsUsedInThisLocale) {
  EXPECT_TRUE(services::hasRootAsciiOrder(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Locales, AsciiOrder,
                         testing::Values("en_US", "root", "en_GB", "de_DE", "fr_FR", "fr_CA",
                                         "it_IT", "es_ES", "pt_BR", "nl_NL", "pl_PL", "ru_RU",
                                         "uk_UA"),
                         [](const auto& locale) { return std::string(locale.param); });

TEST(AsciiOrderUnknown, LocalesThatChangeAscii) {
  for (const char* locale : {"tr_TR", "da_DK", "et_EE", "lt_LT", "cs_CZ", "cy_GB", "hu_HU", "sq_AL",
                             "english", "", "xx"})
    EXPECT_FALSE(services::hasRootAsciiOrder(locale)) << locale;
}

// The list of locales is not there for nothing.
TEST(AsciiOrderUnknown, CzechHasAnotherOrder) {
  auto czech = services::makeCollator("cs_CZ");
  ASSERT_TRUE(czech);
  EXPECT_GT((*czech)->compare("ch", "cz"), 0);
  EXPECT_LT(compareAscii("ch", "cz").value(), 0);
}

TEST(AsciiOrderUnknown, TextThatIsNotPrintableAscii) {
  for (const char* text : {"é", "a\tb", "\n", "\x7F", "\x01", "\xFF"}) {
    EXPECT_FALSE(compareAscii(text, "a")) << text;
    EXPECT_FALSE(compareAscii("a", text)) << text;
    EXPECT_FALSE(services::asciiSortKeys({"a", text})) << text;
  }
}

TEST(AsciiOrderUnknown, NumbersThatMayWrapAround) {
  EXPECT_FALSE(compareAscii("18446744073709551617", "2"));
  EXPECT_FALSE(compareAscii("2", "00000000000000000002"));
  EXPECT_FALSE(services::asciiSortKeys({"2", "00000000000000000002"}));
  EXPECT_LT(compareAscii("2", "0000000000000000002").value(), 0);
}

TEST(AsciiOrderOf, EqualTexts) {
  EXPECT_EQ(compareAscii("Battery 5%", "Battery 5%"), 0);
}
