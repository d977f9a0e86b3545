#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform_foundation/preferences_fixture.h"

namespace foundation::test {
namespace {

using plist::Value;

struct HeldSets : PreferencesTest {
  std::optional<Value> onDisk(std::string_view key) {
    Preferences another(root);
    return another.copyAppValue(key, kDomain);
  }
  std::optional<Value> seen(std::string_view key) { return preferences.copyAppValue(key, kDomain); }
};

TEST_F(HeldSets, AreSeenHereAndNotOnDisk) {
  preferences.hold();
  EXPECT_TRUE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_TRUE(preferences.appSynchronize(kDomain));
  EXPECT_EQ(seen("a"), Value(1));
  EXPECT_EQ(onDisk("a"), std::nullopt);
}

TEST_F(HeldSets, AreAllStoredByTheRelease) {
  ASSERT_TRUE(preferences.setAppValue("gone", 1, kDomain));
  preferences.hold();
  EXPECT_TRUE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_TRUE(preferences.setAppValue("b", 2, kDomain));
  EXPECT_TRUE(preferences.setAppValue("gone", Value(), kDomain));
  EXPECT_TRUE(preferences.release());
  EXPECT_EQ(onDisk("a"), Value(1));
  EXPECT_EQ(onDisk("b"), Value(2));
  EXPECT_EQ(onDisk("gone"), std::nullopt);
  EXPECT_FALSE(preferences.unfinished());
}

TEST_F(HeldSets, AreForgottenWhenTheyAreDropped) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  preferences.hold();
  EXPECT_TRUE(preferences.setAppValue("a", 2, kDomain));
  preferences.drop();
  EXPECT_EQ(seen("a"), Value(1));
  EXPECT_TRUE(preferences.setAppValue("b", 1, kDomain)) << "is stored at once again";
  EXPECT_EQ(onDisk("a"), Value(1));
  EXPECT_EQ(onDisk("b"), Value(1));
}

TEST_F(HeldSets, AreDroppedWhereTheReleaseFails) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.synchronize());
  preferences.hold();
  EXPECT_TRUE(preferences.setAppValue("a", 2, kDomain));
  folder.write(kFile, "bplist00 garbage that is longer than the shortest property list");
  const auto released = preferences.release();
  ASSERT_FALSE(released);
  EXPECT_EQ(released.error().kind, platform::ErrorKind::Damaged);
  EXPECT_EQ(seen("a"), Value(1));
  EXPECT_FALSE(preferences.unfinished());
}

TEST_F(HeldSets, KeepWhatAnotherProcessStoresMeanwhile) {
  preferences.hold();
  EXPECT_TRUE(preferences.setAppValue("a", 1, kDomain));
  Preferences another(root);
  ASSERT_TRUE(another.setAppValue("theirs", 5, kDomain));
  EXPECT_TRUE(preferences.release());
  EXPECT_EQ(onDisk("a"), Value(1));
  EXPECT_EQ(onDisk("theirs"), Value(5));
}

TEST_F(HeldSets, WithoutASetNothingIsWritten) {
  preferences.hold();
  EXPECT_TRUE(preferences.release());
  EXPECT_FALSE(root.exists(kFile));
}

}  // namespace
}  // namespace foundation::test
