#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/plist/value.h"

namespace plist {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> keysOf(const Dictionary& dictionary) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : dictionary) keys.push_back(key);
  return keys;
}

std::string keyNumber(int i) {
  return "key number " + std::to_string(i);
}

TEST(Dictionary, KeepsTheOrderOfItsEntries) {
  Dictionary dictionary{{"b", 1}, {"a", 2}};
  dictionary.set("c", 3);
  dictionary.set("b", 4);
  EXPECT_THAT(keysOf(dictionary), ElementsAre("b", "a", "c"));
  EXPECT_EQ(*dictionary.find("b"), Value(4));
}

TEST(Dictionary, TakesTheFirstOfEqualKeysInAList) {
  const Dictionary dictionary{{"a", 1}, {"a", 2}};
  EXPECT_EQ(dictionary.size(), 1u);
  EXPECT_EQ(*dictionary.find("a"), Value(1));
}

TEST(Dictionary, FindsNothingWhereThereIsNothing) {
  Dictionary dictionary;
  EXPECT_TRUE(dictionary.empty());
  EXPECT_EQ(dictionary.find("a"), nullptr);
  EXPECT_FALSE(dictionary.remove("a"));
  EXPECT_EQ(dictionary.begin(), dictionary.end());
}

TEST(Dictionary, InsertsOnlyNewKeys) {
  Dictionary dictionary;
  EXPECT_TRUE(dictionary.insert("a", 1));
  EXPECT_FALSE(dictionary.insert("a", 2));
  EXPECT_EQ(dictionary.append("a"), nullptr);
  EXPECT_EQ(*dictionary.find("a"), Value(1));
  *dictionary.append("b") = 3;
  EXPECT_EQ(*dictionary.find("b"), Value(3));
}

TEST(Dictionary, RemovesAndKeepsTheOrderOfTheRest) {
  Dictionary dictionary{{"a", 1}, {"b", 2}, {"c", 3}};
  EXPECT_TRUE(dictionary.remove("b"));
  EXPECT_THAT(keysOf(dictionary), ElementsAre("a", "c"));
  EXPECT_EQ(dictionary.find("b"), nullptr);
}

TEST(Dictionary, DistinguishesKeysWithZeros) {
  Dictionary dictionary;
  dictionary.set(std::string_view("a\0b", 3), 1);
  dictionary.set("a", 2);
  dictionary.set("", 3);
  EXPECT_EQ(dictionary.size(), 3u);
  EXPECT_EQ(*dictionary.find(std::string_view("a\0b", 3)), Value(1));
  EXPECT_EQ(*dictionary.find(""), Value(3));
}

TEST(LargeDictionary, FindsEveryKeyAtEverySize) {
  Dictionary dictionary;
  for (int size = 0; size < 300; ++size) {
    for (int i = 0; i < size; ++i) ASSERT_EQ(*dictionary.find(keyNumber(i)), Value(i)) << size;
    ASSERT_EQ(dictionary.find(keyNumber(size)), nullptr);
    ASSERT_TRUE(dictionary.insert(keyNumber(size), size));
    ASSERT_FALSE(dictionary.insert(keyNumber(size / 2), "again"));
  }
}

TEST(LargeDictionary, FindsTheRestAfterARemoval) {
  Dictionary dictionary;
  for (int i = 0; i < 100; ++i) dictionary.set(keyNumber(i), i);
  for (int i = 0; i < 100; i += 3) EXPECT_TRUE(dictionary.remove(keyNumber(i)));
  for (int i = 0; i < 100; ++i) EXPECT_EQ(dictionary.find(keyNumber(i)) != nullptr, i % 3 != 0);
}

TEST(LargeDictionary, IsWholeAfterCopyingAndMoving) {
  Dictionary dictionary;
  for (int i = 0; i < 100; ++i) dictionary.set(keyNumber(i), i);
  Dictionary copy = dictionary;
  copy.set("more", true);
  const Dictionary moved = std::move(dictionary);
  EXPECT_EQ(moved.size(), 100u);
  EXPECT_EQ(copy.size(), 101u);
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(*copy.find(keyNumber(i)), Value(i));
    EXPECT_EQ(*moved.find(keyNumber(i)), Value(i));
  }
}

TEST(LargeDictionary, CanBeUsedAgainAfterItWasMovedAway) {
  Dictionary dictionary;
  for (int i = 0; i < 100; ++i) dictionary.set(keyNumber(i), i);
  const Dictionary moved = std::move(dictionary);
  dictionary = Dictionary();
  dictionary.set("a", 1);
  EXPECT_EQ(dictionary.size(), 1u);
  EXPECT_EQ(*dictionary.find("a"), Value(1));
}

TEST(LargeDictionary, HoldsKeysOfEveryLength) {
  Dictionary dictionary;
  for (std::size_t size = 0; size < 100; ++size)
    for (const char letter : {'a', 'b'}) dictionary.set(std::string(size, letter), true);
  EXPECT_EQ(dictionary.size(), 199u);
  for (std::size_t size = 0; size < 100; ++size)
    EXPECT_TRUE(dictionary.find(std::string(size, 'b'))) << size;
}

}  // namespace
}  // namespace plist
