#include "platform/plist/value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace plist {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Value, IsNothingAtFirst) {
  EXPECT_EQ(Value().kind(), Kind::Nothing);
  EXPECT_TRUE(Value().isNothing());
}

TEST(Value, KeepsTheKindThatItIsMadeOf) {
  EXPECT_EQ(Value(true).kind(), Kind::Boolean);
  EXPECT_EQ(Value(1).kind(), Kind::Integer);
  EXPECT_EQ(Value(1u).kind(), Kind::Integer);
  EXPECT_EQ(Value(1L).kind(), Kind::Integer);
  EXPECT_EQ(Value(1ull).kind(), Kind::Integer);
  EXPECT_EQ(Value(1.0f).kind(), Kind::Real);
  EXPECT_EQ(Value(1.0).kind(), Kind::Real);
  EXPECT_EQ(Value("a").kind(), Kind::Text);
  EXPECT_EQ(Value(std::string("a")).kind(), Kind::Text);
  EXPECT_EQ(Value(std::string_view("a")).kind(), Kind::Text);
  EXPECT_EQ(Value(Data{}).kind(), Kind::Data);
  EXPECT_EQ(Value(Date{}).kind(), Kind::Date);
  EXPECT_EQ(Value(Uid{}).kind(), Kind::Uid);
  EXPECT_EQ(Value(Array()).kind(), Kind::Array);
  EXPECT_EQ(Value(Set()).kind(), Kind::Set);
  EXPECT_EQ(Value(Dictionary()).kind(), Kind::Dictionary);
}

// A pointer would turn into a boolean.
static_assert(!std::is_constructible_v<Value, int*>);
static_assert(!std::is_constructible_v<Value, const void*>);
static_assert(!std::is_constructible_v<Value, const Value*>);
static_assert(!std::is_constructible_v<Value, unsigned char*>);
static_assert(!std::is_constructible_v<Value, int Date::*>);
static_assert(!std::is_constructible_v<Value, void (*)()>);
static_assert(!std::is_constructible_v<Value, std::nullptr_t>);
static_assert(std::is_constructible_v<Value, char*>);
static_assert(std::is_constructible_v<Value, const char*>);
static_assert(std::is_constructible_v<Value, const bool&>);

TEST(Value, HasAWordForEveryKind) {
  EXPECT_EQ(describe(Kind::Nothing), "nothing");
  EXPECT_EQ(describe(Kind::Text), "text");
  EXPECT_EQ(describe(Kind::Dictionary), "a dictionary");
}

TEST(Value, GivesItsContentOnlyAsItsOwnKind) {
  const Value text("a");
  EXPECT_EQ(text.boolean(), std::nullopt);
  EXPECT_EQ(text.integer(), std::nullopt);
  EXPECT_EQ(text.unsignedInteger(), std::nullopt);
  EXPECT_EQ(text.real(), std::nullopt);
  EXPECT_EQ(text.number(), std::nullopt);
  EXPECT_FALSE(text.isSinglePrecision());
  EXPECT_EQ(*text.text(), "a");
  EXPECT_EQ(text.data(), nullptr);
  EXPECT_EQ(text.date(), nullptr);
  EXPECT_EQ(text.uid(), nullptr);
  EXPECT_EQ(text.array(), nullptr);
  EXPECT_EQ(text.set(), nullptr);
  EXPECT_EQ(text.dictionary(), nullptr);
  EXPECT_EQ(Value(1).text(), nullptr);
}

TEST(Value, KnowsTheRangeOfIntegers) {
  EXPECT_EQ(Value(-1).integer(), -1);
  EXPECT_EQ(Value(-1).unsignedInteger(), std::nullopt);
  EXPECT_EQ(Value(UINT64_MAX).integer(), std::nullopt);
  EXPECT_EQ(Value(UINT64_MAX).unsignedInteger(), UINT64_MAX);
  EXPECT_EQ(Value(INT64_MAX).integer(), INT64_MAX);
  EXPECT_EQ(Value(INT64_MAX).unsignedInteger(), std::uint64_t{INT64_MAX});
  EXPECT_EQ(Value(INT64_MIN).integer(), INT64_MIN);
}

TEST(Value, GivesEveryNumberAsADouble) {
  EXPECT_EQ(Value(true).number(), 1.0);
  EXPECT_EQ(Value(-3).number(), -3.0);
  EXPECT_EQ(Value(UINT64_MAX).number(), 18446744073709551616.0);
  EXPECT_EQ(Value(0.5f).number(), 0.5);
  EXPECT_TRUE(Value(true).isNumber());
  EXPECT_FALSE(Value("1").isNumber());
}

TEST(Value, IsEqualToTheSameKindWidthAndContentOnly) {
  EXPECT_EQ(Value(1), Value(1ull));
  EXPECT_NE(Value(1), Value(1.0));
  EXPECT_NE(Value(1), Value(true));
  EXPECT_NE(Value(1.0), Value(1.0f));
  EXPECT_NE(Value(-1), Value(UINT64_MAX));
  EXPECT_NE(Value("1"), Value(1));
  EXPECT_NE(Value(Data{{1}}), Value(Data{{2}}));
  EXPECT_NE(Value(Uid{1}), Value(1));
  EXPECT_NE(Value(Date{1}), Value(1.0));
  EXPECT_NE(Value(Array()), Value(Set()));
  EXPECT_NE(Value(Array()), Value());
}

TEST(Value, TakesNotANumberAsEqualToItself) {
  EXPECT_EQ(Value(kNan), Value(kNan));
  EXPECT_EQ(Value(Date{kNan}), Value(Date{kNan}));
  EXPECT_TRUE(equalByValue(kNan, std::nanf("")));
}

TEST(Value, ComparesDictionariesWithoutOrderAndArraysWithIt) {
  EXPECT_EQ(Value(Dictionary{{"a", 1}, {"b", 2}}), Value(Dictionary{{"b", 2}, {"a", 1}}));
  EXPECT_NE(Value(Dictionary{{"a", 1}}), Value(Dictionary{{"a", 2}}));
  EXPECT_NE(Value(Dictionary{{"a", 1}}), Value(Dictionary{{"b", 1}}));
  EXPECT_NE(Value(Dictionary{{"a", 1}}), Value(Dictionary{{"a", 1}, {"b", 1}}));
  EXPECT_NE(Value(Array{1, 2}), Value(Array{2, 1}));
  EXPECT_NE(Value(Array{1}), Value(Array{1, 2}));
  EXPECT_EQ(Value(Set{{1, 2}}), Value(Set{{1, 2}}));
}

TEST(Value, ComparesNumbersByValueWhenAsked) {
  EXPECT_TRUE(equalByValue(1, 1.0));
  EXPECT_TRUE(equalByValue(1, true));
  EXPECT_TRUE(equalByValue(0.5, 0.5f));
  EXPECT_FALSE(equalByValue(1, 2));
  EXPECT_FALSE(equalByValue(1, "1"));
  EXPECT_TRUE(equalByValue("a", "a"));
  EXPECT_FALSE(equalByValue(Array{1}, Array{1.0}));
}

TEST(Value, ComparesLargeNumbersWithoutRounding) {
  EXPECT_FALSE(equalByValue(9007199254740993, 9007199254740992.0));
  EXPECT_FALSE(equalByValue(UINT64_MAX, 18446744073709551616.0));
  EXPECT_FALSE(equalByValue(-1, UINT64_MAX));
  EXPECT_TRUE(equalByValue(INT64_MIN, -9223372036854775808.0));
}

TEST(Value, MovesOutOfItsOwnMembers) {
  Value value = Array{Array{"inner"}};
  value = std::move(value.array()->front());
  EXPECT_EQ(value, Value(Array{"inner"}));
  value = value.array()->front();
  EXPECT_EQ(value, Value("inner"));
}

TEST(Value, IsTheSameAfterAssigningItToItself) {
  Value value = Dictionary{{"a", Array{1}}};
  const Value& same = value;
  value = same;
  EXPECT_EQ(value, Value(Dictionary{{"a", Array{1}}}));
}

TEST(Value, CopiesApart) {
  Value value = Dictionary{{"a", Array{1}}};
  Value copy = value;
  copy.dictionary()->set("a", 2);
  EXPECT_EQ(value, Value(Dictionary{{"a", Array{1}}}));
  EXPECT_EQ(copy, Value(Dictionary{{"a", 2}}));
}

TEST(Value, BecomesAnotherKindInPlace) {
  Value value = Array{1};
  value.become<std::string>() = "a";
  EXPECT_EQ(value, Value("a"));
  value.become<Dictionary>().set("k", 1);
  EXPECT_EQ(value, Value(Dictionary{{"k", 1}}));
}

TEST(Value, GivesTheMembersOfAnyContainer) {
  for (const Value& container :
       {Value(Array{1, "b"}), Value(Set{{1, "b"}}), Value(Dictionary{{"x", 1}, {"y", "b"}})}) {
    EXPECT_EQ(container.size(), 2u);
    EXPECT_EQ(container.member(0), Value(1));
    EXPECT_EQ(container.member(1), Value("b"));
  }
}

TEST(Storable, KeepsTheSevenKindsOfAPropertyList) {
  const Value all = Dictionary{{"boolean", true},
                               {"number", 1},
                               {"text", "a"},
                               {"data", Data{{1}}},
                               {"date", Date{1}},
                               {"array", Array{Array{}}},
                               {"dictionary", Dictionary{{"real", 0.5f}}}};
  EXPECT_EQ(storable(all), all);
}

TEST(Storable, IsNothingForNothingUidsAndSets) {
  EXPECT_EQ(storable(Value()), std::nullopt);
  EXPECT_EQ(storable(Uid{1}), std::nullopt);
  EXPECT_EQ(storable(Set{{"a"}}), std::nullopt);
}

TEST(Storable, LeavesOutEntriesAndMembersAllTheWayDown) {
  const Value given = Dictionary{
      {"null", Value()},
      {"array", Array{Uid{1}, "kept", Set{{1}}, Array{Value()}, Dictionary{{"u", Uid{}}}}},
      {"set", Set{{Array{1}}}},
      {"number", 1}};
  EXPECT_EQ(storable(given),
            Value(Dictionary{{"array", Array{"kept", Array{}, Dictionary{}}}, {"number", 1}}));
}

TEST(Storable, FindsTheKeysThatAreLeftOfALargeDictionary) {
  Dictionary large;
  for (int i = 0; i < 100; ++i) large.set(std::to_string(i), i % 2 ? Value(i) : Value());
  const auto kept = storable(large);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->dictionary()->size(), 50u);
  for (int i = 0; i < 100; ++i)
    EXPECT_EQ(kept->dictionary()->find(std::to_string(i)) != nullptr, i % 2 == 1) << i;
}

}  // namespace
}  // namespace plist
