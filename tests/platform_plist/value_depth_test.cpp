// A million containers in each other, far more than a call stack would take.
#include <gtest/gtest.h>

#include "platform/plist/value.h"

namespace plist {
namespace {

constexpr int kDeep = 1000000;

template <class Wrap>
Value nested(Wrap wrap) {
  Value value;
  for (int i = 0; i < kDeep; ++i) value = wrap(std::move(value));
  return value;
}

Value inArray(Value value) {
  Array array;
  array.push_back(std::move(value));
  return array;
}

Value inSet(Value value) {
  Set set;
  set.members.push_back(std::move(value));
  return set;
}

Value inDictionary(Value value) {
  Dictionary dictionary;
  dictionary.set("a", true);
  dictionary.set("k", std::move(value));
  dictionary.set("z", "leaf");
  return dictionary;
}

TEST(DeepValue, IsFreed) {
  { const Value value = nested(inArray); }
  { const Value value = nested(inSet); }
  { const Value value = nested(inDictionary); }
}

TEST(DeepValue, IsFreedWhenItIsReplaced) {
  Value value = nested(inDictionary);
  value = 1;
  EXPECT_EQ(value, Value(1));
  value = nested(inArray);
  value.become<std::string>();
  EXPECT_EQ(value, Value(""));
}

TEST(DeepValue, IsFreedInsideABareArray) {
  Array array;
  array.push_back(nested(inArray));
  array.push_back(nested(inDictionary));
  array.clear();
  Dictionary dictionary;
  dictionary.set("a", nested(inArray));
  EXPECT_TRUE(dictionary.remove("a"));
}

TEST(DeepValue, IsCopiedAndCompared) {
  const Value value = nested(inDictionary);
  const Value copy = value;
  EXPECT_TRUE(copy == value);
  EXPECT_TRUE(nested(inArray) == nested(inArray));
  EXPECT_TRUE(nested(inSet) == nested(inSet));
}

TEST(DeepValue, DiffersWhereItIsDeepest) {
  Value a, b = 1;
  for (int i = 0; i < kDeep; ++i) {
    a = inArray(std::move(a));
    b = inArray(std::move(b));
  }
  EXPECT_FALSE(a == b);
}

TEST(DeepValue, IsMadeStorable) {
  const auto inBoth = [](Value value) {
    Array array;
    array.push_back(Uid{1});
    array.push_back(inDictionary(std::move(value)));
    return Value(std::move(array));
  };
  const auto kept = storable(nested(inBoth));
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->array()->size(), 1u);
}

}  // namespace
}  // namespace plist
