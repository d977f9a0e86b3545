#include <gtest/gtest.h>

#include "tests/platform_archive/raw_archive.h"
#include "tests/platform_plist/random_value.h"

namespace archive_test {
namespace {

using Keys = std::vector<std::string_view>;

archive::Lookup lookUp(const Value& root, const Keys& keys) {
  const auto bytes = archive::archive(root, archive::Mutability::Mutable);
  const auto lookup = archive::lookUp(plist::Bytes(*bytes), keys);
  EXPECT_TRUE(lookup);
  return lookup ? *lookup : archive::Lookup{};
}

TEST(Lookup, FindsTheValuesOfItsKeys) {
  const auto found = lookUp(Dictionary{{"a", 1}, {"b", Array{"x"}}, {"c", "d"}}, {"c", "b"});
  EXPECT_TRUE(found.isDictionary);
  EXPECT_EQ(Value(found.values), Value(Array{"d", Array{"x"}}));
}

TEST(Lookup, FindsNothingForAbsentKeys) {
  const auto found = lookUp(Dictionary{{"a", 1}}, {"b", "a"});
  EXPECT_EQ(Value(found.values), Value(Array{Value(), 1}));
}

TEST(Lookup, FindsKeysThatAreNotAscii) {
  const auto found =
      lookUp(Dictionary{{"\xC3\xA9", 1}, {"\xE2\x82\xAC", 2}}, {"\xE2\x82\xAC", "\xC3\xA9"});
  EXPECT_EQ(Value(found.values), Value(Array{2, 1}));
}

TEST(Lookup, FindsKeysThatAreNumbers) {
  const Value archived =
      archiveOf({dictionaryObject(uids({3}), uids({4}), 2), classNamed("NSDictionary"), 7, "x"});
  const auto bytes = plist::writeBinary(archived);
  const auto found = archive::lookUp(plist::Bytes(*bytes), Keys{"7"});
  ASSERT_TRUE(found);
  EXPECT_EQ(found->values.front(), Value("x"));
}

TEST(Lookup, LooksIntoTheRootOnly) {
  const auto found = lookUp(Dictionary{{"a", Dictionary{{"b", 1}}}}, {"b"});
  EXPECT_EQ(found.values.front(), Value());
}

TEST(Lookup, TakesTheFirstOfEqualKeys) {
  const Value archived = archiveOf({dictionaryObject(uids({3, 4}), uids({5, 6}), 2),
                                    classNamed("NSDictionary"), "a", "a", 1, 2});
  const auto bytes = plist::writeBinary(archived);
  const auto found = archive::lookUp(plist::Bytes(*bytes), Keys{"a"});
  ASSERT_TRUE(found);
  EXPECT_EQ(found->values.front(), Value(1));
}

TEST(Lookup, SaysWhenTheRootIsNotADictionary) {
  for (const Value& root : {Value(Array{"a"}), Value("a"), Value(), Value(plist::Set{{"a"}})}) {
    const auto found = lookUp(root, {"a"});
    EXPECT_FALSE(found.isDictionary);
    EXPECT_EQ(found.values.front(), Value());
  }
}

TEST(Lookup, LooksIntoAPlainDictionaryToo) {
  const auto bytes = plist::writeBinary(archiveOf({Dictionary{{"a", 1}, {"b", 2}}}));
  const auto found = archive::lookUp(plist::Bytes(*bytes), Keys{"b", "c"});
  ASSERT_TRUE(found);
  EXPECT_TRUE(found->isDictionary);
  EXPECT_EQ(Value(found->values), Value(Array{2, Value()}));
}

TEST(Lookup, NeedsNoKeys) {
  EXPECT_TRUE(lookUp(Dictionary{{"a", 1}}, {}).isDictionary);
}

TEST(Lookup, RefusesWhatUnarchivingRefusesWhereverItIs) {
  const Dictionary hidden{{"$class", Uid{6}}};
  const Value archived =
      archiveOf({dictionaryObject(uids({3, 4}), uids({4, 5}), 2), classNamed("NSDictionary"), "a",
                 "b", hidden, classNamed("NSURL")});
  const auto bytes = plist::writeBinary(archived);
  const auto found = archive::lookUp(plist::Bytes(*bytes), Keys{"a"});
  const auto root = archive::unarchive(plist::Bytes(*bytes));
  ASSERT_FALSE(found);
  ASSERT_FALSE(root);
  EXPECT_EQ(found.error().kind, archive::ErrorKind::UnknownClass);
  EXPECT_EQ(found.error().message(), root.error().message());
}

// Damages one byte at a time, in every way that one bit can be damaged.
TEST(Lookup, AgreesWithUnarchivingOnEveryDamagedArchive) {
  const auto good = archive::archive(
      Dictionary{{"profilepercentage", "55"}, {"list", Array{1, 2.5, plist::Date{3}, Value()}}},
      archive::Mutability::Mutable);
  for (std::size_t at = 0; at < good->size(); ++at) {
    for (int bit = 0; bit < 8; ++bit) {
      auto bytes = *good;
      bytes[at] ^= static_cast<std::uint8_t>(1 << bit);
      const auto root = archive::unarchive(plist::Bytes(bytes));
      const auto found = archive::lookUp(plist::Bytes(bytes), Keys{"profilepercentage"});
      ASSERT_EQ(static_cast<bool>(root), static_cast<bool>(found)) << at << " " << bit;
      if (!root) {
        ASSERT_EQ(root.error().message(), found.error().message());
        continue;
      }
      const Value* value =
          root->dictionary() ? root->dictionary()->find("profilepercentage") : nullptr;
      ASSERT_EQ(found->values.front(), value ? *value : Value()) << at << " " << bit;
    }
  }
}

}  // namespace
}  // namespace archive_test
