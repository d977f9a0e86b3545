// The frame of an archive and what its objects refer to.
#include <gtest/gtest.h>

#include "tests/platform_archive/raw_archive.h"

namespace archive_test {
namespace {

Dictionary minimal() {
  return archiveOf({"text"});
}

TEST(ArchiveFrame, HoldsTheRoot) {
  EXPECT_EQ(decoded(minimal()), Value("text"));
}

TEST(ArchiveFrame, IsABinaryPropertyList) {
  const plist_test::ByteVector bytes = plist_test::hex("68 65 6C 6C 6F");
  const auto root = archive::unarchive(plist::Bytes(bytes));
  ASSERT_FALSE(root);
  EXPECT_EQ(root.error().kind, archive::ErrorKind::Header);
  EXPECT_EQ(root.error().message(), "not a binary property list at byte 0");
}

TEST(ArchiveFrame, IsADictionary) {
  EXPECT_EQ(verdict(Array{minimal()}), "NotDictionary");
}

TEST(ArchiveFrame, NamesTheArchiver) {
  Dictionary frame = minimal();
  frame.set("$archiver", "NSArchiver");
  EXPECT_EQ(verdict(frame), "Archiver");
  frame.set("$archiver", 1);
  EXPECT_EQ(verdict(frame), "Archiver");
  frame.remove("$archiver");
  EXPECT_EQ(verdict(frame), "Archiver");
}

TEST(ArchiveFrame, HasVersion100000) {
  Dictionary frame = minimal();
  for (const Value& version : {Value(99999), Value(100000.0), Value("100000"), Value(-100000)}) {
    frame.set("$version", version);
    EXPECT_EQ(verdict(frame), "Version");
  }
  frame.remove("$version");
  EXPECT_EQ(verdict(frame), "Version");
}

TEST(ArchiveFrame, HasATopDictionary) {
  Dictionary frame = minimal();
  frame.set("$top", Array());
  EXPECT_EQ(verdict(frame), "Top");
  frame.remove("$top");
  EXPECT_EQ(verdict(frame), "Top");
}

TEST(ArchiveFrame, HasObjects) {
  Dictionary frame = minimal();
  frame.set("$objects", Dictionary());
  EXPECT_EQ(verdict(frame), "Objects");
  frame.remove("$objects");
  EXPECT_EQ(verdict(frame), "Objects");
}

TEST(ArchiveFrame, HasARootThatIsAUid) {
  Dictionary frame = minimal();
  frame.set("$top", Dictionary{{"$0", Uid{1}}});
  EXPECT_EQ(verdict(frame), "Root");
  frame.set("$top", Dictionary{{"root", 1}});
  EXPECT_EQ(verdict(frame), "Root");
}

TEST(ArchiveFrame, HasARootAmongTheObjects) {
  EXPECT_EQ(verdict(archiveOf({"text"}, Uid{2})), "Reference");
}

TEST(ArchiveFrame, MayHoldMore) {
  Dictionary frame = minimal();
  frame.set("extra", Array{1, 2});
  EXPECT_EQ(verdict(frame), "ok");
}

TEST(ArchiveNil, IsNothingAsTheRoot) {
  EXPECT_EQ(decoded(archiveOf({}, Uid{0})), Value());
}

TEST(ArchiveNil, IsItsTextAnywhere) {
  EXPECT_EQ(decoded(archiveOf({"$null"})), Value());
}

TEST(ArchiveNil, IsNotAnElement) {
  EXPECT_EQ(verdict(archiveOf({arrayObject(uids({0}), 2), classNamed("NSArray")})), "NilElement");
  EXPECT_EQ(verdict(archiveOf({arrayObject(uids({3}), 2), classNamed("NSArray"), "$null"})),
            "NilElement");
  EXPECT_EQ(verdict(archiveOf(
                {dictionaryObject(uids({0}), uids({3}), 2), classNamed("NSDictionary"), "a"})),
            "NilElement");
  EXPECT_EQ(verdict(archiveOf(
                {dictionaryObject(uids({3}), uids({0}), 2), classNamed("NSDictionary"), "a"})),
            "NilElement");
}

TEST(ArchivePlainObject, IsReturnedAsItIs) {
  for (const Value& plain :
       {Value(true), Value(-5), Value(1.5f), Value(2.5), Value(plist::Data{{1}}),
        Value(plist::Date{7}), Value(Uid{1}), Value(Array{1, Array{"a"}}), Value(Array()),
        Value(Dictionary{{"a", 1}}), Value(Dictionary{{"$class", "text"}}), Value(plist::Set{{1}})})
    EXPECT_EQ(decoded(archiveOf({plain})), plain);
}

TEST(ArchiveReference, LeadsSomewhere) {
  EXPECT_EQ(verdict(archiveOf({arrayObject(uids({9}), 2), classNamed("NSArray")})), "Reference");
  EXPECT_EQ(verdict(archiveOf(
                {dictionaryObject(uids({9}), uids({3}), 2), classNamed("NSDictionary"), "a"})),
            "Reference");
  EXPECT_EQ(verdict(archiveOf(
                {dictionaryObject(uids({3}), uids({9}), 2), classNamed("NSDictionary"), "a"})),
            "Reference");
}

TEST(ArchiveReference, IsAUid) {
  EXPECT_EQ(verdict(archiveOf({arrayObject({3}, 2), classNamed("NSArray"), "a"})), "Field");
  EXPECT_EQ(
      verdict(archiveOf({dictionaryObject({"a"}, uids({3}), 2), classNamed("NSDictionary"), "a"})),
      "Field");
}

TEST(ArchiveDictionary, HasAsManyKeysAsValues) {
  EXPECT_EQ(
      verdict(archiveOf({dictionaryObject(uids({3}), {}, 2), classNamed("NSDictionary"), "a"})),
      "UnequalLengths");
}

TEST(ArchiveDictionary, TakesTheFirstOfEqualKeys) {
  EXPECT_EQ(decoded(archiveOf({dictionaryObject(uids({3, 4}), uids({5, 6}), 2),
                               classNamed("NSDictionary"), "a", "a", 1, 2})),
            Value(Dictionary{{"a", 1}}));
}

TEST(ArchiveDictionary, TurnsOtherLeavesIntoTextAsKeys) {
  EXPECT_EQ(decoded(archiveOf({dictionaryObject(uids({3, 4, 5}), uids({3, 4, 5}), 2),
                               classNamed("NSDictionary"), 7, true, plist::Data{{255}}})),
            Value(Dictionary{{"7", 7}, {"true", true}, {"<ff>", plist::Data{{255}}}}));
}

TEST(ArchiveDictionary, TakesAMutableStringAsAKey) {
  const Dictionary text{{"NS.string", "key"}, {"$class", Uid{4}}};
  EXPECT_EQ(decoded(archiveOf({dictionaryObject(uids({3}), uids({3}), 2),
                               classNamed("NSDictionary"), text, classNamed("NSMutableString")})),
            Value(Dictionary{{"key", "key"}}));
}

TEST(ArchiveDictionary, RefusesContainersAsKeys) {
  for (const Value& key : {Value(Array()), Value(Dictionary()), Value(arrayObject({}, 4))})
    EXPECT_EQ(verdict(archiveOf({dictionaryObject(uids({3}), uids({3}), 2),
                                 classNamed("NSDictionary"), key, classNamed("NSArray")})),
              "KeyKind");
}

TEST(ArchiveCircle, IsRefused) {
  EXPECT_EQ(verdict(archiveOf({arrayObject(uids({1}), 2), classNamed("NSArray")})), "Circular");
  EXPECT_EQ(verdict(archiveOf({arrayObject(uids({3}), 2), classNamed("NSArray"),
                               dictionaryObject(uids({4}), uids({1}), 5), "a",
                               classNamed("NSDictionary")})),
            "Circular");
}

TEST(ArchiveCircle, OfClassesIsNone) {
  Dictionary itself = classNamed("NSArray");
  itself.set("$class", Uid{2});
  EXPECT_EQ(verdict(archiveOf({arrayObject({}, 2), itself})), "ok");
}

Dictionary nested(std::size_t depth) {
  Array objects;
  for (unsigned i = 1; i < depth; ++i) objects.push_back(arrayObject(uids({i + 1}), depth + 1));
  objects.push_back(arrayObject({}, depth + 1));
  objects.push_back(classNamed("NSArray"));
  return archiveOf(objects);
}

TEST(ArchiveDepth, IsAtMost512) {
  EXPECT_EQ(verdict(nested(512)), "ok");
  EXPECT_EQ(verdict(nested(513)), "TooDeep");
  EXPECT_EQ(verdict(nested(20000)), "TooDeep");
}

TEST(ArchiveSharing, GivesEachUseItsOwnValue) {
  EXPECT_EQ(decoded(archiveOf({arrayObject(uids({3, 3}), 2), classNamed("NSArray"),
                               arrayObject(uids({4, 4}), 2), "a"})),
            Value(Array{Array{"a", "a"}, Array{"a", "a"}}));
}

TEST(ArchiveSharing, IsRefusedWhenItExplodes) {
  Array objects;
  for (unsigned i = 1; i <= 60; ++i) objects.push_back(arrayObject(uids({i + 1, i + 1}), 62));
  objects.push_back("end");
  objects.push_back(classNamed("NSArray"));
  EXPECT_EQ(verdict(archiveOf(objects)), "TooLarge");
}

TEST(ArchiveError, SaysWhatAndWhere) {
  EXPECT_EQ((archive::Error{archive::ErrorKind::UnknownClass, 12, "NSURL"}.message()),
            "an object of the unknown class NSURL at byte 12");
  EXPECT_EQ(nameOf(archive::ErrorKind::NotUtf8), "NotUtf8");
}

}  // namespace
}  // namespace archive_test
