#include "platform/foundation/domain_file.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/platform_foundation/preferences_fixture.h"

namespace foundation::test {
namespace {

using namespace std::chrono_literals;
using plist::Value;

struct DomainFileTest : PreferencesTest {
  XmlReader none;
  DomainFile file{root, kDomain, none};

  DomainReadingPtr read() {
    const auto read = file.read();
    EXPECT_TRUE(read);
    return read ? *read : nullptr;
  }
};

TEST_F(DomainFileTest, IsParsedOnceAsLongAsItIsTheSame) {
  storeElsewhere("a", 1);
  std::this_thread::sleep_for(100ms);
  const auto first = read();
  EXPECT_EQ(read(), first);
  storeElsewhere("a", 2);
  const auto second = read();
  EXPECT_NE(second, first);
  EXPECT_EQ(*second->entries.find("a"), Value(2));
  EXPECT_EQ(*first->entries.find("a"), Value(1));
}

TEST_F(DomainFileTest, IsNotReadBackAfterItsOwnChange) {
  const auto changed = file.change({{"a", 1}}, {}, 0ms);
  ASSERT_TRUE(changed);
  EXPECT_EQ(read(), changed->after);
  EXPECT_EQ(stored("a"), Value(1));
}

TEST_F(DomainFileTest, WhoseLockIsHeldKeepsOthersOfThisProcessOutToo) {
  const auto held = file.lock(0ms);
  ASSERT_TRUE(held);
  EXPECT_FALSE(file.change({{"a", 1}}, {}, 0ms));
  EXPECT_FALSE(Preferences(root, 0ms).setAppValue("a", 1, kDomain));
}

TEST_F(DomainFileTest, IsUnlockedWithTheEndOfAChange) {
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(file.change({{"a", round}}, {}, 0ms));
    ASSERT_TRUE(Preferences(root, 0ms).setAppValue("b", round, kDomain));
  }
  EXPECT_EQ(stored("a"), Value(2));
  EXPECT_EQ(stored("b"), Value(2));
}

TEST_F(DomainFileTest, IsReadOnceByTwoStoresOnTheSameFiles) {
  folder.write(kFile, "<plist/>");
  std::this_thread::sleep_for(100ms);
  int reads = 0;
  preferences.setXmlReader([&](plist::Bytes) -> platform::Result<Value> {
    ++reads;
    return Value(plist::Dictionary{{"a", 1}});
  });
  Preferences second(preferences, 0ms);
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
  EXPECT_EQ(second.copyAppValue("a", kDomain), Value(1));
  EXPECT_EQ(reads, 1);
  ASSERT_TRUE(second.setAppValue("a", 2, kDomain));
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
  ASSERT_TRUE(preferences.appSynchronize(kDomain));
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(2));
}

}  // namespace
}  // namespace foundation::test
