#include <gtest/gtest.h>

#include <limits>

#include "tests/platform_plist/random_value.h"
#include "tests/platform_plist/raw_plist.h"

namespace plist_test {
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

ByteVector written(const Value& value) {
  const auto bytes = plist::writeBinary(value);
  EXPECT_TRUE(bytes) << (bytes ? "" : bytes.error().message());
  return bytes ? *bytes : ByteVector();
}

// The bytes of the only object.
ByteVector object(const Value& value) {
  const ByteVector bytes = written(value);
  return {bytes.begin() + 8, bytes.end() - 33};
}

std::size_t objectCount(const ByteVector& bytes) {
  return bytes[bytes.size() - 17] + 256u * bytes[bytes.size() - 18];
}

unsigned referenceSize(const ByteVector& bytes) {
  return bytes[bytes.size() - 25];
}

TEST(Writer, WritesHeaderAndTrailer) {
  EXPECT_EQ(written(true), (RawPlist{.objects = {hex("09")}}.bytes()));
  EXPECT_EQ(written(true).size(), 42u);
}

TEST(Writer, TakesTheSmallestWidthForIntegers) {
  EXPECT_EQ(object(0), hex("10 00"));
  EXPECT_EQ(object(255), hex("10 FF"));
  EXPECT_EQ(object(256), hex("11 01 00"));
  EXPECT_EQ(object(65535), hex("11 FF FF"));
  EXPECT_EQ(object(65536), hex("12 00 01 00 00"));
  EXPECT_EQ(object(4294967295u), hex("12 FF FF FF FF"));
  EXPECT_EQ(object(4294967296), hex("13 00 00 00 01 00 00 00 00"));
  EXPECT_EQ(object(std::numeric_limits<std::int64_t>::max()), hex("13 7F FF FF FF FF FF FF FF"));
}

TEST(Writer, TakesEightBytesForNegativeIntegers) {
  EXPECT_EQ(object(-1), hex("13 FF FF FF FF FF FF FF FF"));
  EXPECT_EQ(object(std::numeric_limits<std::int64_t>::min()), hex("13 80 00 00 00 00 00 00 00"));
}

TEST(Writer, TakesSixteenBytesBeyondTheSignedRange) {
  EXPECT_EQ(object(std::uint64_t{1} << 63),
            hex("14 00 00 00 00 00 00 00 00 80 00 00 00 00 00 00 00"));
  EXPECT_EQ(object(UINT64_MAX), hex("14 00 00 00 00 00 00 00 00 FF FF FF FF FF FF FF FF"));
}

TEST(Writer, WritesEveryLeaf) {
  EXPECT_EQ(object(Value()), hex("00"));
  EXPECT_EQ(object(false), hex("08"));
  EXPECT_EQ(object(1.0f), hex("22 3F 80 00 00"));
  EXPECT_EQ(object(1.0), hex("23 3F F0 00 00 00 00 00 00"));
  EXPECT_EQ(object(plist::Date{-1}), hex("33 BF F0 00 00 00 00 00 00"));
  EXPECT_EQ(object(plist::Data{hex("0A 0B")}), hex("42 0A 0B"));
  EXPECT_EQ(object(plist::Uid{5}), hex("80 05"));
  EXPECT_EQ(object(plist::Uid{0x1234}), hex("81 12 34"));
  EXPECT_EQ(object(plist::Uid{0x12345}), hex("83 00 01 23 45"));
}

TEST(Writer, WritesTextAsAsciiOrUtf16) {
  EXPECT_EQ(object(""), hex("50"));
  EXPECT_EQ(object("a\x7F"), hex("52 61 7F"));
  EXPECT_EQ(object("a\xC3\xA9"), hex("62 00 61 00 E9"));
  EXPECT_EQ(object("\xF0\x9F\x98\x80"), hex("62 D8 3D DE 00"));
  EXPECT_EQ(object(std::string(14, 'x')), hex("5E") + ByteVector(14, 'x'));
  EXPECT_EQ(object(std::string(15, 'x')), hex("5F 10 0F") + ByteVector(15, 'x'));
  EXPECT_EQ(object(std::string(256, 'x')).size(), 4u + 256u + 1u);  // a wider offset follows
}

TEST(Writer, WritesContainersKeysAndValuesInOrder) {
  const Value value = Dictionary{{"k", Array{"x", 1}}, {"l", Dictionary()}};
  const RawPlist expected{.objects = {container(0xD, {1, 2, 3, 6}), hex("51 6B"), hex("51 6C"),
                                      container(0xA, {4, 5}), hex("51 78"), hex("10 01"),
                                      hex("D0")}};
  EXPECT_EQ(written(value), expected.bytes());
}

TEST(Writer, WritesSets) {
  EXPECT_EQ(written(plist::Set{{1}}), (RawPlist{.objects = {hex("C1 01"), hex("10 01")}}.bytes()));
}

TEST(Writer, WritesEqualTextsAndNumbersOnce) {
  const Value value = Array{"a", Dictionary{{"a", "a"}}, 7, 7, 2.5, 2.5, true, true};
  EXPECT_EQ(objectCount(written(value)), 6u);
}

TEST(Writer, KeepsNumbersOfDifferentKindsApart) {
  const Value value = Array{1, 1.0, 1.0f, true, 0.0, -0.0, -1, UINT64_MAX};
  EXPECT_EQ(objectCount(written(value)), 9u);
  const auto read = plist::readBinary(written(value));
  ASSERT_TRUE(read);
  EXPECT_EQ(*read, value);
}

TEST(Writer, WidensReferencesAt256Objects) {
  Array array;
  for (int i = 0; i < 254; ++i) array.push_back(i);
  EXPECT_EQ(objectCount(written(array)), 255u);
  EXPECT_EQ(referenceSize(written(array)), 1u);
  array.push_back(254);
  EXPECT_EQ(objectCount(written(array)), 256u);
  EXPECT_EQ(referenceSize(written(array)), 2u);
  EXPECT_EQ(verdict(written(array)), "ok");
}

TEST(Writer, WidensReferencesAt65536Objects) {
  Array array;
  for (int i = 0; i < 70000; ++i) array.push_back(i);
  const ByteVector bytes = written(array);
  EXPECT_EQ(referenceSize(bytes), 4u);
  EXPECT_EQ(*plist::readBinary(bytes), Value(array));
}

TEST(Writer, RefusesTextThatIsNotUtf8) {
  for (const Value& value : {Value("ab\xFF"), Value(Dictionary{{"ab\xFF", 1}})}) {
    const auto bytes = plist::writeBinary(value);
    ASSERT_FALSE(bytes);
    EXPECT_EQ(bytes.error().kind, plist::ErrorKind::NotUtf8);
    EXPECT_EQ(bytes.error().offset, 2u);
  }
}

TEST(Writer, RefusesWhatIsTooDeepToRead) {
  Value value = Array();
  for (int depth = 1; depth < 512; ++depth) {
    Array outer;
    outer.push_back(std::move(value));
    value = std::move(outer);
  }
  EXPECT_EQ(verdict(written(value)), "ok");
  const auto deeper = plist::writeBinary(Array{value});
  ASSERT_FALSE(deeper);
  EXPECT_EQ(deeper.error().kind, plist::ErrorKind::TooDeep);
}

TEST(Writer, WritesTextsApartWhereTheReaderWouldRefuseSharing) {
  const Value value = Array(3000, std::string(1000, 'x'));
  const ByteVector bytes = written(value);
  EXPECT_GT(bytes.size(), 3000000u);
  EXPECT_EQ(*plist::readBinary(bytes), value);
}

TEST(Writer, GivesBackThousandsOfValuesAsTheyWere) {
  RandomValues random(20240303);
  for (int i = 0; i < 5000; ++i) {
    const Value value = random.value();
    const auto read = plist::readBinary(written(value));
    ASSERT_TRUE(read) << i;
    ASSERT_EQ(*read, value) << i;
  }
}

TEST(Error, SaysWhatAndWhere) {
  EXPECT_EQ((plist::Error{plist::ErrorKind::ObjectEnd, 12}.message()),
            "an object that does not end at byte 12");
  EXPECT_EQ(nameOf(plist::ErrorKind::NotUtf8), "NotUtf8");
}

}  // namespace
}  // namespace plist_test
