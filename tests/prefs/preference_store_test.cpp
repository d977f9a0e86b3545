#include "prefs/core/preference_store.h"

#include <gtest/gtest.h>

#include "prefs/core/names.h"
#include "tests/platform_foundation/system_calls.h"
#include "tests/platform_preferences/sample_device.h"

namespace {

using namespace prefs;

class PreferenceStore : public testing::Test {
 protected:
  std::optional<plist::Value> onDisk(std::string_view key, std::string_view domain) {
    foundation::Preferences another(device.root);
    return another.copyAppValue(key, domain);
  }
  sample::Device device;
};

TEST_F(PreferenceStore, PageWriteStoresPostsRedrawsAndFlushes) {
  auto page = device.page();
  auto* row = page->specifierForID("switch");
  page->buildRow(*row);
  auto* before = row->cellObject();
  before->tag = 77;
  (void)device.preferences.setAppValue("another", 1, "test.domain");
  auto& calls = foundation::test::systemCalls();
  calls.log.clear();
  calls.atNextFsync = [&] {
    EXPECT_EQ(row->cellObject()->tag, 77) << "stored before it is redrawn";
    calls.atNextFsync = [&] { EXPECT_EQ(row->cellObject()->tag, 0) << "redrawn before the flush"; };
  };
  pageWrite(*page, device.preferences, true, row);
  EXPECT_EQ(calls.log, (std::vector<std::string>{"fsync *", "rename * test.domain.plist",
                                                 "fsync Preferences"}));
  EXPECT_EQ(onDisk("switch", "test.domain"), plist::Value(true));
  EXPECT_EQ(device.darwin.posted, std::vector<std::string>{"changed"});
  EXPECT_EQ(row->cellObject()->tag, 0) << "the row was made anew";
  EXPECT_TRUE(static_cast<uikit::Switch*>(row->control())->isOn());
}

TEST_F(PreferenceStore, SingleValueReadSynchronisesFirst) {
  (void)device.preferences.copyAppValue("color", "test.domain");
  foundation::Preferences another(device.root);
  (void)another.setAppValue("color", "#FFFFFF", "test.domain");
  EXPECT_EQ(singleValueRead(device.preferences, "color", "test.domain"), plist::Value("#FFFFFF"));
}

TEST_F(PreferenceStore, SingleValueReadWantsKeyAndDomain) {
  (void)device.preferences.setAppValue("color", "none", "test.domain");
  EXPECT_FALSE(singleValueRead(device.preferences, std::nullopt, "test.domain"));
  EXPECT_FALSE(singleValueRead(device.preferences, "color", std::nullopt));
  EXPECT_FALSE(singleValueRead(device.preferences, "absent", "test.domain"));
}

// Writes down what is posted where, and what the store held then.
struct Witness {
  explicit Witness(sample::Device& device) {
    device.center.setWitness([this, &device](const foundation::Notification& notification) {
      EXPECT_EQ(notification.object, nullptr);
      note("local " + notification.name, device);
    });
  }
  void note(const std::string& what, sample::Device& device) {
    foundation::Preferences another(device.root);
    auto value = another.copyAppValue("color", "test.domain");
    seen.push_back(what + (value ? " " + *value->text() : ""));
  }
  std::vector<std::string> seen;
};

struct WitnessedDarwin : platform::DarwinNotificationCenter {
  WitnessedDarwin(Witness& witness, sample::Device& device) : witness(witness), device(device) {}
  void post(std::string_view name) override { witness.note("darwin " + std::string(name), device); }
  Witness& witness;
  sample::Device& device;
};

class SingleValueWriteTest : public PreferenceStore {
 protected:
  std::vector<std::string> write(const SingleValueWrite& what) {
    Witness witness(device);
    WitnessedDarwin darwin(witness, device);
    auto& own = device.environment;
    preferences::Environment environment{
        own.root, own.preferences, own.defaultCenter, own.mainQueue, darwin,    own.collator,
        own.urls, own.addressBook, own.sounds,        own.xml,       own.bundle};
    singleValueWriteWithNotification(environment, what, "none");
    device.center.setWitness(nullptr);
    return witness.seen;
  }
};

TEST_F(SingleValueWriteTest, StoresThenPostsInProcessThenAcross) {
  EXPECT_EQ(write({"color", "test.domain", "preview", "post"}),
            (std::vector<std::string>{"local preview none", "darwin post none"}));
}

// Notes a cross-process post among the system calls.
struct LoggingDarwin : platform::DarwinNotificationCenter {
  void post(std::string_view name) override {
    foundation::test::systemCalls().log.push_back("darwin " + std::string(name));
  }
};

TEST_F(SingleValueWriteTest, FlushesBeforeItsTwoPosts) {
  auto& log = foundation::test::systemCalls().log;
  write({"color", "test.domain", {}, {}});  // makes the folders and the file
  device.center.setWitness(
      [&](const foundation::Notification& posted) { log.push_back("local " + posted.name); });
  LoggingDarwin darwin;
  auto& own = device.environment;
  preferences::Environment environment{
      own.root, own.preferences, own.defaultCenter, own.mainQueue, darwin,    own.collator,
      own.urls, own.addressBook, own.sounds,        own.xml,       own.bundle};
  log.clear();
  singleValueWriteWithNotification(environment, {"color", "test.domain", "preview", "post"},
                                   "none");
  EXPECT_EQ(log, (std::vector<std::string>{"fsync *", "rename * test.domain.plist",
                                           "fsync Preferences", "local preview", "darwin post"}));
}

TEST_F(SingleValueWriteTest, WithoutNotificationsStoresAndPostsNothing) {
  EXPECT_TRUE(write({"color", "test.domain", {}, {}}).empty());
  EXPECT_EQ(onDisk("color", "test.domain"), plist::Value("none"));
}

TEST_F(SingleValueWriteTest, WithoutADomainOnlyPosts) {
  EXPECT_EQ(write({"color", {}, "preview", "post"}),
            (std::vector<std::string>{"local preview", "darwin post"}));
}

TEST_F(PreferenceStore, WholeDomainReadHoldsEveryKey) {
  foundation::Preferences another(device.root);
  (void)another.setAppValue("a", 1, kDomain);
  (void)another.setAppValue("b", 2.5f, kDomain);
  auto all = wholeDomainRead(device.preferences);
  EXPECT_EQ(all.size(), 2u);
  EXPECT_EQ(*all.find("b"), plist::Value(2.5f));
}

TEST_F(PreferenceStore, WholeDomainReadOfAMissingDomainIsEmpty) {
  EXPECT_TRUE(wholeDomainRead(device.preferences).empty());
}

TEST_F(PreferenceStore, WholeDomainWriteLeavesAbsentKeysAndRemovesNothing) {
  (void)device.preferences.setAppValue("stays", "here", kDomain);
  (void)device.preferences.setAppValue("kind", 1, kDomain);
  (void)wholeDomainWrite(device.preferences, {{"kind", 1.0}, {"new", true}});
  EXPECT_EQ(onDisk("stays", kDomain), plist::Value("here"));
  EXPECT_EQ(onDisk("kind", kDomain), plist::Value(1.0));
  EXPECT_EQ(onDisk("new", kDomain), plist::Value(true));
  EXPECT_TRUE(device.darwin.posted.empty());
}

}  // namespace
