#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "tests/services/xml_text.h"

using plist::Dictionary;
using plist::Value;
using testing::HasSubstr;

namespace {

// What stands between <plist> and </plist>.
std::string body(const Value& value) {
  const std::string text = written(value);
  const std::size_t start = text.find("<plist version=\"1.0\">\n") + 22;
  return text.substr(start, text.rfind("</plist>") - start);
}

}  // namespace

TEST(XmlWrite, WholeDocument) {
  EXPECT_EQ(written(Dictionary{{"a", plist::Array{true, "x"}}, {"b", 1}}),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
            "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
            "<plist version=\"1.0\">\n"
            "<dict>\n"
            "\t<key>a</key>\n"
            "\t<array>\n"
            "\t\t<true/>\n"
            "\t\t<string>x</string>\n"
            "\t</array>\n"
            "\t<key>b</key>\n"
            "\t<integer>1</integer>\n"
            "</dict>\n"
            "</plist>\n");
}
TEST(XmlWrite, EmptyContainers) {
  EXPECT_EQ(body(plist::Array{}), "<array/>\n");
  EXPECT_EQ(body(Dictionary{}), "<dict/>\n");
}
TEST(XmlWrite, Integers) {
  EXPECT_EQ(body(-31), "<integer>-31</integer>\n");
  EXPECT_EQ(body(std::numeric_limits<std::int64_t>::min()),
            "<integer>-9223372036854775808</integer>\n");
  EXPECT_EQ(body(std::numeric_limits<std::uint64_t>::max()),
            "<integer>18446744073709551615</integer>\n");
}
TEST(XmlWrite, RealsAreAsShortAsReadsBackEqual) {
  EXPECT_EQ(body(50.0), "<real>50</real>\n");
  EXPECT_EQ(body(0.1), "<real>0.1</real>\n");
  EXPECT_EQ(body(-0.0), "<real>-0</real>\n");
}
TEST(XmlWrite, FourByteRealsAreWidened) {
  EXPECT_EQ(body(0.1f), "<real>0.10000000149011612</real>\n");
}
TEST(XmlWrite, RealsThatAreNoNumbers) {
  EXPECT_EQ(body(std::nan("")), "<real>nan</real>\n");
  EXPECT_EQ(body(std::numeric_limits<double>::infinity()), "<real>+infinity</real>\n");
  EXPECT_EQ(body(-std::numeric_limits<double>::infinity()), "<real>-infinity</real>\n");
}
TEST(XmlWrite, AnyRealComesBackEqual) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20'000; ++i) {
    const Value real(std::bit_cast<double>(random()));
    ASSERT_EQ(read(written(real)), real) << body(real);
  }
}
TEST(XmlWrite, Dates) {
  EXPECT_EQ(body(plist::Date{791553600}), "<date>2026-01-31T12:00:00Z</date>\n");
  EXPECT_EQ(body(plist::Date{-0.5}), "<date>2000-12-31T23:59:59Z</date>\n");
  EXPECT_EQ(body(plist::Date{-63113904000}), "<date>0001-01-01T00:00:00Z</date>\n");
}
TEST(XmlWrite, DatesBeyondFourDigitYearsAreMovedThere) {
  EXPECT_EQ(body(plist::Date{1e300}), "<date>9999-12-31T23:59:59Z</date>\n");
  EXPECT_EQ(body(plist::Date{-1e300}), "<date>-9999-01-01T00:00:00Z</date>\n");
  EXPECT_EQ(body(plist::Date{std::nan("")}), "<date>2001-01-01T00:00:00Z</date>\n");
}
TEST(XmlWrite, AnyDateComesBackEqual) {
  std::mt19937_64 random(2);
  std::uniform_int_distribution<std::int64_t> seconds(-370'000'000'000, 250'000'000'000);
  for (int i = 0; i < 20'000; ++i) {
    const Value date(plist::Date{static_cast<double>(seconds(random))});
    ASSERT_EQ(read(written(date)), date) << body(date);
  }
}
TEST(XmlWrite, Data) {
  EXPECT_EQ(body(plist::Data{}), "<data></data>\n");
  EXPECT_EQ(body(plist::Data{{1, 2, 3}}), "<data>AQID</data>\n");
  EXPECT_EQ(body(plist::Data{{251, 255}}), "<data>+/8=</data>\n");
  EXPECT_EQ(body(plist::Data{{255}}), "<data>/w==</data>\n");
}
TEST(XmlWrite, Uid) {
  EXPECT_EQ(body(plist::Array{plist::Uid{7}}),
            "<array>\n\t<dict>\n\t\t<key>CF$UID</key>\n\t\t<integer>7</integer>\n\t</dict>\n"
            "</array>\n");
  EXPECT_EQ(read(written(plist::Uid{4294967295})), Value(plist::Uid{4294967295}));
}
TEST(XmlWrite, TextIsEscaped) {
  EXPECT_EQ(body("<a> & \"b\" 'c' é😀\n"), "<string>&lt;a&gt; &amp; \"b\" 'c' é😀\n</string>\n");
  EXPECT_EQ(body(Dictionary{{"<", true}}), "<dict>\n\t<key>&lt;</key>\n\t<true/>\n</dict>\n");
}
TEST(XmlWrite, CarriageReturnsComeBack) {
  EXPECT_EQ(read(written("a\r\nb\rc\td")), Value("a\r\nb\rc\td"));
}
TEST(XmlWrite, EveryCharacterOfXmlComesBack) {
  std::string text;
  for (char32_t c = 0x20; c <= 0x10FFFF; ++c) {
    if ((c >= 0xD800 && c < 0xE000) || c == 0xFFFE || c == 0xFFFF) continue;
    if (c < 0x80) {
      text += static_cast<char>(c);
    } else if (c < 0x800) {
      text += {static_cast<char>(0xC0 | c >> 6), static_cast<char>(0x80 | (c & 63))};
    } else if (c < 0x10000) {
      text += {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 63)),
               static_cast<char>(0x80 | (c & 63))};
    } else {
      text += {static_cast<char>(0xF0 | c >> 18), static_cast<char>(0x80 | (c >> 12 & 63)),
               static_cast<char>(0x80 | (c >> 6 & 63)), static_cast<char>(0x80 | (c & 63))};
    }
  }
  EXPECT_TRUE(read(written(text)) == Value(text));
}

TEST(XmlWrite, ControlCharacterIsRefused) {
  EXPECT_EQ(written("bell \a"), "<XML can't hold a character of the text \"bell ?\">");
  EXPECT_THAT(written(std::string(1, '\0')), HasSubstr("can't hold"));
}
TEST(XmlWrite, TextThatIsNotUtf8IsRefused) {
  for (const char* text : {"\xE9", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80",
                           "\xE2\x82", "\xEF\xBF\xBF", "\xF0\x80\x80\x80", "\xE0\x80\x80"})
    EXPECT_THAT(written(text), HasSubstr("can't hold")) << body(text);
  EXPECT_THAT(written(Dictionary{{"\xE9", true}}), HasSubstr("can't hold"));
}
TEST(XmlWrite, NothingAndSetsAreRefused) {
  EXPECT_THAT(written(plist::Array{Value()}), HasSubstr("can't hold"));
  EXPECT_THAT(written(plist::Set{}), HasSubstr("can't hold"));
}
TEST(XmlWrite, DepthIsBounded) {
  Value value = true;
  for (int depth = 1; depth <= 512; ++depth) value = plist::Array{std::move(value)};
  EXPECT_TRUE(read(written(value)) == value);
  value = plist::Array{std::move(value)};
  EXPECT_EQ(written(value), "<nested deeper than 512>");
}
