#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <random>

#include "tests/platform_foundation/preferences_fixture.h"

namespace foundation::test {
namespace {

using plist::Value;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using DomainProcesses = PreferencesTest;

std::string keyOf(int process, int index) {
  return "key" + std::to_string(process) + "-" + std::to_string(index);
}

// Each process has keys that nobody else sets. It sets them in turn, and before it sets one again
// looks whether the value of the last round is still there: so not one set can be lost unseen.
bool setAndCheck(Preferences& preferences, int process, int sets, int keys) {
  for (int number = 0; number < sets; ++number) {
    const std::string key = keyOf(process, number % keys);
    if (number >= keys) {
      const plist::Dictionary found = preferences.copyMultiple({key}, kDomain);
      if (!found.find(key) || *found.find(key) != Value(number - keys)) return false;
    }
    if (!preferences.setAppValue(key, number, kDomain)) return false;
  }
  return true;
}

TEST_F(DomainProcesses, SetsOfDifferentKeysAtTheSameTimeAreNeverLost) {
  constexpr int kProcesses = 4, kSets = 500, kKeys = 25;
  std::vector<pid_t> processes;
  for (int process = 0; process < kProcesses; ++process) {
    processes.push_back(
        startProcess([&] { return setAndCheck(preferences, process, kSets, kKeys); }));
  }
  for (const pid_t process : processes) EXPECT_TRUE(succeeded(process));
  for (int process = 0; process < kProcesses; ++process) {
    for (int number = kSets - kKeys; number < kSets; ++number) {
      EXPECT_EQ(stored(keyOf(process, number % kKeys)), Value(number));
    }
  }
  EXPECT_EQ(preferences.copyKeyList(kDomain).size(), std::size_t{kProcesses * kKeys});
  EXPECT_THAT(otherNames(), IsEmpty());
}

[[noreturn]] void setForEver(Preferences& preferences) {
  const std::string filler(200'000, 'x');
  for (int number = 0;; ++number) {
    if (!preferences.setMultiple({{"a", number}, {"filler", filler}, {"b", number}}, {}, kDomain)) {
      _exit(1);
    }
  }
}

TEST_F(DomainProcesses, KilledWriterLeavesAWholeFile) {
  std::mt19937 random(1);
  for (int round = 0; round < 40; ++round) {
    const pid_t writer = startProcess([&]() -> bool { setForEver(preferences); });
    usleep(std::uniform_int_distribution<useconds_t>(0, 20'000)(random));
    kill(writer, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(writer, &status, 0), writer);
    ASSERT_TRUE(WIFSIGNALED(status));

    Preferences reader(root);
    ASSERT_TRUE(reader.appSynchronize(kDomain));
    ASSERT_EQ(reader.copyAppValue("a", kDomain), reader.copyAppValue("b", kDomain));
  }
}

TEST_F(DomainProcesses, NextSetRemovesWhatAKilledWriterLeft) {
  storeElsewhere("a", 1);
  const std::string leftover = std::string(kFolder) + "/.com.zorvek.quorvantis.plist.";
  folder.write(leftover + "0123456789abcdef", "half");
  folder.write(leftover + "0123456789abcdeg", "someone else's");
  folder.write(std::string(kFolder) + "/.com.other.plist.0123456789abcdef", "being written");
  ASSERT_TRUE(preferences.setAppValue("a", 2, kDomain));
  EXPECT_THAT(otherNames(), ElementsAre(".com.other.plist.0123456789abcdef",
                                        ".com.zorvek.quorvantis.plist.0123456789abcdeg"));
}

TEST_F(DomainProcesses, ReaderNeverSeesHalfAFile) {
  ASSERT_TRUE(preferences.setMultiple({{"a", 1}, {"b", 1}}, {}, kDomain));
  const pid_t writer = startProcess([&]() -> bool { setForEver(preferences); });
  for (Value last = 1; last.integer() < 200;) {
    const plist::Dictionary read = preferences.copyMultiple({"a", "b"}, kDomain);
    ASSERT_TRUE(read.find("a"));
    last = *read.find("a");
    ASSERT_TRUE(read.find("b") && *read.find("b") == last);
  }
  kill(writer, SIGKILL);
  waitpid(writer, nullptr, 0);
  EXPECT_THAT(problems, IsEmpty());
}

}  // namespace
}  // namespace foundation::test
