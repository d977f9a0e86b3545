#include <gtest/gtest.h>

#include <cstdlib>

#include "services/collation_locale.h"
#include "services/icu_collator.h"

namespace {

// Texts in ascending order.
struct Row {
  const char* name;
  std::vector<std::string> ascending;
  const char* locale = "en_US";
};

void PrintTo(const Row& row, std::ostream* out) {
  *out << row.name;
}

class Collation : public testing::TestWithParam<Row> {};

void expectAscending(platform::Collator& collator, const std::vector<std::string>& texts) {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(collator.compare(texts[i], texts[i]), 0) << texts[i];
    for (std::size_t j = i + 1; j < texts.size(); ++j) {
      EXPECT_LT(collator.compare(texts[i], texts[j]), 0) << texts[i] << " < " << texts[j];
      EXPECT_GT(collator.compare(texts[j], texts[i]), 0) << texts[i] << " < " << texts[j];
      const auto keys = collator.sortKeys({texts[i], texts[j]});
      if (keys) {
        EXPECT_LE((*keys)[0], (*keys)[1]) << texts[i] << " < " << texts[j];
      }
    }
  }
}

}  // namespace

TEST_P(Collation, IsAscending) {
  auto collator = services::makeCollator(GetParam().locale);
  ASSERT_TRUE(collator);
  expectAscending(**collator, GetParam().ascending);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Collation,
    testing::Values(
        Row{"FileNumbers", {"profile_9.qvx", "profile_10.qvx"}},
        Row{"LongerNumber", {"profile_10", "profile_101"}},
        Row{"LeadingZeros", {"profile_5", "profile_05", "profile_005", "profile_6"}},
        Row{"Separators", {"profile 5", "profile_5", "profile-5", "profile.5", "profile5"}},
        Row{"SpaceBeforeDot", {"profile_5 copy.qvx", "profile_5.qvx"}},
        Row{"LowerCaseFirst", {"profile_5", "Profile_5"}},
        Row{"Battery9And10", {"Battery 9%", "Battery 10%"}},
        Row{"Battery1And100", {"Battery 1%", "Battery 100%"}},
        Row{"AbsentCode", {"Battery (null)%", "Battery 5%"}},
        Row{"EmptyAndOddCode", {"Battery %", "Battery 5%", "Battery x%"}},
        Row{"Description", {"Battery 20%", "Battery 20% - Night", "Battery 21%"}},
        Row{"DescriptionCase", {"Battery 20% - day", "Battery 20% - night", "Battery 20% - Night"}},
        Row{"TitleCase", {"battery 20%", "Battery 20%"}},
        Row{"ZeroInTitle", {"Battery 5%", "Battery 05%"}},
        Row{"LettersBeforeZeros", {"Battery 05% A", "Battery 5% b"}},
        Row{"Events",
            {"Battery 100%", "Charging started", "Charging stopped", "Device locked",
             "Device unlocked", "Do Not Disturb disabled", "Do Not Disturb enabled",
             "WiFi connected", "WiFi disconnected"}},
        Row{"CaseOfOneLetter", {"a", "A", "b"}}, Row{"CaseOfTwoLetters", {"aB", "Ab", "aC"}},
        Row{"EmptyBeforeSpace", {"", " "}}, Row{"EmptyBeforeTab", {"", "\t"}},
        Row{"EmptyBeforeText", {"", "a"}}, Row{"ShorterFirst", {"a", "a ", "ab"}},
        Row{"PunctuationCounts", {"a b", "a_b", "a-b", "ab"}},
        Row{"ApostropheCounts", {"a b", "a'b", "ab"}}, Row{"Parenthesis", {"(", "1", "a"}},
        Row{"Percent", {"%", "1", "a"}}, Row{"Dollar", {"$", "1", "a"}},
        Row{"Plus", {"+", "1", "a"}}, Row{"Accents", {"e", "é", "É"}},
        Row{"AccentBetweenLetters", {"E", "é", "f"}}, Row{"AccentInWord", {"resume", "résumé"}},
        Row{"ComposedLast", {"e\u0301", "é"}}, Row{"FullWidthLast", {"a", "\uFF41"}},
        Row{"SharpS", {"ss", "ß"}}, Row{"Emoji", {"%", "😀", "1", "a"}},
        Row{"ShorterNumberFirst", {"9", "09"}}, Row{"NoDecimals", {"1.5", "1.10"}},
        Row{"NoSign", {"-1", "-2"}}, Row{"NumbersWithoutCase", {"File9", "file10"}},
        Row{"ArabicIndicDigits", {"\u0663", "4"}},
        Row{"NumbersWrapAround", {"18446744073709551617", "2"}},
        Row{"SwedishRing", {"z", "å"}, "sv"}, Row{"SwedishUmlaut", {"z", "ä"}, "sv"},
        Row{"Turkish", {"ı", "I", "i", "İ"}, "tr"}),
    testing::PrintToStringParamName());

TEST(CollationOfAll, BatteryTitlesAreInTheOrderOfTheirNumbers) {
  std::vector<std::string> titles;
  for (int level = 1; level <= 100; ++level)
    titles.push_back("Battery " + std::to_string(level) + "%");
  auto collator = services::makeCollator("en_US");
  ASSERT_TRUE(collator);
  expectAscending(**collator, titles);
}

TEST(CollationOfAll, ProfilePathsAreInTheOrderOfTheirNumbers) {
  std::vector<std::string> paths;
  const auto add = [&](int id) { paths.push_back("profile_" + std::to_string(id) + ".qvx"); };
  for (int level = 1; level <= 100; ++level) add(level);
  for (const int event : {101, 102, 111, 112, 121, 122, 131, 132}) add(event);
  auto collator = services::makeCollator("en_US");
  ASSERT_TRUE(collator);
  expectAscending(**collator, paths);
}

class LongNumbers : public testing::Test {
 protected:
  int compare(std::string_view a, std::string_view b) { return (*collator_)->compare(a, b); }
  platform::Result<std::unique_ptr<platform::Collator>> collator_ = services::makeCollator("en_US");
};

TEST_F(LongNumbers, TwentyDigitsThatFitAreNotWrapped) {
  EXPECT_GT(compare("18446744073709551615", "9223372036854775807"), 0);
}
TEST_F(LongNumbers, WrapBehindEqualTextWithoutCase) {
  EXPECT_LT(compare("a18446744073709551617", "A2"), 0);
}
TEST_F(LongNumbers, OfOneWrappedValueTheShorterIsFirst) {
  EXPECT_GT(compare("18446744073709551617", "1"), 0);
  EXPECT_LT(compare("18446744073709551617", "018446744073709551617"), 0);
}
TEST_F(LongNumbers, OfOneWrappedValueAndLengthTheUnitsDecide) {
  EXPECT_LT(compare("18446744073709551616", "36893488147419103232"), 0);
}
TEST_F(LongNumbers, HaveNoSortKeys) {
  EXPECT_FALSE((*collator_)->sortKeys({"a", "b 18446744073709551617"}));
  EXPECT_TRUE((*collator_)->sortKeys({"a", "b 9223372036854775807"}));
}
TEST_F(LongNumbers, BehindOtherTextAreComparedWhole) {
  EXPECT_GT(compare("é18446744073709551617", "e2"), 0);
}

TEST(CollationInput, BytesThatAreNoUtf8AreComparedAsReplacementCharacters) {
  auto collator = services::makeCollator("en_US");
  ASSERT_TRUE(collator);
  EXPECT_EQ((*collator)->compare("a\xFF", "a\uFFFD"), 0);
  EXPECT_LT((*collator)->compare("a", "a\xFF"), 0);
}

class CollationLocale : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* variable : {"LC_ALL", "LC_COLLATE", "LANG"}) unsetenv(variable);
  }
};

TEST_F(CollationLocale, IsEnglishWithoutAny) {
  EXPECT_EQ(services::collationLocale(), "en_US");
}
TEST_F(CollationLocale, IsEnglishForC) {
  for (const char* none : {"C", "POSIX", "C.UTF-8", "en_US_POSIX"}) {
    setenv("LANG", none, 1);
    EXPECT_EQ(services::collationLocale(), "en_US") << none;
  }
}
TEST_F(CollationLocale, LeavesTheEncodingOut) {
  setenv("LANG", "sv_SE.UTF-8@euro", 1);
  EXPECT_EQ(services::collationLocale(), "sv_SE");
}
TEST_F(CollationLocale, TheFirstThatIsSetWins) {
  setenv("LANG", "de_DE.UTF-8", 1);
  setenv("LC_COLLATE", "fr_FR.UTF-8", 1);
  EXPECT_EQ(services::collationLocale(), "fr_FR");
  setenv("LC_ALL", "sv_SE.UTF-8", 1);
  EXPECT_EQ(services::collationLocale(), "sv_SE");
  setenv("LC_ALL", "", 1);
  EXPECT_EQ(services::collationLocale(), "fr_FR");
}
