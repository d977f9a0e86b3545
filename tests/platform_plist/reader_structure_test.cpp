// Objects that hold others: references, keys, depth, circles, sharing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform_plist/raw_plist.h"

namespace plist_test {
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;
using ::testing::StartsWith;

Value read(const RawPlist& raw) {
  const auto value = plist::readBinary(raw.bytes());
  EXPECT_TRUE(value) << (value ? "" : value.error().message());
  return value ? *value : Value("refused");
}

// {key: "b"} where the key is this object.
RawPlist withKey(std::string_view key) {
  return {.objects = {container(0xD, {1, 2}), hex(key), hex("51 62")}};
}

TEST(ReaderContainer, KeepsTheOrderOfMembersAndEntries) {
  const Value array = read({.objects = {container(0xA, {2, 1, 2}), hex("51 61"), hex("51 62")}});
  EXPECT_EQ(array, Value(Array{"b", "a", "b"}));
  const Value value = read({.objects = {container(0xD, {2, 1, 1, 2}), hex("51 61"), hex("51 62")}});
  ASSERT_EQ(value, Value(Dictionary{{"b", "a"}, {"a", "b"}}));
  EXPECT_EQ(value.dictionary()->begin()->key, "b");
}

TEST(ReaderContainer, ReadsSets) {
  const Value value = read({.objects = {container(0xC, {1, 2}), hex("51 61"), hex("10 05")}});
  ASSERT_TRUE(value.set());
  EXPECT_EQ(Value(value.set()->members), Value(Array{"a", 5}));
}

TEST(ReaderContainer, AcceptsNullAsAMember) {
  EXPECT_EQ(read({.objects = {container(0xA, {1}), hex("00")}}), Value(Array{Value()}));
  EXPECT_EQ(read({.objects = {container(0xD, {1, 2}), hex("51 61"), hex("00")}}),
            Value(Dictionary{{"a", Value()}}));
}

TEST(ReaderContainer, RefusesReferencesToNothing) {
  EXPECT_EQ(verdict(RawPlist{.objects = {container(0xA, {7})}}.bytes()), "Reference 9");
  EXPECT_EQ(verdict(RawPlist{.objects = {container(0xA, {1, 2}), hex("09")}}.bytes()),
            "Reference 10");
  EXPECT_EQ(verdict(RawPlist{.objects = {container(0xD, {7, 1}), hex("51 61")}}.bytes()),
            "Reference 9");
  EXPECT_EQ(verdict(RawPlist{.objects = {container(0xD, {1, 7}), hex("51 61")}}.bytes()),
            "Reference 10");
}

TEST(ReaderContainer, RefusesMalformedMembers) {
  EXPECT_EQ(verdict(RawPlist{.objects = {container(0xA, {1}), hex("0F")}}.bytes()), "Marker 10");
  EXPECT_EQ(verdict(RawPlist{.objects = {container(0xD, {1, 1}), hex("0F")}}.bytes()), "Marker 11");
}

TEST(ReaderKeys, TakesTheFirstOfEqualOnes) {
  const RawPlist raw{.objects = {container(0xD, {1, 2, 3, 4}), hex("51 61"), hex("51 61"),
                                 hex("51 58"), hex("51 59")}};
  EXPECT_EQ(read(raw), Value(Dictionary{{"a", "X"}}));
}

TEST(ReaderKeys, TakesTheFirstOfEqualOnesInDifferentForms) {
  const RawPlist raw{.objects = {container(0xD, {1, 2, 3, 4}), hex("61 00 61"), hex("51 61"),
                                 hex("51 58"), hex("51 59")}};
  EXPECT_EQ(read(raw), Value(Dictionary{{"a", "X"}}));
}

TEST(ReaderKeys, StillChecksTheValueOfALaterEqualOne) {
  const RawPlist raw{.objects = {container(0xD, {1, 1, 2, 3}), hex("51 61"), hex("09"), hex("0F")}};
  EXPECT_THAT(verdict(raw.bytes()), StartsWith("Marker"));
}

TEST(ReaderKeys, TurnsOtherLeavesIntoText) {
  const std::pair<const char*, const char*> keys[] = {
      {"00", "null"},
      {"08", "false"},
      {"09", "true"},
      {"10 05", "5"},
      {"13 FF FF FF FF FF FF FF FF", "-1"},
      {"14 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF", "18446744073709551615"},
      {"22 3D CC CC CD", "0.1"},
      {"23 3F E0 00 00 00 00 00 00", "0.5"},
      {"33 40 00 00 00 00 00 00 00", "2"},
      {"80 07", "7"},
      {"42 0A FF", "<0aff>"},
      {"61 20 AC", "\xE2\x82\xAC"},
      {"51 E9", "\xC3\xA9"}};
  for (const auto& [key, text] : keys)
    EXPECT_EQ(read(withKey(key)), Value(Dictionary{{text, "b"}})) << key;
}

TEST(ReaderKeys, RefusesContainers) {
  for (const char* key : {"A0", "C0", "D0"}) EXPECT_EQ(verdict(withKey(key).bytes()), "KeyKind 11");
}

TEST(ReaderCircles, AreRefused) {
  EXPECT_EQ(verdict(RawPlist{.objects = {container(0xA, {0})}}.bytes()), "Circular 8");
  EXPECT_EQ(verdict(RawPlist{.objects = {container(0xC, {0})}}.bytes()), "Circular 8");
  EXPECT_EQ(verdict(RawPlist{.objects = {container(0xD, {1, 0}), hex("51 61")}}.bytes()),
            "Circular 8");
  EXPECT_THAT(
      verdict(RawPlist{.objects = {container(0xA, {1}), container(0xA, {2}), container(0xA, {0})}}
                  .bytes()),
      StartsWith("Circular"));
}

TEST(ReaderCircles, AreRefusedBehindOtherMembers) {
  const RawPlist raw{
      .objects = {container(0xA, {1, 1, 1, 0, 0}), container(0xA, {2, 2, 2}), hex("09")}};
  EXPECT_THAT(verdict(raw.bytes()), StartsWith("Circular"));
}

TEST(ReaderDepth, Accepts512AndRefuses513) {
  EXPECT_EQ(verdict(nestedArrays(512)), "ok");
  EXPECT_THAT(verdict(nestedArrays(513)), StartsWith("TooDeep"));
  EXPECT_THAT(verdict(nestedArrays(100000)), StartsWith("TooDeep"));
}

TEST(ReaderDepth, CountsTheLongestWay) {
  ByteVector deep = nestedArrays(511);
  ASSERT_EQ(verdict(deep), "ok");
  RawPlist raw;
  raw.offsetSize = raw.referenceSize = 4;
  raw.objects.push_back(hex("A2") + bigEndian(1, 4) + bigEndian(513, 4));
  for (std::size_t i = 1; i < 513; ++i) raw.objects.push_back(hex("A1") + bigEndian(i + 1, 4));
  raw.objects.push_back(hex("09"));
  EXPECT_THAT(verdict(raw.bytes()), StartsWith("TooDeep"));
}

TEST(ReaderSharing, GivesEachUseItsOwnValue) {
  const RawPlist raw{.objects = {container(0xA, {1, 1}), container(0xA, {2, 2}), hex("51 61")}};
  EXPECT_EQ(read(raw), Value(Array{Array{"a", "a"}, Array{"a", "a"}}));
}

TEST(ReaderSharing, IsRefusedWhenItExplodes) {
  RawPlist raw;
  for (std::uint8_t i = 0; i < 60; ++i)
    raw.objects.push_back(container(0xA, {std::uint8_t(i + 1), std::uint8_t(i + 1)}));
  raw.objects.push_back(hex("A0"));
  EXPECT_THAT(verdict(raw.bytes()), StartsWith("TooLarge"));
}

TEST(ReaderSharing, OfLongTextIsRefusedWhenItExplodes) {
  RawPlist raw;
  raw.offsetSize = raw.referenceSize = 2;
  raw.objects.push_back(hex("AF 11 27 10"));
  for (int i = 0; i < 10000; ++i) raw.objects[0] = raw.objects[0] + bigEndian(1, 2);
  raw.objects.push_back(hex("5F 11 03 E8") + ByteVector(1000, 'x'));
  EXPECT_THAT(verdict(raw.bytes()), StartsWith("TooLarge"));
}

TEST(ReaderSharing, OfSmallObjectsIsNeverRefused) {
  RawPlist raw;
  raw.offsetSize = 4;
  raw.objects.push_back(hex("AF 12 00 0F 42 40") + ByteVector(1000000, 1));
  raw.objects.push_back(hex("57 61 62 63 64 65 66 67"));
  const auto value = plist::readBinary(raw.bytes());
  ASSERT_TRUE(value);
  EXPECT_EQ(value->array()->size(), 1000000u);
}

}  // namespace
}  // namespace plist_test
