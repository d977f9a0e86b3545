#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform_foundation/preferences_fixture.h"

namespace foundation::test {
namespace {

using plist::Value;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct PreferencesExchangeTest : PreferencesTest {
  std::vector<std::string> left(const KeyChanges& changes) {
    const auto exchanged = preferences.exchange(changes, kDomain);
    EXPECT_TRUE(exchanged);
    return exchanged ? *exchanged : std::vector<std::string>{"failed"};
  }
};

TEST_F(PreferencesExchangeTest, ChangesWhatHasTheExpectedValue) {
  storeElsewhere("a", 1);
  storeElsewhere("b", 2);
  EXPECT_THAT(left({{"a", Value(1), Value(3)}, {"b", Value(2), {}}, {"c", {}, Value("new")}}),
              IsEmpty());
  EXPECT_EQ(stored("a"), Value(3));
  EXPECT_EQ(stored("b"), Value());
  EXPECT_EQ(stored("c"), Value("new"));
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(3));
}

TEST_F(PreferencesExchangeTest, LeavesAndNamesWhatHasAnother) {
  preferences.copyAppValue("a", kDomain);
  storeElsewhere("a", 7);
  storeElsewhere("c", 7);
  EXPECT_THAT(left({{"a", Value(1), Value(3)},
                    {"b", Value(2), {}},
                    {"c", {}, Value(1)},
                    {"d", {}, Value(1)}}),
              ElementsAre("a", "c"));
  EXPECT_EQ(stored("a"), Value(7));
  EXPECT_EQ(stored("c"), Value(7));
  EXPECT_EQ(stored("d"), Value(1));
}

TEST_F(PreferencesExchangeTest, TellsKindsOfNumbersApart) {
  storeElsewhere("a", 1.0f);
  EXPECT_THAT(left({{"a", Value(1), Value(3)}}), ElementsAre("a"));
  EXPECT_THAT(left({{"a", Value(1.0f), Value(3)}}), IsEmpty());
}

TEST_F(PreferencesExchangeTest, WithoutAnythingToChangeWritesNothing) {
  storeElsewhere("a", 1);
  const auto before = fs::last_write_time(folder.at(kFile));
  EXPECT_THAT(left({{"a", Value(3), Value(1)}}), IsEmpty());
  EXPECT_EQ(fs::last_write_time(folder.at(kFile)), before);
}

TEST_F(PreferencesExchangeTest, RefusesADamagedFile) {
  folder.write(kFile, "garbage");
  EXPECT_FALSE(preferences.exchange({{"a", {}, Value(1)}}, kDomain));
  EXPECT_EQ(folder.contents(kFile), "garbage");
}

struct Witness : ChangeObserver {
  void willChange(std::string_view domain) override {
    log.push_back("will " + std::string(domain));
  }
  void didChange(std::string_view, const DomainChange& change) override {
    const std::uint64_t before = change.before ? change.before->checksum : 0;
    EXPECT_NE(change.after->checksum, before);
    changes.push_back({before, change.after->checksum});
    std::string names = "did";
    for (const auto& [key, from, to] : change.keys)
      names += " " + key + (from ? " from" : "") + (to ? " to" : "");
    log.push_back(names);
    if (look) look();
  }
  std::function<void()> look;
  std::vector<std::string> log;
  std::vector<std::pair<std::uint64_t, std::uint64_t>> changes;  // checksums
};

struct ChangeObserverTest : PreferencesTest {
  ChangeObserverTest() { preferences.setChangeObserver(&witness); }
  const std::string will = "will " + std::string(kDomain);
  Witness witness;
};

TEST_F(ChangeObserverTest, LearnsWhatASetChanges) {
  storeElsewhere("a", 1);
  storeElsewhere("b", 2);
  ASSERT_TRUE(preferences.setMultiple({{"a", 1}, {"c", 3}}, {"b", "d"}, kDomain));
  EXPECT_THAT(witness.log, ElementsAre(will, "did c to b from"));
}

TEST_F(ChangeObserverTest, LearnsWhatAnExchangeAndAReplacementChange) {
  storeElsewhere("a", 1);
  ASSERT_TRUE(preferences.exchange({{"a", Value(1), Value(2)}}, kDomain));
  folder.write(kFile, "garbage");
  ASSERT_TRUE(preferences.replaceDomain({}, kDomain));
  EXPECT_THAT(witness.log, ElementsAre(will, "did a from to", will, "did"));
}

// Another process may change the file as soon as the lock is free.
TEST_F(ChangeObserverTest, LearnsTheChecksumsOfWhatWasReadAndLeft) {
  const auto checksum = [&] {
    const std::string bytes = folder.contents(kFile);
    return checksumOf({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  };
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  const auto first = checksum();
  ASSERT_TRUE(preferences.exchange({{"a", Value(1), Value(2)}}, kDomain));
  const auto second = checksum();
  ASSERT_TRUE(preferences.setAppValue("a", Value(), kDomain));
  EXPECT_THAT(witness.changes,
              ElementsAre(std::pair(checksumOf({}), first), std::pair(first, second),
                          std::pair(second, checksumOf({}))));
}

TEST_F(PreferencesTest, KnowsWhatOthersHaveChanged) {
  EXPECT_TRUE(preferences.changedByOthers(kDomain));
  EXPECT_FALSE(preferences.changedByOthers(kDomain));
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.exchange({{"a", Value(1), Value(2)}}, kDomain));
  EXPECT_FALSE(preferences.changedByOthers(kDomain));
  storeElsewhere("b", 1);
  ASSERT_TRUE(preferences.setAppValue("a", 3, kDomain));
  ASSERT_TRUE(preferences.synchronize());
  EXPECT_TRUE(preferences.changedByOthers(kDomain));
  EXPECT_FALSE(preferences.changedByOthers(kDomain));
  ASSERT_TRUE(preferences.setAppValue("a", 4, kDomain));
  storeElsewhere("b", 2);
  EXPECT_TRUE(preferences.changedByOthers(kDomain));
  ASSERT_TRUE(preferences.setMultiple({}, {"a", "b"}, kDomain));
  EXPECT_FALSE(preferences.changedByOthers(kDomain));
  folder.write(kFile, "garbage");
  EXPECT_TRUE(preferences.changedByOthers(kDomain));
  ASSERT_TRUE(preferences.replaceDomain({}, kDomain));
  EXPECT_TRUE(preferences.changedByOthers(kDomain));
}

TEST_F(ChangeObserverTest, LearnsOfAChangeWhileTheLockIsHeld) {
  bool held = false;
  witness.look = [&] {
    const auto lock = takeLock(*root.openDirectory(kFolder), "com.zorvek.quorvantis.plist",
                               std::chrono::milliseconds(0), "the settings");
    held = !lock;
  };
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_TRUE(held);
  held = false;
  ASSERT_TRUE(preferences.exchange({{"a", Value(1), Value(2)}}, kDomain));
  EXPECT_TRUE(held);
}

TEST_F(ChangeObserverTest, LearnsNothingOfReadingAndOfLooking) {
  preferences.copyAppValue("a", kDomain);
  ASSERT_TRUE(preferences.setMultiple({}, {}, kDomain));
  ASSERT_TRUE(preferences.synchronize());
  EXPECT_THAT(witness.log, IsEmpty());
}

TEST_F(ChangeObserverTest, AFailureChangesNothing) {
  folder.write(kFile, "garbage");
  EXPECT_FALSE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_THAT(witness.log, ElementsAre(will));
}

}  // namespace
}  // namespace foundation::test
