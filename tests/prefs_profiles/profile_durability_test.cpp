#include "tests/platform_foundation/system_calls.h"
#include "tests/prefs_profiles/profile_page.h"

namespace {

using namespace prefs;
using plist::Value;
using Calls = std::vector<std::string>;

const Calls kStored = {"fsync *", "rename * com.zorvek.quorvantis.plist"};
const std::string kFlushed = "fsync Preferences";

class ProfileDurability : public profiles_test::ProfilePage {
 protected:
  ProfileDurability() {
    seed::profile(device, "5");
    device.store("wifi", 1);
    calls().log.clear();
  }
  static foundation::test::SystemCalls& calls() { return foundation::test::systemCalls(); }
};

TEST_F(ProfileDurability, ASaveMakesTheFileDurableBeforeTheDomainThatNamesIt) {
  choose("Save", "Battery 7%");
  EXPECT_EQ(calls().log, (Calls{"fsync *", "rename * profile_7.qvx", "fsync Quorvantis", kStored[0],
                                kStored[1], kFlushed}));
}

TEST_F(ProfileDurability, ALoadFlushesTheSettingsAndThenTheSwitch) {
  choose("Load", "Battery 5%");
  EXPECT_EQ(calls().log,
            (Calls{kStored[0], kStored[1], kFlushed, kStored[0], kStored[1], kFlushed}));
}

TEST_F(ProfileDurability, ADeleteIsDurable) {
  choose("Delete", "Battery 5%");
  EXPECT_EQ(calls().log, Calls{"fsync Quorvantis"});
}

TEST_F(ProfileDurability, SettingTheSwitchFlushesResettingARowDoesNot) {
  page->resetSpecifierWithValue("profileactive", 0.0f);
  EXPECT_EQ(calls().log, kStored);
  calls().log.clear();
  page->setProfileActive(true);
  EXPECT_EQ(calls().log, (Calls{kStored[0], kStored[1], kFlushed}));
}

TEST_F(ProfileDurability, WhatAnotherProcessStoresDuringASaveIsOverwritten) {
  calls().atNextFsync = [this] {
    device.store("wifi", 2);
    device.store("unknown", 1);
  };
  choose("Save", "Battery 7%");
  EXPECT_EQ(device.stored("wifi"), Value(1)) << "as in the snapshot";
  EXPECT_EQ(device.stored("unknown"), Value(1)) << "not in the snapshot, so left as it is";
  EXPECT_EQ(*device.profile("7").find("wifi"), Value(1));
}

}  // namespace
