// Every class, in its mutable and immutable form, and classes that are not known.
#include <gtest/gtest.h>

#include "tests/platform_archive/raw_archive.h"

namespace archive_test {
namespace {

// An archive whose root has these fields and this class.
Value withClass(Dictionary fields, Dictionary classEntry, Array more = {}) {
  fields.set("$class", Uid{2});
  more.insert(more.begin(), {Value(fields), Value(classEntry)});
  return archiveOf(more);
}

Value withClass(const Dictionary& fields, const char* name, const Array& more = {}) {
  return withClass(fields, classNamed(name), more);
}

TEST(ArchivedClass, Dictionary) {
  for (const char* name : {"NSDictionary", "NSMutableDictionary"})
    EXPECT_EQ(
        decoded(withClass({{"NS.keys", uids({3})}, {"NS.objects", uids({4})}}, name, {"k", 1})),
        Value(Dictionary{{"k", 1}}));
}

TEST(ArchivedClass, EmptyDictionary) {
  EXPECT_EQ(decoded(withClass({{"NS.keys", Array()}, {"NS.objects", Array()}}, "NSDictionary")),
            Value(Dictionary()));
}

TEST(ArchivedClass, Array) {
  for (const char* name : {"NSArray", "NSMutableArray"})
    EXPECT_EQ(decoded(withClass({{"NS.objects", uids({3, 4})}}, name, {"a", 1.5})),
              Value(Array{"a", 1.5}));
}

TEST(ArchivedClass, Set) {
  for (const char* name : {"NSSet", "NSMutableSet"})
    EXPECT_EQ(decoded(withClass({{"NS.objects", uids({3})}}, name, {"a"})),
              Value(plist::Set{{"a"}}));
}

TEST(ArchivedClass, TextInPlace) {
  for (const char* name : {"NSString", "NSMutableString"}) {
    EXPECT_EQ(decoded(withClass({{"NS.string", "text"}}, name)), Value("text"));
    EXPECT_EQ(decoded(withClass({{"NS.string", "\xC3\xA9"}}, name)), Value("\xC3\xA9"));
    EXPECT_EQ(decoded(withClass({{"NS.string", "$null"}}, name)), Value("$null"));
  }
}

TEST(ArchivedClass, TextElsewhere) {
  EXPECT_EQ(decoded(withClass({{"NS.string", Uid{3}}}, "NSMutableString", {"text"})),
            Value("text"));
  EXPECT_EQ(verdict(withClass({{"NS.string", Uid{0}}}, "NSMutableString")), "Field");
  EXPECT_EQ(verdict(withClass({{"NS.string", Uid{9}}}, "NSMutableString")), "Field");
}

TEST(ArchivedClass, Data) {
  const plist::Data data{{1, 2}};
  for (const char* name : {"NSData", "NSMutableData"}) {
    EXPECT_EQ(decoded(withClass({{"NS.data", data}}, name)), Value(data));
    EXPECT_EQ(decoded(withClass({{"NS.data", Uid{3}}}, name, {data})), Value(data));
  }
}

TEST(ArchivedClass, Date) {
  EXPECT_EQ(decoded(withClass({{"NS.time", 1.5}}, "NSDate")), Value(plist::Date{1.5}));
  EXPECT_EQ(decoded(withClass({{"NS.time", 2}}, "NSDate")), Value(plist::Date{2}));
}

TEST(ArchivedClass, Null) {
  EXPECT_EQ(decoded(withClass({}, "NSNull")), Value());
}

TEST(ArchivedClass, NullAsAnElement) {
  EXPECT_EQ(decoded(archiveOf({arrayObject(uids({3, 3}), 2), classNamed("NSArray"),
                               Dictionary{{"$class", Uid{4}}}, classNamed("NSNull")})),
            Value(Array{Value(), Value()}));
}

TEST(ArchivedClass, LacksItsContent) {
  for (const char* name : {"NSDictionary", "NSArray", "NSSet", "NSString", "NSData", "NSDate"})
    EXPECT_EQ(verdict(withClass({}, name)), "Field") << name;
  EXPECT_EQ(verdict(withClass({{"NS.objects", uids({3})}}, "NSDictionary", {1})), "Field");
}

TEST(ArchivedClass, HasContentOfAnotherType) {
  EXPECT_EQ(verdict(withClass({{"NS.keys", 1}, {"NS.objects", 1}}, "NSDictionary")), "Field");
  EXPECT_EQ(verdict(withClass({{"NS.objects", Uid{3}}}, "NSArray", {Array()})), "Field");
  EXPECT_EQ(verdict(withClass({{"NS.string", 1}}, "NSString")), "Field");
  EXPECT_EQ(verdict(withClass({{"NS.data", "text"}}, "NSData")), "Field");
  EXPECT_EQ(verdict(withClass({{"NS.time", "text"}}, "NSDate")), "Field");
}

TEST(UnknownClass, IsNamed) {
  EXPECT_EQ(verdict(withClass({}, "NSURL")), "UnknownClass NSURL");
  EXPECT_EQ(verdict(withClass({}, "NSUUID")), "UnknownClass NSUUID");
  EXPECT_EQ(verdict(withClass({}, "")), "UnknownClass");
}

TEST(UnknownClass, IsNamedAsAKey) {
  const Dictionary key{{"$class", Uid{4}}};
  EXPECT_EQ(verdict(archiveOf({dictionaryObject(uids({3}), uids({3}), 2),
                               classNamed("NSDictionary"), key, classNamed("NSURL")})),
            "UnknownClass NSURL");
}

TEST(UnknownClass, IsKnownByAHint) {
  Dictionary entry = classNamed("MyText");
  entry.set("$classhints", Array{"Unknown", "NSString", "NSArray"});
  EXPECT_EQ(decoded(withClass({{"NS.string", "a"}}, entry)), Value("a"));
}

TEST(UnknownClass, IsKnownByAnAncestor) {
  EXPECT_EQ(decoded(withClass({{"NS.objects", uids({3})}},
                              classNamed("MyArray", {"NSArray", "NSObject"}), {"a"})),
            Value(Array{"a"}));
}

TEST(UnknownClass, IsTakenForItsHintBeforeItsAncestor) {
  Dictionary entry = classNamed("Mine", {"NSArray"});
  entry.set("$classhints", Array{"NSSet"});
  EXPECT_EQ(decoded(withClass({{"NS.objects", Array()}}, entry)), Value(plist::Set()));
}

TEST(UnknownClass, IsNamedWhenItKeepsItsContentInAnotherWay) {
  EXPECT_EQ(
      verdict(withClass({{"NS.count", 1}}, classNamed("NSCountedSet", {"NSMutableSet", "NSSet"}))),
      "UnknownClass NSCountedSet");
}

TEST(ClassEntry, IsADictionaryWithAName) {
  EXPECT_EQ(verdict(archiveOf({arrayObject({}, 2), "text"})), "Class");
  EXPECT_EQ(verdict(archiveOf({arrayObject({}, 2), Array()})), "Class");
  EXPECT_EQ(verdict(archiveOf({arrayObject({}, 0)})), "Class");
  EXPECT_EQ(verdict(archiveOf({arrayObject({}, 9)})), "Class");
  EXPECT_EQ(verdict(archiveOf({arrayObject({}, 2), Dictionary{{"$classes", Array{"NSArray"}}}})),
            "Class");
  EXPECT_EQ(verdict(archiveOf({arrayObject({}, 2), Dictionary{{"$classname", 5}}})), "Class");
}

TEST(ClassEntry, NeedsNoListOfAncestors) {
  EXPECT_EQ(decoded(archiveOf({arrayObject({}, 2), Dictionary{{"$classname", "NSArray"}}})),
            Value(Array()));
}

}  // namespace
}  // namespace archive_test
