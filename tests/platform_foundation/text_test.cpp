#include "platform/foundation/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <utility>

namespace foundation::test {
namespace {

using plist::Value;

TEST(VisibleText, EscapesWhatControlsATerminalAndNothingElse) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"", ""},
      {"a\n\tb", "a\n\tb"},
      {"\x1b[2J\r\x7f", "\\u001b[2J\\u000d\\u007f"},
      {std::string_view("\0", 1), "\\u0000"},
      {"\u0080\u009f\u00a0", "\\u0080\\u009f\u00a0"},
      {"\u061b\u061c\u200d\u200e\u200f\u2010", "\u061b\\u061c\u200d\\u200e\\u200f\u2010"},
      {"\u2029\u202a\u202e\u202f", "\u2029\\u202a\\u202e\u202f"},
      {"\u2065\u2066\u2069\u206a", "\u2065\\u2066\\u2069\u206a"},
      {"\x9b\xe2\x82x", "\\x9b\\xe2\\x82x"},
      {"\u20ac\U0001f600", "\u20ac\U0001f600"}};
  for (const auto& [text, visible] : cases) EXPECT_EQ(visibleText(text), visible);
}

TEST(PathExtension, FollowsTheLastDotOfTheLastComponent) {
  const std::pair<const char*, const char*> cases[] = {{".qvx", ""},
                                                       {"a.qvx", "qvx"},
                                                       {".a.qvx", "qvx"},
                                                       {"a..qvx", "qvx"},
                                                       {" .qvx", "qvx"},
                                                       {"a.b.qvx", "qvx"},
                                                       {"a.QVX", "QVX"},
                                                       {"profile 5.qvx", "qvx"},
                                                       {"a.qvx/", "qvx"},
                                                       {"a.qvx///", "qvx"},
                                                       {"a.", ""},
                                                       {"a.qvx.", ""},
                                                       {"a. qvx", ""},
                                                       {"a.q vx", ""},
                                                       {"a.qvx ", ""},
                                                       {"..qvx", "qvx"},
                                                       {"...qvx", "qvx"},
                                                       {"/a.b/c", ""},
                                                       {"/a/.qvx", ""},
                                                       {"", ""},
                                                       {"/", ""},
                                                       {".", ""},
                                                       {"..", ""},
                                                       {"a.\u200Fqvx", ""},
                                                       {"a.qvx\u061C", ""},
                                                       {"\u202Ea.qvx", "qvx"},
                                                       {"a.\u00E9", "\u00E9"}};
  for (const auto& [name, extension] : cases) EXPECT_EQ(pathExtension(name), extension) << name;
}

TEST(LastPathComponent, DropsTrailingSlashesAndDecodesNothing) {
  const std::pair<const char*, const char*> cases[] = {
      {"/a/b", "b"}, {"/a/b//", "b"}, {"b", "b"}, {"b/", "b"},
      {"/", "/"},    {"///", "/"},    {"", ""},   {"file:///a/b%20c.caf", "b%20c.caf"}};
  for (const auto& [path, component] : cases) EXPECT_EQ(lastPathComponent(path), component) << path;
}

TEST(Utf8, WellFormedTextIsKept) {
  for (const char* text : {"", "plain", "\u00E9", "\u20AC", "\U0001F600", "\U0010FFFF"}) {
    EXPECT_TRUE(isUtf8(text)) << text;
    EXPECT_EQ(replacingInvalidUtf8(text), text);
  }
  EXPECT_TRUE(isUtf8(std::string_view("\0", 1)));
}

TEST(Utf8, BrokenBytesAreReplaced) {
  const std::pair<const char*, const char*> cases[] = {
      {"a\xFFz", "a\uFFFDz"},
      {"\x80", "\uFFFD"},                                // continuation without a start
      {"\xC0\xAF", "\uFFFD\uFFFD"},                      // overlong
      {"\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD"},            // overlong
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},            // surrogate
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // above U+10FFFF
      {"\xE2\x82", "\uFFFD"},                            // breaks off at the end
      {"\xE2\x82z", "\uFFFDz"},
      {"\xF0\x9F\x98\xC3\xA9", "\uFFFD\u00E9"}};
  for (const auto& [bytes, text] : cases) {
    EXPECT_FALSE(isUtf8(bytes)) << text;
    EXPECT_EQ(replacingInvalidUtf8(bytes), text);
  }
}

TEST(DescriptionOf, NothingIsNull) {
  EXPECT_EQ(descriptionOf(Value()), "(null)");
}

TEST(DescriptionOf, TextIsItself) {
  EXPECT_EQ(descriptionOf("55"), "55");
  EXPECT_EQ(descriptionOf("a \"b\"\n"), "a \"b\"\n");
  EXPECT_EQ(descriptionOf(""), "");
}

TEST(DescriptionOf, BooleanIsADigit) {
  EXPECT_EQ(descriptionOf(true), "1");
  EXPECT_EQ(descriptionOf(false), "0");
}

TEST(DescriptionOf, IntegerIsDecimal) {
  EXPECT_EQ(descriptionOf(55), "55");
  EXPECT_EQ(descriptionOf(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(descriptionOf(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}

TEST(DescriptionOf, RealHasNoNeedlessDigits) {
  EXPECT_EQ(descriptionOf(55.0), "55");
  EXPECT_EQ(descriptionOf(0.5), "0.5");
  EXPECT_EQ(descriptionOf(0.1), "0.1");
  EXPECT_EQ(descriptionOf(1.0 / 3), "0.3333333333333333");
  EXPECT_EQ(descriptionOf(1e20), "1e+20");
  EXPECT_EQ(descriptionOf(std::nan("")), "nan");
  EXPECT_EQ(descriptionOf(-std::numeric_limits<double>::infinity()), "-inf");
}

TEST(DescriptionOf, FourByteRealHasSevenDigits) {
  EXPECT_EQ(descriptionOf(0.1f), "0.1");
  EXPECT_EQ(descriptionOf(1.0f / 3), "0.3333333");
  EXPECT_EQ(descriptionOf(50.0f), "50");
}

TEST(DescriptionOf, IsNotInTheUsersLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"de_DE.UTF-8", "fr_FR.UTF-8"}) std::setlocale(LC_ALL, locale);
  EXPECT_EQ(descriptionOf(0.5), "0.5");
  std::setlocale(LC_ALL, before.c_str());
}

TEST(DescriptionOf, DataIsHexadecimalInGroupsOfFour) {
  EXPECT_EQ(descriptionOf(plist::Data{{'h', 'e', 'l', 'l', 'o'}}), "<68656c6c 6f>");
  EXPECT_EQ(descriptionOf(plist::Data{}), "<>");
}

TEST(DescriptionOf, DateIsUniversalTime) {
  EXPECT_EQ(descriptionOf(plist::Date{0}), "2001-01-01 00:00:00 +0000");
  EXPECT_EQ(descriptionOf(plist::Date{-0.5}), "2000-12-31 23:59:59 +0000");
  EXPECT_EQ(descriptionOf(plist::Date{791553600}), "2026-01-31 12:00:00 +0000");
  EXPECT_EQ(descriptionOf(plist::Date{1e300}), "1e+300 s");
  EXPECT_EQ(descriptionOf(plist::Date{std::nan("")}), "nan s");
}

TEST(DescriptionOf, ContainersAreInTheOldTextFormat) {
  EXPECT_EQ(descriptionOf(plist::Array{}), "(\n)");
  EXPECT_EQ(descriptionOf(plist::Array{1, "a b", "c"}), "(\n    1,\n    \"a b\",\n    c\n)");
  EXPECT_EQ(descriptionOf(plist::Dictionary{{"k", plist::Array{"x"}}, {"a-b", ""}}),
            "{\n    k = (\n        x\n    );\n    \"a-b\" = \"\";\n}");
  EXPECT_EQ(descriptionOf(plist::Set{{1}}), "{(\n    1\n)}");
}

TEST(DescriptionOf, DeepValueNeedsNoStack) {
  Value deep = 1;
  for (int depth = 0; depth < 100'000; ++depth) {
    plist::Array around;
    around.push_back(std::move(deep));
    deep = std::move(around);
  }
  EXPECT_GT(descriptionOf(deep).size(), 200'000u);
}

TEST(BoolValue, NumberIsTrueUnlessZero) {
  for (const Value& value : {Value(true), Value(1), Value(-1), Value(0.5), Value(0.5f),
                             Value(std::numeric_limits<std::uint64_t>::max())}) {
    EXPECT_TRUE(boolValue(value)) << descriptionOf(value);
  }
  for (const Value& value : {Value(false), Value(0), Value(0.0), Value(-0.0f)}) {
    EXPECT_FALSE(boolValue(value)) << descriptionOf(value);
  }
}

TEST(BoolValue, TextIsTrueWhenItSaysSo) {
  for (const char* text : {"YES", "yes", "y", "true", "T", "tralala", "1", "-1", "+1", "007", "  1",
                           "\tY", "-0012", "9x"}) {
    EXPECT_TRUE(boolValue(text)) << text;
  }
  for (const char* text :
       {"", " ", "NO", "on", "0", "000", "0.5", "+t", "-", "+", "x1", "- 1", "--1"}) {
    EXPECT_FALSE(boolValue(text)) << text;
  }
}

TEST(BoolValue, AnythingElseIsFalse) {
  EXPECT_FALSE(boolValue(Value()));
  EXPECT_FALSE(boolValue(plist::Array{1}));
  EXPECT_FALSE(boolValue(plist::Dictionary{{"a", 1}}));
  EXPECT_FALSE(boolValue(plist::Data{{1}}));
  EXPECT_FALSE(boolValue(plist::Date{1}));
}

}  // namespace
}  // namespace foundation::test
