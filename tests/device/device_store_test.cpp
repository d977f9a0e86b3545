// What the host does with settings that can't be stored or flushed at once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "host/application.h"
#include "host/device.h"
#include "tests/services/temporary_folder.h"

using host::Severity;
using plist::Value;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr char kDomain[] = "com.zorvek.quorvantis";
constexpr auto kSecond = std::chrono::seconds(1);

class DeviceStore : public testing::Test {
 protected:
  explicit DeviceStore(bool realTime = true) {
    host::DeviceOptions options{.root = folder_.path.string()};
    options.lockPatience = std::chrono::milliseconds(0);
    options.realTime = realTime;
    auto queue = std::make_unique<foundation::ManualQueue>();
    clock_ = queue.get();
    device_ = std::make_unique<host::Device>(options, std::move(queue),
                                             host::Substitutes{.darwinCenter = &posted_});
    device_->setProblemHandler(
        [this](const host::Problem& problem) { notices_.push_back(problem.message()); },
        [this](const host::Problem& problem) { std::erase(notices_, problem.message()); });
  }

  foundation::Preferences& preferences() { return device_->preferences(); }
  Value stored() {
    return foundation::Preferences(device_->root()).copyAppValue("a", kDomain).value_or(Value());
  }
  std::filesystem::path file(const std::string& name) const {
    return folder_.path / "var/mobile/Library/Preferences" / name;
  }
  // A folder in place of the lock file: nobody can take the lock.
  std::filesystem::path lock() const { return file(".com.zorvek.quorvantis.plist.lock"); }
  void forbid() {
    std::filesystem::remove(lock());
    std::filesystem::create_directories(lock());
  }

  struct Posted : platform::DarwinNotificationCenter {
    void post(std::string_view name) override { names.emplace_back(name); }
    std::vector<std::string> names;
  };

  TemporaryFolder folder_;
  Posted posted_;
  foundation::ManualQueue* clock_ = nullptr;
  std::unique_ptr<host::Device> device_;
  std::vector<std::string> notices_;
};

struct DeviceStoreWithoutTime : DeviceStore {
  DeviceStoreWithoutTime() : DeviceStore(false) {}
};

TEST_F(DeviceStore, FlushesASetWithinASecond) {
  EXPECT_TRUE(preferences().setAppValue("a", 1, kDomain));
  EXPECT_TRUE(preferences().unfinished());
  clock_->advance(kSecond);
  EXPECT_FALSE(preferences().unfinished());
}

TEST_F(DeviceStore, StoresASetOnceTheFaultHasGoneAndWithdrawsItsNotice) {
  forbid();
  EXPECT_FALSE(preferences().setAppValue("a", 1, kDomain));
  EXPECT_EQ(preferences().copyAppValue("a", kDomain), Value(1));
  clock_->advance(10 * kSecond);
  EXPECT_EQ(stored(), Value());
  EXPECT_THAT(notices_, ElementsAre(HasSubstr("lock")));
  EXPECT_THAT(posted_.names, IsEmpty());

  std::filesystem::remove(lock());
  clock_->advance(kSecond);
  EXPECT_EQ(stored(), Value(1));
  EXPECT_THAT(notices_, IsEmpty());
  EXPECT_FALSE(preferences().unfinished());
  EXPECT_THAT(posted_.names, ElementsAre("com.zorvek.quorvantis.prefs"));
}

// The device reports it as it happens, and whoever asked for the change as what came of it.
TEST_F(DeviceStore, AFailureThatIsReportedTwiceIsShownOnceAndGoesOnce) {
  host::Application application(device_->environment(), 40);
  device_->setProblemHandler([&](const host::Problem& problem) { application.report(problem); },
                             [&](const host::Problem& problem) { application.withdraw(problem); });
  forbid();
  const auto set = preferences().setAppValue("a", 1, kDomain);
  ASSERT_FALSE(set);
  application.report(host::failureOf(host::Source::Settings, set.error()).problem);
  ASSERT_EQ(application.problems().size(), 1u);
  EXPECT_EQ(
      application.problems().front().file,
      std::filesystem::canonical(lock().parent_path()).string() + "/" + lock().filename().string());
  std::filesystem::remove(lock());
  clock_->advance(kSecond);
  EXPECT_THAT(application.problems(), IsEmpty());
}

TEST_F(DeviceStore, TriesASetOnceMoreAtTheEndAndSaysWhatBecameOfIt) {
  forbid();
  EXPECT_FALSE(preferences().setAppValue("a", 1, kDomain));
  const auto failed = device_->finish();
  ASSERT_FALSE(failed);
  EXPECT_EQ(failed.error().reason, host::Failure::Failed);
  std::filesystem::remove(lock());
  EXPECT_TRUE(device_->finish());
  EXPECT_EQ(stored(), Value(1));
}

TEST_F(DeviceStore, SaysTheWayOutOfDamageAndWithdrawsThatWhenTheFileIsMended) {
  EXPECT_TRUE(preferences().setAppValue("a", 1, kDomain));
  const auto domain = file("com.zorvek.quorvantis.plist"), good = file("good");
  std::filesystem::rename(domain, good);
  std::ofstream(domain) << "no property list";
  EXPECT_FALSE(preferences().setAppValue("a", 2, kDomain));
  EXPECT_THAT(notices_, ElementsAre(HasSubstr("repair --restore")));
  std::filesystem::rename(good, domain);
  EXPECT_TRUE(preferences().synchronize());
  EXPECT_THAT(notices_, IsEmpty());
  EXPECT_EQ(stored(), Value(1));
  EXPECT_FALSE(preferences().unfinished());
}

TEST_F(DeviceStoreWithoutTime, KeepsNoSetThatFailed) {
  forbid();
  EXPECT_FALSE(preferences().setAppValue("a", 1, kDomain));
  std::filesystem::remove(lock());
  clock_->advance(10 * kSecond);
  EXPECT_EQ(stored(), Value());
  EXPECT_TRUE(device_->finish());
  EXPECT_EQ(stored(), Value());
}

TEST_F(DeviceStoreWithoutTime, FlushesAtItsEnd) {
  EXPECT_TRUE(preferences().setAppValue("a", 1, kDomain));
  clock_->advance(10 * kSecond);
  EXPECT_TRUE(preferences().unfinished());
  EXPECT_TRUE(device_->finish());
  EXPECT_FALSE(preferences().unfinished());
}

}  // namespace
