#include "prefs/profiles/profile_settings.h"

#include <gtest/gtest.h>

#include "tests/support/profile_table.h"

namespace {

using namespace prefs;
using testing_support::kProfileTable;

TEST(ProfileKeys, AreTheFiftyInOrder) {
  const auto keys = profileKeys();
  ASSERT_EQ(keys.size(), 50u);
  ASSERT_EQ(std::size(kProfileTable), 50u);
  for (std::size_t i = 0; i < keys.size(); ++i) EXPECT_EQ(keys[i], kProfileTable[i].key) << i;
}

TEST(ProfileDefaults, AreTheTableWithItsKinds) {
  for (const auto& [key, standard] : kProfileTable)
    EXPECT_EQ(profileDefault(key).value_or(plist::Value()), standard) << key;
}

TEST(ProfileDefaults, HoldAnEntryUnderTheOddSpellingOnly) {
  EXPECT_EQ(profileDefault("autoupdates"), std::nullopt);
  EXPECT_EQ(profileDefault("autoupdatess"), plist::Value(0));
}

TEST(ProfileDefaults, HoldNothingElse) {
  EXPECT_EQ(profileDefault("profilepercentage"), std::nullopt);
  EXPECT_EQ(profileDefault("enabled"), std::nullopt);
  EXPECT_EQ(profileDefault(""), std::nullopt);
}

}  // namespace
