#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/services/xml_text.h"

using plist::Dictionary;
using plist::Kind;
using plist::Value;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::string repeated(std::string_view text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

std::string utf16(std::u16string_view text, bool bigEndian) {
  std::string bytes;
  for (const char16_t unit : text) {
    const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes;
}

}  // namespace

TEST(XmlRead, FullDocument) {
  EXPECT_EQ(read("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                 "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                 "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                 "<plist version=\"1.0\">\n<dict>\n\t<key>a</key>\n\t<array>\n\t\t<true/>\n"
                 "\t\t<!-- a comment -->\n\t\t<string>x</string>\n\t</array>\n</dict>\n</plist>\n"),
            Value(Dictionary{{"a", plist::Array{true, "x"}}}));
}

TEST(XmlRead, HeaderIsOptional) {
  EXPECT_EQ(read("<string>x</string>"), Value("x"));
}
TEST(XmlRead, WhiteSpaceBeforeTheHeader) {
  EXPECT_EQ(read(" \n<?xml version=\"1.0\"?><string>x</string>"), Value("x"));
}
TEST(XmlRead, ContentAfterTheRootIsIgnored) {
  EXPECT_EQ(read("<plist><string>x</string></plist>junk & <"), Value("x"));
  EXPECT_EQ(read("<string>x</string><string>y</string>"), Value("x"));
}
TEST(XmlRead, TwoRootsAreRefused) {
  EXPECT_THAT(refusal("<plist><string>x</string><string>y</string></plist>"),
              HasSubstr("second root"));
}

TEST(XmlRead, AttributesAreIgnored) {
  EXPECT_EQ(read("<string a='b'>x</string>"), Value("x"));
}
TEST(XmlRead, EmptyPlistIsRefused) {
  EXPECT_THAT(refusal("<plist/>"), HasSubstr("no value"));
}
TEST(XmlRead, NoTextAtAllIsRefused) {
  EXPECT_THAT(refusal(""), StartsWith("line 1: "));
}
TEST(XmlRead, TextThatIsNotXmlIsRefused) {
  EXPECT_THAT(refusal("hello"), StartsWith("line 1: "));
}
TEST(XmlRead, MissingEndIsRefused) {
  EXPECT_NE(refusal("<plist><dict><key>a</key><true/></dict>"), "");
}
TEST(XmlRead, UnknownElementIsNamed) {
  EXPECT_EQ(refusal("<plist>\n<dict>\n<key>a</key>\n<float>1</float></dict></plist>"),
            "line 4: unknown element <float>");
}
TEST(XmlRead, TextBetweenValuesIsRefused) {
  EXPECT_EQ(refusal("<array>\nx<true/></array>"), "line 2: text outside a value");
}
TEST(XmlRead, ElementWithinAValueIsRefused) {
  EXPECT_NE(refusal("<string>a<true/></string>"), "");
  EXPECT_NE(refusal("<array><plist/></array>"), "");
}

TEST(XmlRead, Booleans) {
  EXPECT_EQ(read("<true/>"), Value(true));
  EXPECT_EQ(read("<false/>"), Value(false));
  EXPECT_EQ(read("<plist><true></true></plist>"), Value(true));
}
TEST(XmlRead, TextInABooleanIsRefused) {
  EXPECT_NE(refusal("<true>1</true>"), "");
}

struct IntegerRow {
  const char* name;
  const char* text;
  std::optional<Value> value;
};

void PrintTo(const IntegerRow& row, std::ostream* out) {
  *out << row.name;
}

class XmlReadInteger : public testing::TestWithParam<IntegerRow> {};

TEST_P(XmlReadInteger, IsAsExpected) {
  const std::string xml = std::string("<integer>") + GetParam().text + "</integer>";
  if (GetParam().value) {
    EXPECT_EQ(read(xml), *GetParam().value);
  } else {
    EXPECT_THAT(refusal(xml), HasSubstr("is not an integer"));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, XmlReadInteger,
    testing::Values(IntegerRow{"Plain", "42", 42}, IntegerRow{"LeadingZeros", "007", 7},
                    IntegerRow{"Zero", "0", 0}, IntegerRow{"MinusZero", "-0", 0},
                    IntegerRow{"Plus", "+5", 5}, IntegerRow{"Minus", "-31", -31},
                    IntegerRow{"LeadingBlanks", " \n5", 5}, IntegerRow{"Hexadecimal", "0x1F", 31},
                    IntegerRow{"UpperHexadecimal", "0XaB", 171},
                    IntegerRow{"NegativeHexadecimalBehindBlanks", " - 0x1F", -31},
                    IntegerRow{"LargestSigned", "9223372036854775807",
                               std::numeric_limits<std::int64_t>::max()},
                    IntegerRow{"SmallestSigned", "-9223372036854775808",
                               std::numeric_limits<std::int64_t>::min()},
                    IntegerRow{"AboveSigned", "9223372036854775808", 9223372036854775808u},
                    IntegerRow{"LargestUnsigned", "18446744073709551615",
                               std::numeric_limits<std::uint64_t>::max()},
                    IntegerRow{"LargestHexadecimal", "0xFFFFFFFFFFFFFFFF",
                               std::numeric_limits<std::uint64_t>::max()},
                    IntegerRow{"TooLarge", "18446744073709551616", {}},
                    IntegerRow{"TooSmall", "-9223372036854775809", {}},
                    IntegerRow{"TrailingSpace", "5 ", {}}, IntegerRow{"Empty", "", {}},
                    IntegerRow{"OnlySign", "-", {}}, IntegerRow{"TwoSigns", "--5", {}},
                    IntegerRow{"OnlyPrefix", "0x", {}}, IntegerRow{"Fraction", "5.0", {}},
                    IntegerRow{"Letters", "abc", {}}, IntegerRow{"SignBehindPrefix", "0x-1", {}}),
    testing::PrintToStringParamName());

TEST(XmlRead, Reals) {
  EXPECT_EQ(read("<real>1.5</real>"), Value(1.5));
  EXPECT_EQ(read("<real> +50</real>"), Value(50.0));
  EXPECT_EQ(read("<real>-1e-3</real>"), Value(-0.001));
  EXPECT_EQ(read("<real>5e-324</real>"), Value(5e-324));
  EXPECT_TRUE(std::signbit(read("<real>-0</real>").real().value()));
  EXPECT_FALSE(read("<real>1.5</real>").isSinglePrecision());
}
TEST(XmlRead, RealsThatAreNoNumbers) {
  EXPECT_TRUE(std::isnan(read("<real>nan</real>").real().value()));
  EXPECT_EQ(read("<real>+infinity</real>"), Value(std::numeric_limits<double>::infinity()));
  EXPECT_EQ(read("<real>-INF</real>"), Value(-std::numeric_limits<double>::infinity()));
}
TEST(XmlRead, BadRealsAreRefused) {
  for (const char* text : {"1,5", "", "1.5 ", "x", "1e", "0x10", "+-1", "1e999"})
    EXPECT_THAT(refusal(std::string("<real>") + text + "</real>"), HasSubstr("is not a real"))
        << text;
}

TEST(XmlRead, Dates) {
  EXPECT_EQ(read("<date>2001-01-01T00:00:00Z</date>"), Value(plist::Date{0}));
  EXPECT_EQ(read("<date>2026-01-31T12:00:00Z</date>"), Value(plist::Date{791553600}));
  EXPECT_EQ(read("<date>2000-12-31T23:59:59Z</date>"), Value(plist::Date{-1}));
  EXPECT_EQ(read("<date>2024-02-29T00:00:00Z</date>"), Value(plist::Date{730857600}));
  EXPECT_EQ(read("<date>0001-01-01T00:00:00Z</date>"), Value(plist::Date{-63113904000}));
}
TEST(XmlRead, BadDatesAreRefused) {
  for (const char* text : {"2001-01-01", "", "2001-13-01T00:00:00Z", "2001-02-29T00:00:00Z",
                           "2001-01-01T24:00:00Z", "2001-01-01T00:60:00Z", "2001-01-01T00:00:00",
                           "2001-01-01 00:00:00Z", "20x1-01-01T00:00:00Z"})
    EXPECT_THAT(refusal(std::string("<date>") + text + "</date>"), HasSubstr("is not a date"))
        << text;
}

TEST(XmlRead, Base64Data) {
  EXPECT_EQ(read("<data/>"), Value(plist::Data{}));
  EXPECT_EQ(read("<data>\n\tAQ ID\n\t</data>"), Value(plist::Data{{1, 2, 3}}));
  EXPECT_EQ(read("<data>/w==</data>"), Value(plist::Data{{255}}));
  EXPECT_EQ(read("<data>+/8=</data>"), Value(plist::Data{{251, 255}}));
  EXPECT_EQ(read("<data>+/8</data>"), Value(plist::Data{{251, 255}}));
}
TEST(XmlRead, BadBase64IsRefused) {
  for (const char* text : {"A", "AQID!", "AQ==ID", "ABCDE"})
    EXPECT_THAT(refusal(std::string("<data>") + text + "</data>"), HasSubstr("is not Base64"))
        << text;
}

TEST(XmlRead, EntitiesAndCharacterReferences) {
  EXPECT_EQ(read("<string>&lt;&#65;&#x1F600;&apos;&amp;&gt;&quot;</string>"), Value("<A😀'&>\""));
}
TEST(XmlRead, CharacterData) {
  EXPECT_EQ(read("<string>a<![CDATA[<b>&]]>c</string>"), Value("a<b>&c"));
}
TEST(XmlRead, TextKeepsItsBlanks) {
  EXPECT_EQ(read("<string> a\n </string>"), Value(" a\n "));
}
TEST(XmlRead, EmptyText) {
  EXPECT_EQ(read("<string/>"), Value(""));
}
TEST(XmlRead, RawAmpersandIsRefused) {
  EXPECT_NE(refusal("<string>a & b</string>"), "");
}
TEST(XmlRead, BadUtf8IsRefused) {
  EXPECT_NE(refusal("<plist><string>\xE9</string></plist>"), "");
}
TEST(XmlRead, SurrogateReferenceIsRefused) {
  EXPECT_NE(refusal("<string>&#xD800;</string>"), "");
}

TEST(XmlRead, Utf8WithByteOrderMark) {
  EXPECT_EQ(read("\xEF\xBB\xBF<string>é</string>"), Value("é"));
}
TEST(XmlRead, Utf16LittleEndianWithByteOrderMark) {
  EXPECT_EQ(read(utf16(u"\uFEFF<?xml version=\"1.0\" encoding=\"UTF-16\"?><plist><string>é😀"
                       u"</string></plist>",
                       false)),
            Value("é😀"));
}
TEST(XmlRead, Utf16BigEndianWithByteOrderMark) {
  EXPECT_EQ(read(utf16(u"\uFEFF<string>é😀</string>", true)), Value("é😀"));
}
TEST(XmlRead, DeclaredLatin1) {
  EXPECT_EQ(read("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><string>\xE9</string>"),
            Value("é"));
}
TEST(XmlRead, UnknownEncodingIsRefused) {
  EXPECT_NE(refusal("<?xml version=\"1.0\" encoding=\"KLINGON\"?><string/>"), "");
}

TEST(XmlRead, LastOfEqualKeysWinsInThePlaceOfTheFirst) {
  const Value value = read(
      "<dict><key>a</key><string>X</string><key>b</key><true/><key>a</key><string>Y</string>"
      "</dict>");
  ASSERT_EQ(value, Value(Dictionary{{"a", "Y"}, {"b", true}}));
  EXPECT_EQ(value.dictionary()->begin()->key, "a");
}
TEST(XmlRead, EmptyKey) {
  EXPECT_EQ(read("<plist><dict><key/><true/></dict></plist>"), Value(Dictionary{{"", true}}));
}
TEST(XmlRead, KeyWithoutValueIsRefused) {
  EXPECT_NE(refusal("<dict><key>a</key></dict>"), "");
  EXPECT_NE(refusal("<dict><key>a</key><key>b</key></dict>"), "");
}
TEST(XmlRead, ValueWithoutKeyIsRefused) {
  EXPECT_NE(refusal("<dict><true/></dict>"), "");
}
TEST(XmlRead, KeyOutsideADictionaryIsRefused) {
  EXPECT_NE(refusal("<key>a</key>"), "");
  EXPECT_NE(refusal("<plist><key>a</key></plist>"), "");
  EXPECT_NE(refusal("<array><key>a</key></array>"), "");
}

TEST(XmlRead, UidDictionary) {
  EXPECT_EQ(read("<dict><key>CF$UID</key><integer>7</integer></dict>"), Value(plist::Uid{7}));
  EXPECT_EQ(read("<dict><key>CF$UID</key><real>7.5</real></dict>"), Value(plist::Uid{7}));
}
TEST(XmlRead, UidKeepsTheLow32Bits) {
  EXPECT_EQ(read("<dict><key>CF$UID</key><integer>-1</integer></dict>"),
            Value(plist::Uid{4294967295}));
  EXPECT_EQ(read("<dict><key>CF$UID</key><integer>4294967298</integer></dict>"),
            Value(plist::Uid{2}));
}
TEST(XmlRead, UidKeyWithTextIsADictionary) {
  EXPECT_EQ(read("<dict><key>CF$UID</key><string>7</string></dict>"),
            Value(Dictionary{{"CF$UID", "7"}}));
}
TEST(XmlRead, UidKeyBesideOthersIsADictionary) {
  EXPECT_EQ(read("<dict><key>CF$UID</key><integer>7</integer><key>a</key><true/></dict>").kind(),
            Kind::Dictionary);
}

TEST(XmlRead, Depth512IsAccepted) {
  EXPECT_EQ(refusal("<plist>" + repeated("<array>", 512) + repeated("</array>", 512) + "</plist>"),
            "");
  EXPECT_EQ(refusal(repeated("<array>", 512) + repeated("</array>", 512)), "");
}
TEST(XmlRead, Depth513IsRefused) {
  EXPECT_THAT(refusal("<plist>" + repeated("<array>", 513) + repeated("</array>", 513)),
              HasSubstr("nested deeper than 512"));
  EXPECT_THAT(refusal(repeated("<dict><key>a</key>", 513)), HasSubstr("nested deeper"));
}
TEST(XmlRead, AMillionOpenElementsAreRefused) {
  EXPECT_THAT(refusal(repeated("<array>", 1'000'000)), HasSubstr("nested deeper"));
}

TEST(XmlRead, EntityDeclarationsAreRefused) {
  EXPECT_EQ(refusal("<!DOCTYPE plist [<!ENTITY a \"aaaa\">\n<!ENTITY b \"&a;&a;&a;&a;\">]>\n"
                    "<plist><string>&b;</string></plist>"),
            "line 1: declares the entity a");
}
TEST(XmlRead, AttributeDeclarationsAreRefused) {
  EXPECT_EQ(refusal("<!DOCTYPE plist [<!ATTLIST array a CDATA ''>]><plist><array/></plist>"),
            "line 1: declares attributes of \"array\"");
}

TEST(XmlRead, ExternalEntityIsRefused) {
  EXPECT_THAT(refusal("<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/hostname\">]>"
                      "<plist><string>&a;</string></plist>"),
              HasSubstr("declares the entity a"));
}
TEST(XmlRead, EntityThatADoctypeMightDeclareIsRefused) {
  EXPECT_THAT(refusal("<!DOCTYPE plist SYSTEM \"x.dtd\"><plist><string>&a;</string></plist>"),
              HasSubstr("unknown entity &a;"));
}

TEST(XmlRead, ErrorsNameTheLine) {
  EXPECT_EQ(refusal("\n\n<?xml version=\"1.0\"?>\n<plist>\n<integer>x</integer></plist>"),
            "line 5: \"x\" is not an integer");
}
TEST(XmlRead, ErrorsAreOneLine) {
  EXPECT_EQ(refusal("<integer>5\n</integer>"), "line 2: \"5 \" is not an integer");
}
TEST(XmlRead, TextLargerThanAPieceIsReadWhole) {
  const std::string text(3'000'000, 'x');
  EXPECT_EQ(read("<string>" + text + "</string>"), Value(text));
}

TEST(XmlReadWithLines, GivesTheLineOfEachRow) {
  const auto list = services::readXmlWithLines(
      asBytes("<plist>\n<dict>\n<key>title</key><string>t</string>\n<key>items</key>\n<array>\n"
              "<dict><key>items</key><array><true/>\n</array></dict>\n\n<dict/>\n<true/>\n"
              "</array>\n<key>other</key>\n<array>\n<dict/></array></dict></plist>"));
  ASSERT_TRUE(list);
  EXPECT_THAT(list->itemLines, testing::ElementsAre(6, 9, 10));
  EXPECT_EQ(list->value.dictionary()->find("items")->array()->size(), 3u);
}
TEST(XmlReadWithLines, OfTwoItemsTheLastWins) {
  const auto list = services::readXmlWithLines(
      asBytes("<dict>\n<key>items</key><array><true/><true/></array>\n<key>items</key><array>\n"
              "<dict/></array></dict>"));
  ASSERT_TRUE(list);
  EXPECT_THAT(list->itemLines, testing::ElementsAre(4));
}
TEST(XmlReadWithLines, WithoutItemsThereAreNone) {
  const auto list = services::readXmlWithLines(asBytes("<array><array><dict/></array></array>"));
  ASSERT_TRUE(list);
  EXPECT_TRUE(list->itemLines.empty());
}
