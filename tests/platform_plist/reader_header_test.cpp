// Header, trailer and offset table of a binary property list.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform_plist/raw_plist.h"

namespace plist_test {
namespace {

using ::testing::StartsWith;

// An ASCII text "a" is the only object, at byte 8.
RawPlist oneText() {
  return {.objects = {hex("51 61")}};
}

TEST(ReaderHeader, AcceptsTheSmallestFile) {
  const ByteVector bytes = RawPlist{.objects = {hex("08")}}.bytes();
  EXPECT_EQ(bytes.size(), 42u);
  EXPECT_EQ(*plist::readBinary(bytes), plist::Value(false));
}

TEST(ReaderHeader, AcceptsAnyCharacterAfterBplist0) {
  for (const char* header : {"bplist00", "bplist01", "bplist0z", "bplist0\xFF"}) {
    RawPlist raw = oneText();
    raw.header = header;
    EXPECT_EQ(verdict(raw.bytes()), "ok") << header;
  }
}

TEST(ReaderHeader, RefusesOtherHeaders) {
  for (const char* header : {"bplist10", "Bplist00", "xplist00"}) {
    RawPlist raw = oneText();
    raw.header = header;
    EXPECT_EQ(verdict(raw.bytes()), "Header 0") << header;
  }
  EXPECT_EQ(verdict({}), "Header 0");
  EXPECT_EQ(verdict(hex("62")), "Header 0");
}

TEST(ReaderHeader, RefusesEveryBeginningOfAFile) {
  const ByteVector whole =
      RawPlist{.objects = {hex("D1 01 02"), hex("51 61"), hex("51 62")}}.bytes();
  ASSERT_EQ(verdict(whole), "ok");
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const ByteVector start(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_NE(verdict(start), "ok") << size;
  }
}

TEST(ReaderHeader, CallsAShortFileTruncated) {
  const ByteVector whole = oneText().bytes();
  EXPECT_EQ(verdict({whole.begin(), whole.begin() + 41}), "Truncated 41");
  EXPECT_EQ(verdict({whole.begin(), whole.begin() + 8}), "Truncated 8");
}

TEST(ReaderTrailer, RefusesBytesAfterIt) {
  RawPlist raw = oneText();
  raw.tail = hex("00");
  EXPECT_NE(verdict(raw.bytes()), "ok");
}

TEST(ReaderTrailer, AcceptsGapsBeforeTheTable) {
  RawPlist raw = oneText();
  raw.gap = hex("0F 0F 0F");
  EXPECT_EQ(verdict(raw.bytes()), "ok");
}

TEST(ReaderTrailer, AcceptsGapsBetweenObjects) {
  RawPlist raw{.objects = {hex("A1 01"), hex("51 61")}};
  raw.objects[0] = raw.objects[0] + hex("FF FF");
  EXPECT_EQ(verdict(raw.bytes()), "ok");
}

TEST(ReaderTrailer, AcceptsAnythingInItsUnusedBytes) {
  RawPlist raw = oneText();
  raw.unused = hex("01 02 03 04 05 06");
  EXPECT_EQ(verdict(raw.bytes()), "ok");
}

TEST(ReaderTrailer, AcceptsATopThatIsNotTheFirstObject) {
  RawPlist raw{.objects = {hex("51 61"), hex("51 62")}, .top = 1};
  EXPECT_EQ(*plist::readBinary(raw.bytes()), plist::Value("b"));
}

TEST(ReaderTrailer, RefusesATopThatIsNotThere) {
  RawPlist raw = oneText();
  raw.top = 1;
  EXPECT_EQ(verdict(raw.bytes()), "TopObject 27");
}

TEST(ReaderTrailer, RefusesNoObjects) {
  RawPlist raw = oneText();
  raw.count = 0;
  EXPECT_EQ(verdict(raw.bytes()), "ObjectCount 19");
}

TEST(ReaderTrailer, RefusesCountsThatNoFileCanHold) {
  for (const std::uint64_t count : {std::uint64_t{1} << 63, UINT64_MAX, UINT64_MAX / 2}) {
    RawPlist raw = oneText();
    raw.count = count;
    raw.referenceSize = 9;
    EXPECT_EQ(verdict(raw.bytes()), "ObjectCount 19") << count;
  }
}

TEST(ReaderTrailer, RefusesATableOfAnotherSize) {
  for (const std::uint64_t count : {2, 3, 40}) {
    RawPlist raw = oneText();
    raw.count = count;
    EXPECT_EQ(verdict(raw.bytes()), "TableEnd 35") << count;
  }
}

TEST(ReaderTrailer, RefusesATableElsewhere) {
  for (const std::uint64_t table : {0, 8, 9, 11, 200}) {
    RawPlist raw = oneText();
    raw.table = table;
    EXPECT_EQ(verdict(raw.bytes()), "TableEnd 35") << table;
  }
  RawPlist raw = oneText();
  raw.offsetSize = 8;
  raw.table = UINT64_MAX;
  EXPECT_THAT(verdict(raw.bytes()), StartsWith("TableEnd"));
}

TEST(ReaderTrailer, RefusesOffsetsOfNoWidth) {
  RawPlist raw = oneText();
  raw.offsetSize = 0;
  EXPECT_THAT(verdict(raw.bytes()), StartsWith("OffsetSize"));
}

TEST(ReaderTrailer, RefusesOffsetsTooNarrowForTheTable) {
  RawPlist raw = oneText();
  raw.gap = ByteVector(256 - 10);
  EXPECT_THAT(verdict(raw.bytes()), StartsWith("OffsetSize"));
  raw.gap.pop_back();
  EXPECT_EQ(verdict(raw.bytes()), "ok");
}

TEST(ReaderTrailer, RefusesReferencesOfNoWidth) {
  RawPlist raw = oneText();
  raw.referenceSize = 0;
  EXPECT_EQ(verdict(raw.bytes()), "ReferenceSize 18");
}

TEST(ReaderTrailer, RefusesReferencesTooNarrowForTheCount) {
  RawPlist raw{.objects = std::vector<ByteVector>(255, hex("09")), .offsetSize = 2};
  EXPECT_EQ(verdict(raw.bytes()), "ok");
  raw.objects.push_back(hex("09"));
  EXPECT_THAT(verdict(raw.bytes()), StartsWith("ReferenceSize"));
  raw.referenceSize = 2;
  EXPECT_EQ(verdict(raw.bytes()), "ok");
}

TEST(ReaderTrailer, AcceptsOddWidths) {
  for (const std::size_t size : {1, 2, 3, 4, 5, 6, 7, 8, 9, 15}) {
    RawPlist raw{.objects = {hex("A1") + bigEndian(1, size), hex("51 61")},
                 .offsetSize = size,
                 .referenceSize = size};
    const auto value = plist::readBinary(raw.bytes());
    ASSERT_TRUE(value) << size;
    EXPECT_EQ(*value, plist::Value(plist::Array{"a"})) << size;
  }
}

TEST(ReaderOffsets, RefusesAUsedOneInTheHeader) {
  RawPlist raw = oneText();
  raw.moreOffsets = {7};
  raw.top = 1;
  EXPECT_EQ(verdict(raw.bytes()), "ObjectOffset 11");
}

TEST(ReaderOffsets, AcceptsAnUnusedOneInTheHeader) {
  RawPlist raw = oneText();
  raw.moreOffsets = {0, 7};
  EXPECT_EQ(verdict(raw.bytes()), "ok");
}

TEST(ReaderOffsets, RefusesAnyInTheTableUsedOrNot) {
  for (const std::uint64_t offset : {10, 11, 255}) {
    RawPlist raw = oneText();
    raw.moreOffsets = {offset};
    EXPECT_EQ(verdict(raw.bytes()), "ObjectOffset 11") << offset;
  }
}

TEST(ReaderOffsets, AcceptsUnusedObjectsThatAreMalformed) {
  RawPlist raw{.objects = {hex("51 61"), hex("FF"), hex("5E")}};
  EXPECT_EQ(verdict(raw.bytes()), "ok");
}

}  // namespace
}  // namespace plist_test
