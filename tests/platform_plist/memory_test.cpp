// What reading takes at most, whatever the bytes are: 64 times their size and 1 MiB.
#include <gtest/gtest.h>

#include <malloc.h>
#include "tests/platform_plist/allocations.h"
#include "tests/platform_plist/raw_plist.h"

namespace plist_test {
namespace {

constexpr std::size_t kMany = 60000;

std::size_t peakOfReading(const ByteVector& bytes) {
  const std::size_t before = allocations.peak = allocations.now;
  { const auto value = plist::readBinary(bytes); }
  EXPECT_EQ(allocations.now, before);
  return allocations.peak - before;
}

void expectBounded(const ByteVector& bytes) {
  EXPECT_LE(peakOfReading(bytes), 64 * bytes.size() + 1024 * 1024) << bytes.size() << " bytes";
}

RawPlist wide() {
  return {.objects = {}, .offsetSize = 4, .referenceSize = 4};
}

ByteVector many(unsigned marker, std::size_t count, const ByteVector& references) {
  return bigEndian(marker, 1) + hex("12") + bigEndian(count, 4) + references;
}

TEST(ReaderMemory, IsBoundedForArraysOfOneByteReferences) {
  RawPlist raw{.objects = {many(0xAF, 1000000, ByteVector(1000000, 1)), hex("09")},
               .offsetSize = 4};
  expectBounded(raw.bytes());
}

TEST(ReaderMemory, IsBoundedForDictionariesOfEqualKeys) {
  RawPlist raw{.objects = {many(0xDF, 500000, ByteVector(1000000, 1)), hex("51 61")},
               .offsetSize = 4};
  expectBounded(raw.bytes());
}

TEST(ReaderMemory, IsBoundedForDictionariesOfManyKeys) {
  RawPlist raw = wide();
  ByteVector references;
  for (std::size_t i = 0; i < kMany; ++i) references = std::move(references) + bigEndian(i + 1, 4);
  for (std::size_t i = 0; i < kMany; ++i) references = std::move(references) + bigEndian(1, 4);
  raw.objects.push_back(many(0xDF, kMany, references));
  for (std::size_t i = 0; i < kMany; ++i)
    raw.objects.push_back(hex("53") + bigEndian(0x202020 + i, 3));
  expectBounded(raw.bytes());
}

TEST(ReaderMemory, IsBoundedForSharedArrays) {
  RawPlist raw = wide();
  for (std::size_t i = 0; i < 400; ++i)
    raw.objects.push_back(hex("A2") + bigEndian(i + 1, 4) + bigEndian(i + 1, 4));
  raw.objects.push_back(hex("A0"));
  expectBounded(raw.bytes());
}

// Each object begins a byte after the one before it and runs over all that follow.
TEST(ReaderMemory, IsBoundedForArraysThatOverlap) {
  RawPlist raw = wide();
  raw.objects.push_back(many(0xAF, kMany, ByteVector(4 * kMany)));
  for (std::size_t i = 0; i < kMany; ++i) raw.moreOffsets.push_back(8);
  expectBounded(raw.bytes());
}

TEST(ReaderMemory, IsBoundedForTextsThatOverlap) {
  RawPlist raw = wide();
  ByteVector references;
  for (std::size_t i = 0; i < kMany; ++i) references = std::move(references) + bigEndian(i + 1, 4);
  raw.objects.push_back(many(0xAF, kMany, references));
  raw.objects.push_back(many(0x5F, 20000, ByteVector(20000, 'x')));
  const std::uint64_t text = 8 + raw.objects[0].size();
  for (std::size_t i = 1; i < kMany; ++i) raw.moreOffsets.push_back(text);
  expectBounded(raw.bytes());
}

TEST(ReaderMemory, IsBoundedForManyObjectsThatNobodyUses) {
  RawPlist raw{.objects = {hex("09")}, .offsetSize = 1, .referenceSize = 4};
  raw.moreOffsets.assign(1000000, 8);
  expectBounded(raw.bytes());
}

TEST(ReaderMemory, IsBoundedForHighBytesInText) {
  RawPlist raw{.objects = {many(0x5F, 1000000, ByteVector(1000000, 0xE9))}, .offsetSize = 4};
  expectBounded(raw.bytes());
}

TEST(ReaderMemory, IsNotTakenBeforeALengthIsChecked) {
  for (const char* marker : {"4F", "5F", "6F", "AF", "CF", "DF"})
    EXPECT_LT(peakOfReading(
                  RawPlist{.objects = {hex(marker) + hex("13 00 00 00 FF FF FF FF FF")}}.bytes()),
              10000u);
}

TEST(ReaderMemory, IsTakenInFewPieces) {
  RawPlist raw{.objects = {many(0xAF, 1000, ByteVector(1000, 1)), hex("09")}, .offsetSize = 4};
  const ByteVector bytes = raw.bytes();
  const std::size_t before = allocations.calls;
  { const auto value = plist::readBinary(bytes); }
  EXPECT_LE(allocations.calls - before, 6u);
}

}  // namespace
}  // namespace plist_test
