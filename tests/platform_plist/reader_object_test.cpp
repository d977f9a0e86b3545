// Objects one by one: every type, every width, every marker that is none.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/platform_plist/raw_plist.h"

namespace plist_test {
namespace {

using plist::Kind;
using plist::Value;

Value only(std::string_view digits) {
  const auto value = plist::readBinary(RawPlist{.objects = {hex(digits)}}.bytes());
  EXPECT_TRUE(value) << digits << ": " << (value ? "" : value.error().message());
  return value ? *value : Value("refused");
}

std::string verdictOfOnly(std::string_view digits) {
  return verdict(RawPlist{.objects = {hex(digits)}}.bytes());
}

TEST(ReaderObject, ReadsNullAndBooleans) {
  EXPECT_EQ(only("00"), Value());
  EXPECT_EQ(only("08"), Value(false));
  EXPECT_EQ(only("09"), Value(true));
}

TEST(ReaderObject, ReadsIntegersUpToFourBytesWithoutSign) {
  EXPECT_EQ(only("10 FF"), Value(255));
  EXPECT_EQ(only("11 FF FF"), Value(65535));
  EXPECT_EQ(only("12 FF FF FF FF"), Value(4294967295u));
}

TEST(ReaderObject, ReadsIntegersOfEightBytesWithSign) {
  EXPECT_EQ(only("13 FF FF FF FF FF FF FF FF"), Value(-1));
  EXPECT_EQ(only("13 80 00 00 00 00 00 00 00"), Value(std::numeric_limits<std::int64_t>::min()));
  EXPECT_EQ(only("13 7F FF FF FF FF FF FF FF"), Value(std::numeric_limits<std::int64_t>::max()));
}

TEST(ReaderObject, ReadsTheLowHalfOfSixteenBytesWithoutSign) {
  EXPECT_EQ(only("14 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF"), Value(UINT64_MAX));
  EXPECT_EQ(only("14 00 00 00 00 00 00 00 01 00 00 00 00 00 00 00 00"), Value(0));
  EXPECT_EQ(only("14 00 00 00 00 00 00 00 00 80 00 00 00 00 00 00 00"),
            Value(std::uint64_t{1} << 63));
  EXPECT_EQ(only("14 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 07"), Value(7));
}

TEST(ReaderObject, ReadsRealsAndKeepsTheirWidth) {
  EXPECT_EQ(only("22 3F 80 00 00"), Value(1.0f));
  EXPECT_TRUE(only("22 3F 80 00 00").isSinglePrecision());
  EXPECT_EQ(only("23 3F F0 00 00 00 00 00 00"), Value(1.0));
  EXPECT_FALSE(only("23 3F F0 00 00 00 00 00 00").isSinglePrecision());
}

TEST(ReaderObject, ReadsNotANumberAndInfinity) {
  EXPECT_TRUE(std::isnan(*only("22 7F C0 00 00").real()));
  EXPECT_TRUE(std::isnan(*only("23 7F F8 00 00 00 00 00 00").real()));
  EXPECT_TRUE(std::isinf(*only("23 7F F0 00 00 00 00 00 00").real()));
  EXPECT_TRUE(std::isnan(only("33 7F F8 00 00 00 00 00 00").date()->seconds));
}

TEST(ReaderObject, ReadsDates) {
  EXPECT_EQ(only("33 41 B0 00 00 00 00 00 00"), Value(plist::Date{268435456.0}));
  EXPECT_EQ(only("33 BF F0 00 00 00 00 00 00"), Value(plist::Date{-1}));
}

TEST(ReaderObject, ReadsData) {
  EXPECT_EQ(only("40"), Value(plist::Data{}));
  EXPECT_EQ(only("43 00 FF 7F"), Value(plist::Data{hex("00 FF 7F")}));
}

TEST(ReaderObject, ReadsAsciiAndHighBytesAsLatin1) {
  EXPECT_EQ(only("50"), Value(""));
  EXPECT_EQ(only("53 61 00 62"), Value(std::string("a\0b", 3)));
  EXPECT_EQ(only("51 E9"), Value("\xC3\xA9"));
  EXPECT_EQ(only("59 61 62 63 64 65 66 67 68 FF"), Value("abcdefgh\xC3\xBF"));
}

TEST(ReaderObject, ReadsUtf16) {
  EXPECT_EQ(only("60"), Value(""));
  EXPECT_EQ(only("61 00 61"), Value("a"));
  EXPECT_EQ(only("61 20 AC"), Value("\xE2\x82\xAC"));
  EXPECT_EQ(only("62 D8 3D DE 00"), Value("\xF0\x9F\x98\x80"));
}

TEST(ReaderObject, ReplacesHalvesOfSurrogatePairs) {
  EXPECT_EQ(only("61 D8 3D"), Value("\xEF\xBF\xBD"));
  EXPECT_EQ(only("61 DE 00"), Value("\xEF\xBF\xBD"));
  EXPECT_EQ(only("62 DE 00 D8 3D"), Value("\xEF\xBF\xBD\xEF\xBF\xBD"));
  EXPECT_EQ(only("62 D8 3D 00 61"), Value("\xEF\xBF\xBD"
                                          "a"));
}

TEST(ReaderObject, ReadsUidsOfEveryWidth) {
  EXPECT_EQ(only("80 05"), Value(plist::Uid{5}));
  EXPECT_EQ(only("82 00 01 02"), Value(plist::Uid{258}));
  EXPECT_EQ(only("83 FF FF FF FF"), Value(plist::Uid{4294967295u}));
  EXPECT_EQ(only("87 00 00 00 00 00 00 00 05"), Value(plist::Uid{5}));
  EXPECT_EQ(only("8F 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01 00"), Value(plist::Uid{256}));
}

TEST(ReaderObject, RefusesUidsOfMoreThan32Bits) {
  EXPECT_EQ(verdictOfOnly("84 01 00 00 00 00"), "UidRange 8");
  EXPECT_EQ(verdictOfOnly("87 FF FF FF FF FF FF FF FF"), "UidRange 8");
}

TEST(ReaderObject, ReadsLengthsOfEveryWidth) {
  EXPECT_EQ(only("5F 10 02 61 62"), Value("ab"));
  EXPECT_EQ(only("5F 11 00 02 61 62"), Value("ab"));
  EXPECT_EQ(only("5F 12 00 00 00 02 61 62"), Value("ab"));
  EXPECT_EQ(only("5F 13 00 00 00 00 00 00 00 02 61 62"), Value("ab"));
  EXPECT_EQ(only("5F 14 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 02 61 62"), Value("ab"));
  EXPECT_EQ(only("4F 10 01 61"), Value(plist::Data{hex("61")}));
  EXPECT_EQ(only("6F 10 01 00 61"), Value("a"));
  EXPECT_EQ(only("AF 10 00"), Value(plist::Array()));
  EXPECT_EQ(only("CF 10 00"), Value(plist::Set()));
  EXPECT_EQ(only("DF 10 00"), Value(plist::Dictionary()));
}

TEST(ReaderObject, RefusesLengthsThatAreNoIntegers) {
  EXPECT_EQ(verdictOfOnly("5F 51 61"), "Length 8");
  EXPECT_EQ(verdictOfOnly("5F 15 00"), "Length 8");
  EXPECT_EQ(verdictOfOnly("5F 22 00 00 00 01 61"), "Length 8");
  EXPECT_EQ(verdictOfOnly("5F"), "Length 8");
  EXPECT_EQ(verdictOfOnly("5F 13 00 00"), "Length 8");
}

TEST(ReaderObject, RefusesObjectsThatRunIntoTheTable) {
  for (const char* digits :
       {"10", "11 00", "14 00 00", "22 00 00 00", "23 00", "33 00", "80", "81 00", "41", "55 61 62",
        "61 00", "A1", "C1", "D1 00", "5F 10 03 61 62"})
    EXPECT_EQ(verdictOfOnly(digits), "ObjectEnd 8") << digits;
}

TEST(ReaderObject, RefusesHugeLengths) {
  for (const char* high : {"4F", "5F", "6F", "AF", "CF", "DF"})
    for (const char* length :
         {"13 20 00 00 00 00 00 00 00", "13 FF FF FF FF FF FF FF FF", "13 7F FF FF FF FF FF FF FF",
          "12 FF FF FF FF", "13 80 00 00 00 00 00 00 00"})
      EXPECT_EQ(verdictOfOnly(std::string(high) + length), "ObjectEnd 8") << high << length;
}

TEST(ReaderObject, RefusesEveryOtherMarker) {
  const auto isMarker = [](unsigned byte) {
    const unsigned high = byte >> 4;
    if (high == 4 || high == 5 || high == 6 || high == 8) return true;
    if (high == 0xA || high == 0xC || high == 0xD) return true;
    return byte == 0x00 || byte == 0x08 || byte == 0x09 || (byte >= 0x10 && byte <= 0x14) ||
           byte == 0x22 || byte == 0x23 || byte == 0x33;
  };
  for (unsigned byte = 0; byte < 256; ++byte) {
    const ByteVector object = bigEndian(byte, 1) + ByteVector(64);
    const std::string found = verdict(RawPlist{.objects = {object}}.bytes());
    EXPECT_EQ(found != "Marker 8", isMarker(byte)) << byte << " " << found;
  }
}

}  // namespace
}  // namespace plist_test
