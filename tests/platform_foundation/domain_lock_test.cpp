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
      const auto lock = takeLock(*directory, "com.zorvek.quorvantis.plist", 0ms);
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

TEST_F(DomainLock, ThatIsHeldTooLongFailsTheFlushToo) {
  ASSERT_TRUE(patient.setAppValue("a", 2, kDomain));
  holdElsewhere(1h);
  std::vector<std::string> reported;
  patient.setProblemHandler(
      [&](const platform::Error& error) { reported.push_back(error.message()); });
  EXPECT_FALSE(patient.synchronize());
  EXPECT_THAT(reported, ElementsAre(held()));
  stopHolder();
  EXPECT_TRUE(patient.synchronize());
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
