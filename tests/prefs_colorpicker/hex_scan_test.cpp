#include <gtest/gtest.h>

#include "platform/foundation/scanner.h"

namespace {

using foundation::scanHexInt;

std::optional<std::uint32_t> scan(std::string_view text) {
  return scanHexInt(text, 0);
}

TEST(HexScan, FailsWithoutADigit) {
  for (auto text : {"", " ", " \t\n", "g", "x", "-1", "+1", "#FF"})
    EXPECT_EQ(scan(text), std::nullopt) << text;
}

TEST(HexScan, StopsAtTheFirstOtherCharacter) {
  EXPECT_EQ(scan("1fG"), 0x1Fu);
  EXPECT_EQ(scan("12 34"), 0x12u);
  EXPECT_EQ(scan("0"), 0u);
}

TEST(HexScan, TakesDigitsOfEitherCase) {
  EXPECT_EQ(scan("aBcDeF"), 0xABCDEFu);
}

TEST(HexScan, PassesOverAPrefixOnlyBeforeADigit) {
  EXPECT_EQ(scan("0x1F"), 0x1Fu);
  EXPECT_EQ(scan("0X1f"), 0x1Fu);
  for (auto text : {"0x", "0xg", "0x 1", "0x-1"}) EXPECT_EQ(scan(text), 0u) << text;
  EXPECT_EQ(scan("00x1F"), 0u) << "a prefix is two characters and no more";
  EXPECT_EQ(scan("0x0x1F"), 0u);
}

TEST(HexScan, PassesOverWhiteSpaceAndLineEndsBeforeTheNumberOnly) {
  EXPECT_EQ(scan(" 0x1F"), 0x1Fu);
  for (auto blank :
       {"\t", "\n", "\v", "\f", "\r", " ", "\u0085", "\u00A0", "\u1680", "\u2000", "\u2005",
        "\u200A", "\u200B", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"})
    EXPECT_EQ(scan(std::string(blank) + blank + "7F"), 0x7Fu) << blank;
  for (auto other : {"\u180E", "\u200C", "\uFEFF"})
    EXPECT_EQ(scan(std::string(other) + "7F"), std::nullopt) << other;
}

TEST(HexScan, SaturatesByValue) {
  EXPECT_EQ(scan("FFFFFFFF"), 0xFFFFFFFFu);
  EXPECT_EQ(scan("0FFFFFFFF"), 0xFFFFFFFFu);
  EXPECT_EQ(scan("100000000"), 0xFFFFFFFFu);
  EXPECT_EQ(scan("123456789"), 0xFFFFFFFFu);
  EXPECT_EQ(scan(std::string(1000, '1')), 0xFFFFFFFFu);
}

TEST(HexScan, DoesNotCountLeadingZeros) {
  EXPECT_EQ(scan("00000000FF"), 0xFFu);
  EXPECT_EQ(scan(std::string(1000, '0').append("FF")), 0xFFu);
}

TEST(HexScan, KnowsAsciiDigitsOnly) {
  EXPECT_EQ(scan("\uFF11\uFF12"), std::nullopt);
  EXPECT_EQ(scan("1\uFF12"), 1u);
  EXPECT_EQ(scan("\u0663"), std::nullopt);
}

TEST(HexScan, CountsLocationsInUtf16Units) {
  EXPECT_EQ(scanHexInt("\u00E9FF", 1), 0xFFu);
  EXPECT_EQ(scanHexInt("\u20ACFF", 1), 0xFFu);
  EXPECT_EQ(scanHexInt("\U0001F600FF", 2), 0xFFu);
  EXPECT_EQ(scanHexInt("\U0001F600FF", 1), std::nullopt)
      << "the second half of a pair isn't a digit";
}

TEST(HexScan, FailsAtTheEndAndPastIt) {
  EXPECT_EQ(scanHexInt("FF", 2), std::nullopt);
  EXPECT_EQ(scanHexInt("FF", 3), std::nullopt);
  EXPECT_EQ(scanHexInt("", 1), std::nullopt);
}

TEST(HexScan, EndsOnBytesThatAreNotUtf8) {
  EXPECT_EQ(scanHexInt("\xFF"
                       "12",
                       0),
            std::nullopt);
  EXPECT_EQ(scanHexInt("\x80\x80\x80", 1), std::nullopt);
  EXPECT_EQ(scanHexInt("#12\xC3", 1), 0x12u);
}

}  // namespace
