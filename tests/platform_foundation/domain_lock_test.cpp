// Processes that hold the lock of a domain.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>

#include <chrono>

#include "tests/platform_foundation/preferences_fixture.h"

namespace foundation::test {
namespace {

using namespace std::chrono_literals;
using plist::Value;
using ::testing::ElementsAre;
using Clock = std::chrono::steady_clock;

class DomainLock : public PreferencesTest {
 protected:
  DomainLock() { EXPECT_TRUE(preferences.setAppValue("a", 1, kDomain)); }
  ~DomainLock() override { stopHolder(); }

  // Returns once another process, "holder", has the lock, which it keeps for that long.
  void holdElsewhere(std::chrono::milliseconds time) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    holder_ = startProcess([&] {
      prctl(PR_SET_NAME, "holder");
      const auto directory = root.openDirectory(kFolder);
      const auto lock = takeLock(*directory, "com.zorvek.quorvantis.plist", 0ms, "the settings");
      if (!lock || write(ready[1], "", 1) != 1) return false;
      poll(nullptr, 0, static_cast<int>(time.count()));
      return true;
    });
    char byte;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    close(ready[0]);
    close(ready[1]);
  }
  void stopHolder() {
    if (holder_ == 0) return;
    kill(holder_, SIGKILL);
    waitpid(holder_, nullptr, 0);
    holder_ = 0;
  }
  std::string held() const {
    std::string message = kFile;
    message += ": another program holds the settings (holder, process ";
    message += std::to_string(holder_);
    return message += ")";
  }

  static constexpr auto kPatience = 250ms;
  Preferences patient{root, kPatience};
  pid_t holder_ = 0;
};

TEST_F(DomainLock, ThatIsHeldTooLongFailsTheSetInTimeAndNamesTheHolder) {
  holdElsewhere(1h);
  const auto start = Clock::now();
  const auto set = patient.setAppValue("a", 2, kDomain);
  const auto waited = Clock::now() - start;
  ASSERT_FALSE(set);
  EXPECT_EQ(set.error().message(), held());
  EXPECT_GE(waited, kPatience);
  EXPECT_LT(waited, kPatience + 2s);
  stopHolder();
  EXPECT_EQ(stored("a"), Value(1));
}

TEST_F(DomainLock, IsNotNeededForAFlush) {
  ASSERT_TRUE(patient.setAppValue("a", 2, kDomain));
  holdElsewhere(1h);
  EXPECT_TRUE(patient.finish(kPatience));
}

TEST_F(DomainLock, ShowsWhetherAnotherProcessWaitsForIt) {
  const auto directory = root.openDirectory(kFolder);
  const auto take = [&](std::chrono::milliseconds patience) {
    return takeLock(*directory, "a", patience, "it");
  };
  auto lock = take(0ms);
  ASSERT_TRUE(lock);
  EXPECT_FALSE(isWaitedFor(*lock));
  const pid_t waiter = startProcess([&] {
    lock = platform::Error{};  // the copy that comes with the fork
    return static_cast<bool>(take(1h));
  });
  while (!isWaitedFor(*lock)) poll(nullptr, 0, 1);
  EXPECT_FALSE(take(0ms));
  lock = platform::Error{};
  EXPECT_TRUE(succeeded(waiter));
  lock = take(0ms);
  ASSERT_TRUE(lock);
  EXPECT_FALSE(isWaitedFor(*lock));
}

TEST_F(DomainLock, IsTakenAnewWhereItsFileOrItsFolderIsAnother) {
  ASSERT_TRUE(preferences.setAppValue("a", 2, kDomain));
  const fs::path lock = folder.at(std::string(kFolder) + "/.com.zorvek.quorvantis.plist.lock");
  fs::remove(lock);
  ASSERT_TRUE(preferences.setAppValue("a", 3, kDomain));
  EXPECT_TRUE(fs::exists(lock));
  fs::rename(folder.at(kFolder), folder.at(std::string(kFolder) + " old"));
  ASSERT_TRUE(preferences.setAppValue("b", 4, kDomain));
  ASSERT_TRUE(preferences.finish());
  EXPECT_EQ(stored("a"), Value());
  EXPECT_EQ(stored("b"), Value(4));
}

struct KeptSet : DomainLock {
  KeptSet() {
    keeping.setProblemHandler(
        [this](const platform::Error& error) { problems.push_back(error.message()); });
    keeping.setRecoveryHandler(
        [this](const platform::Error& error) { std::erase(problems, error.message()); });
  }
  Preferences keeping{root, kPatience, Preferences::FailedSets::Keep};
};

TEST_F(KeptSet, IsShownByReadsAndStoredWhenTheLockIsFree) {
  holdElsewhere(1h);
  EXPECT_FALSE(keeping.setMultiple({{"a", 2}, {"b", 3}}, {}, kDomain));
  EXPECT_FALSE(keeping.synchronize());
  EXPECT_TRUE(keeping.unfinished());
  EXPECT_EQ(keeping.copyAppValue("a", kDomain), Value(2));
  EXPECT_EQ(keeping.copyAppValue("b", kDomain), Value(3));
  EXPECT_THAT(keeping.copyKeyList(kDomain), ElementsAre("a", "b"));
  EXPECT_EQ(Value(keeping.copyMultiple({"a", "b"}, kDomain)),
            Value(plist::Dictionary{{"a", 2}, {"b", 3}}));
  EXPECT_EQ(stored("a"), Value(1));
  EXPECT_THAT(problems, ElementsAre(held()));

  stopHolder();
  EXPECT_TRUE(keeping.finish(0ms));
  EXPECT_FALSE(keeping.unfinished());
  EXPECT_EQ(stored("a"), Value(2));
  EXPECT_EQ(stored("b"), Value(3));
  EXPECT_EQ(keeping.copyAppValue("a", kDomain), Value(2));
  EXPECT_THAT(problems, testing::IsEmpty());
}

TEST_F(KeptSet, LeavesWhatItOnlyRepeatsToOtherProcesses) {
  EXPECT_EQ(keeping.copyAppValue("a", kDomain), Value(1));
  holdElsewhere(1h);
  EXPECT_FALSE(keeping.setMultiple({{"a", 1}, {"b", 3}}, {"c"}, kDomain));
  stopHolder();
  Preferences another{root};
  ASSERT_TRUE(another.setMultiple({{"a", 5}, {"c", 6}}, {}, kDomain));
  EXPECT_TRUE(keeping.finish(0ms));
  EXPECT_EQ(stored("a"), Value(5));
  EXPECT_EQ(stored("b"), Value(3));
  EXPECT_EQ(stored("c"), Value(6));
}

TEST_F(KeptSet, OfOneKeyIsStoredAlsoIfTheKeyHeldThatBefore) {
  EXPECT_EQ(keeping.copyAppValue("a", kDomain), Value(1));
  holdElsewhere(1h);
  EXPECT_FALSE(keeping.setAppValue("a", 1, kDomain));
  EXPECT_FALSE(keeping.setAppValue("c", Value(), kDomain));
  stopHolder();
  Preferences another{root};
  ASSERT_TRUE(another.setMultiple({{"a", 5}, {"c", 6}}, {}, kDomain));
  EXPECT_TRUE(keeping.finish(0ms));
  EXPECT_EQ(stored("a"), Value(1));
  EXPECT_EQ(stored("c"), Value());
}

TEST_F(KeptSet, CanBeDroppedFromNowOn) {
  holdElsewhere(1h);
  EXPECT_FALSE(keeping.setAppValue("a", 2, kDomain));
  EXPECT_EQ(keeping.setFailedSets(Preferences::FailedSets::Drop), Preferences::FailedSets::Keep);
  EXPECT_FALSE(keeping.setAppValue("a", 3, kDomain));
  EXPECT_FALSE(keeping.setAppValue("b", 3, kDomain));
  stopHolder();
  EXPECT_TRUE(keeping.finish(0ms));
  EXPECT_EQ(stored("a"), Value(2));
  EXPECT_EQ(stored("b"), Value());
}

TEST_F(KeptSet, IsDistinguishedFromTheOneItIsStoredWith) {
  struct Witness : ChangeObserver {
    void willChange(std::string_view) override {}
    void didChange(std::string_view, const DomainChange& change) override {
      for (const auto& entry : change.kept) stored.push_back(entry.key);
    }
    void didKeep(std::string_view, const KeyChanges& changes) override {
      for (const KeyChange& each : changes) kept.push_back(each.key);
    }
    std::vector<std::string> kept, stored;
  } witness;
  keeping.setChangeObserver(&witness);
  holdElsewhere(1h);
  EXPECT_FALSE(keeping.setAppValue("a", 2, kDomain));
  EXPECT_FALSE(keeping.setAppValue("b", 2, kDomain));
  stopHolder();
  EXPECT_TRUE(keeping.setAppValue("c", 2, kDomain));
  EXPECT_THAT(witness.kept, ElementsAre("a", "b"));
  EXPECT_THAT(witness.stored, ElementsAre("a", "b"));
}

TEST_F(KeptSet, IsStoredWithTheNextOne) {
  holdElsewhere(1h);
  EXPECT_FALSE(keeping.setAppValue("a", 2, kDomain));
  EXPECT_FALSE(keeping.setAppValue("a", 3, kDomain));
  stopHolder();
  storeElsewhere("theirs", 4);
  EXPECT_TRUE(keeping.setAppValue("b", 5, kDomain));
  EXPECT_EQ(stored("a"), Value(3));
  EXPECT_EQ(stored("b"), Value(5));
  EXPECT_EQ(stored("theirs"), Value(4));
}

TEST_F(KeptSet, MayBeARemoval) {
  holdElsewhere(1h);
  EXPECT_FALSE(keeping.setAppValue("a", Value(), kDomain));
  EXPECT_FALSE(keeping.copyAppValue("a", kDomain));
  EXPECT_THAT(keeping.copyKeyList(kDomain), testing::IsEmpty());
  stopHolder();
  EXPECT_TRUE(keeping.synchronize());
  EXPECT_EQ(stored("a"), Value());
}

TEST_F(KeptSet, DelaysTheNextOneNoMore) {
  holdElsewhere(1h);
  EXPECT_FALSE(keeping.setAppValue("a", 2, kDomain));
  const auto start = Clock::now();
  for (int round = 0; round < 5; ++round) {
    EXPECT_FALSE(keeping.setAppValue("a", round, kDomain));
    EXPECT_FALSE(keeping.synchronize());
  }
  EXPECT_LT(Clock::now() - start, kPatience);
}

TEST_F(KeptSet, IsDroppedOnceTheFileIsDamaged) {
  EXPECT_EQ(keeping.copyAppValue("a", kDomain), Value(1));
  holdElsewhere(1h);
  EXPECT_FALSE(keeping.setAppValue("a", 2, kDomain));
  folder.write(kFile, "garbage");
  stopHolder();
  const auto finished = keeping.finish(0ms);
  ASSERT_FALSE(finished);
  EXPECT_EQ(finished.error().kind, platform::ErrorKind::Damaged);
  EXPECT_FALSE(keeping.unfinished());
  EXPECT_EQ(keeping.copyAppValue("a", kDomain), Value(1));
  EXPECT_EQ(folder.contents(kFile), "garbage");
  EXPECT_THAT(problems, ElementsAre(finished.error().message()));
}

TEST_F(KeptSet, IsNotOneThatCanNeverBeStored) {
  Value tooDeep = 1;
  for (int depth = 0; depth < 1'000; ++depth) tooDeep = plist::Array{tooDeep};
  EXPECT_FALSE(keeping.setAppValue("a", tooDeep, kDomain));
  EXPECT_FALSE(keeping.unfinished());
  EXPECT_EQ(keeping.copyAppValue("a", kDomain), Value(1));
  EXPECT_TRUE(keeping.synchronize());
  EXPECT_THAT(problems, ElementsAre(testing::HasSubstr("can't be stored")));
}

TEST_F(DomainLock, FailedSetIsDroppedUnlessItIsToBeKept) {
  holdElsewhere(1h);
  EXPECT_FALSE(patient.setAppValue("a", 2, kDomain));
  EXPECT_EQ(patient.copyAppValue("a", kDomain), Value(1));
  EXPECT_FALSE(patient.unfinished());
  const auto failed = patient.takeFailedSet();
  ASSERT_TRUE(failed);
  EXPECT_EQ(failed->message(), held());
  EXPECT_FALSE(patient.takeFailedSet());
}

TEST_F(DomainLock, IsWaitedForUntilItIsReleased) {
  holdElsewhere(100ms);
  Preferences slow(root, 30s);
  EXPECT_TRUE(slow.setAppValue("a", 2, kDomain));
  EXPECT_EQ(stored("a"), Value(2));
}

TEST_F(DomainLock, IsNotNeededForReading) {
  holdElsewhere(1h);
  EXPECT_EQ(stored("a"), Value(1));
  ASSERT_TRUE(patient.appSynchronize(kDomain));
}

}  // namespace
}  // namespace foundation::test
