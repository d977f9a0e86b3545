#include <gtest/gtest.h>

#include "tests/platform_archive/raw_archive.h"
#include "tests/platform_plist/random_value.h"

namespace archive_test {
namespace {

using archive::Mutability;

plist_test::ByteVector archived(const Value& root, Mutability mutability = Mutability::Immutable) {
  const auto bytes = archive::archive(root, mutability);
  EXPECT_TRUE(bytes) << (bytes ? "" : bytes.error().message());
  return bytes ? *bytes : plist_test::ByteVector();
}

// The archive as a property list.
Dictionary frameOf(const Value& root, Mutability mutability = Mutability::Immutable) {
  const auto value = plist::readBinary(archived(root, mutability));
  EXPECT_TRUE(value && value->dictionary());
  return *value->dictionary();
}

Array objectsOf(const Value& root, Mutability mutability = Mutability::Immutable) {
  return *frameOf(root, mutability).find("$objects")->array();
}

Value comesBack(const Value& root) {
  const auto value = archive::unarchive(plist::Bytes(archived(root)));
  return value ? *value : Value("refused: " + value.error().message());
}

Dictionary profile() {
  return {
      {"profilepercentage", "55"}, {"wifi", 1}, {"profiledescription", ""}, {"custbright", 50.0}};
}

TEST(Archiver, NumbersTheObjectsOfAProfile) {
  const Array expected{"$null",
                       dictionaryObject(uids({2, 3, 4, 5}), uids({6, 7, 8, 9}), 10),
                       "profilepercentage",
                       "wifi",
                       "profiledescription",
                       "custbright",
                       "55",
                       1,
                       "",
                       50.0,
                       classNamed("NSMutableDictionary", {"NSDictionary", "NSObject"})};
  EXPECT_EQ(Value(objectsOf(profile(), Mutability::Mutable)), Value(expected));
}

TEST(Archiver, Writes423BytesAnd42ObjectsForAProfile) {
  const auto bytes = archived(profile(), Mutability::Mutable);
  EXPECT_EQ(bytes.size(), 423u);
  EXPECT_EQ(bytes[bytes.size() - 17], 42);
}

TEST(Archiver, WritesTheFrame) {
  Dictionary frame = frameOf("text");
  EXPECT_EQ(frame.size(), 4u);
  EXPECT_EQ(*frame.find("$version"), Value(100000));
  EXPECT_EQ(*frame.find("$archiver"), Value("NSKeyedArchiver"));
  EXPECT_EQ(*frame.find("$top"), Value(Dictionary{{"root", Uid{1}}}));
  EXPECT_EQ(*frame.find("$objects"), Value(Array{"$null", "text"}));
}

TEST(Archiver, NumbersEachValueWithAllThatIsInItBeforeTheNext) {
  const Array expected{"$null",
                       dictionaryObject(uids({2}), uids({3}), 6),
                       "k",
                       arrayObject(uids({4}), 5),
                       1,
                       classNamed("NSArray", {"NSObject"}),
                       classNamed("NSDictionary", {"NSObject"})};
  EXPECT_EQ(Value(objectsOf(Dictionary{{"k", Array{1}}})), Value(expected));
}

TEST(Archiver, NumbersAllKeysBeforeAllValues) {
  const Array objects = objectsOf(Dictionary{{"a", Array()}, {"b", "c"}});
  EXPECT_EQ(objects[2], Value("a"));
  EXPECT_EQ(objects[3], Value("b"));
  EXPECT_EQ(objects[4], Value(arrayObject({}, 5)));
  EXPECT_EQ(objects[6], Value("c"));
}

TEST(Archiver, WritesEachClassOnce) {
  const Array objects = objectsOf(Array{Array(), Array(), Dictionary(), Dictionary()});
  EXPECT_EQ(objects.size(), 8u);
}

TEST(Archiver, MakesOnlyTheRootMutable) {
  const Array objects = objectsOf(Array{Array()}, Mutability::Mutable);
  EXPECT_EQ(objects[3], Value(classNamed("NSArray", {"NSObject"})));
  EXPECT_EQ(objects[4], Value(classNamed("NSMutableArray", {"NSArray", "NSObject"})));
  EXPECT_EQ(objectsOf(plist::Set(), Mutability::Mutable)[2],
            Value(classNamed("NSMutableSet", {"NSSet", "NSObject"})));
  EXPECT_EQ(objectsOf(Dictionary())[2], Value(classNamed("NSDictionary", {"NSObject"})));
}

TEST(Archiver, WritesEqualTextsAndNumbersOnce) {
  const Array objects =
      objectsOf(Array{"a", "a", 1, 1, 2.5, 2.5, true, true, Dictionary{{"a", "a"}}});
  EXPECT_EQ(std::count(objects.begin(), objects.end(), Value("a")), 1);
  EXPECT_EQ(std::count(objects.begin(), objects.end(), Value(1)), 1);
  EXPECT_EQ(std::count(objects.begin(), objects.end(), Value(2.5)), 1);
  EXPECT_EQ(std::count(objects.begin(), objects.end(), Value(true)), 1);
}

TEST(Archiver, WritesTextsEqualToItsOwnWordsOnce) {
  const auto bytes =
      archived(Array{"NSKeyedArchiver", "NS.objects", "root", "NSObject", "$classname"});
  const std::string text(bytes.begin(), bytes.end());
  for (const char* word : {"NSKeyedArchiver", "NS.objects", "root", "NSObject", "$classname"}) {
    const std::size_t first = text.find(word);
    ASSERT_NE(first, std::string::npos) << word;
    EXPECT_EQ(text.find(word, first + 1), std::string::npos) << word;
  }
}

TEST(Archiver, KeepsNumbersOfDifferentKindsApart) {
  const Value numbers = Array{1, 1.0, 1.0f, true, 0, false, 0.0, -1, UINT64_MAX, 100000};
  EXPECT_EQ(comesBack(numbers), numbers);
}

TEST(Archiver, WritesDatesAndNullAsObjects) {
  const Array expected{"$null",
                       arrayObject(uids({2, 4, 4}), 6),
                       Dictionary{{"NS.time", 1.5}, {"$class", Uid{3}}},
                       classNamed("NSDate", {"NSObject"}),
                       Dictionary{{"$class", Uid{5}}},
                       classNamed("NSNull", {"NSObject"}),
                       classNamed("NSArray", {"NSObject"})};
  EXPECT_EQ(Value(objectsOf(Array{plist::Date{1.5}, Value(), Value()})), Value(expected));
}

TEST(Archiver, WritesNilAsTheRoot) {
  EXPECT_EQ(*frameOf(Value()).find("$top"), Value(Dictionary{{"root", Uid{0}}}));
  EXPECT_EQ(comesBack(Value()), Value());
}

TEST(Archiver, KeepsTheTextThatPlainWouldBeNil) {
  for (const Value& value :
       {Value("$null"), Value(Array{"$null", "$null"}), Value(Dictionary{{"$null", "$null"}})})
    EXPECT_EQ(comesBack(value), value);
}

TEST(Archiver, RefusesUids) {
  const auto bytes = archive::archive(Array{Uid{1}}, Mutability::Immutable);
  ASSERT_FALSE(bytes);
  EXPECT_EQ(bytes.error().kind, archive::ErrorKind::NotArchivable);
}

TEST(Archiver, RefusesTextThatIsNotUtf8) {
  for (const Value& value : {Value("ab\xFF"), Value(Dictionary{{"ab\xFF", 1}})}) {
    const auto bytes = archive::archive(value, Mutability::Immutable);
    ASSERT_FALSE(bytes);
    EXPECT_EQ(bytes.error().kind, archive::ErrorKind::NotUtf8);
    EXPECT_EQ(bytes.error().offset, 2u);
  }
}

TEST(Archiver, RefusesWhatIsTooDeepToRead) {
  Value value = Array();
  for (int depth = 1; depth < 512; ++depth) {
    Array outer;
    outer.push_back(std::move(value));
    value = std::move(outer);
  }
  EXPECT_EQ(comesBack(value), value);
  const auto deeper = archive::archive(Array{value}, Mutability::Immutable);
  ASSERT_FALSE(deeper);
  EXPECT_EQ(deeper.error().kind, archive::ErrorKind::TooDeep);
}

TEST(Archiver, WritesTextsApartWhereUnarchivingWouldRefuseSharing) {
  const Value value = Array(3000, std::string(1000, 'x'));
  const auto bytes = archived(value);
  EXPECT_GT(bytes.size(), 3000000u);
  EXPECT_EQ(*archive::unarchive(plist::Bytes(bytes)), value);
}

TEST(Archiver, GivesBackWideContainers) {
  Array array;
  Dictionary dictionary;
  for (int i = 0; i < 70000; ++i) {
    array.push_back(i % 3 == 0 ? Value(std::to_string(i)) : Value(i));
    dictionary.set(std::to_string(i), i);
  }
  EXPECT_EQ(comesBack(array), Value(array));
  EXPECT_EQ(comesBack(dictionary), Value(dictionary));
}

TEST(Archiver, GivesBackThousandsOfValuesAsTheyWere) {
  plist_test::RandomValues random(20240606);
  random.hasUids = false;
  for (int i = 0; i < 5000; ++i) {
    const Value value = random.value();
    ASSERT_EQ(comesBack(value), value) << i;
  }
}

}  // namespace
}  // namespace archive_test
