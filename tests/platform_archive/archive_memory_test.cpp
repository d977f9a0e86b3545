// What decoding takes at most, whatever the bytes are: 64 times their size and 1 MiB.
#include <gtest/gtest.h>

#include "tests/platform_archive/raw_archive.h"
#include "tests/platform_plist/allocations.h"

namespace archive_test {
namespace {

using plist_test::allocations;

std::size_t peakOfDecoding(const plist_test::ByteVector& bytes) {
  const std::size_t before = allocations.peak = allocations.now;
  { const auto root = archive::unarchive(plist::Bytes(bytes)); }
  EXPECT_EQ(allocations.now, before);
  return allocations.peak - before;
}

void expectBounded(const Value& propertyList) {
  const auto bytes = plist::writeBinary(propertyList);
  ASSERT_TRUE(bytes);
  EXPECT_LE(peakOfDecoding(*bytes), 64 * bytes->size() + 1024 * 1024) << bytes->size() << " bytes";
}

TEST(ArchiveMemory, IsBoundedForOneObjectInManyPlaces) {
  expectBounded(archiveOf({arrayObject(Array(500000, Uid{3}), 2), classNamed("NSArray"), 1}));
}

TEST(ArchiveMemory, IsBoundedForEqualKeys) {
  const Array same(200000, Uid{3});
  expectBounded(archiveOf({dictionaryObject(same, same, 2), classNamed("NSDictionary"), "key"}));
}

TEST(ArchiveMemory, IsBoundedForALongTextInManyPlaces) {
  expectBounded(archiveOf(
      {arrayObject(Array(20000, Uid{3}), 2), classNamed("NSArray"), std::string(20000, 'x')}));
}

TEST(ArchiveMemory, IsBoundedForSharedCollections) {
  Array objects;
  for (unsigned i = 1; i <= 400; ++i) objects.push_back(arrayObject(uids({i + 1, i + 1}), 402));
  objects.push_back("end");
  objects.push_back(classNamed("NSArray"));
  expectBounded(archiveOf(objects));
}

TEST(ArchiveMemory, IsBoundedForAPlainCollectionInManyPlaces) {
  expectBounded(
      archiveOf({arrayObject(Array(20000, Uid{3}), 2), classNamed("NSArray"), Array(20000, 1)}));
}

// Work is bounded as well: this would take hours otherwise.
TEST(ArchiveMemory, IsBoundedForManyObjectsOfAnEndlessClass) {
  Array names(60000, "NSUnknown");
  names.push_back("NSArray");
  Array objects{arrayObject({}, 2), classNamed("First", names), arrayObject({}, 4),
                classNamed("Second", names)};
  Array members;
  for (int i = 0; i < 60000; ++i) members.push_back(Uid{i % 2 == 0 ? 1u : 3u});
  objects.push_back(arrayObject(members, 6));
  objects.push_back(classNamed("NSArray"));
  const Value propertyList = archiveOf(objects, Uid{5});
  expectBounded(propertyList);
  EXPECT_EQ(verdict(propertyList), "TooLarge");
}

TEST(ArchiveMemory, OfALookupIsThatOfItsValues) {
  Dictionary large{{"wanted", "value"}};
  for (int i = 0; i < 1000; ++i)
    large.set("key number " + std::to_string(i), "a text of some length");
  const auto bytes = archive::archive(large, archive::Mutability::Mutable);
  const std::string_view keys[] = {"wanted"};
  const std::size_t before = allocations.calls;
  { const auto found = archive::lookUp(plist::Bytes(*bytes), keys); }
  EXPECT_LE(allocations.calls - before, 6u);
}

}  // namespace
}  // namespace archive_test
