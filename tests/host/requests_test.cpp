#include <gmock/gmock.h>

#include "tests/host/sample_settings.h"

namespace {

using host::Call;
using host::RefusalCode;
using sample::events;
using sample::refusalOf;
using sample::Settings;
using testing::ElementsAre;

// As the extension's process would.
void storeElsewhere(Settings& settings, std::string_view key, const plist::Value& value) {
  foundation::DeviceRoot root(settings.folder.path());
  foundation::Preferences elsewhere(root);
  ASSERT_TRUE(elsewhere.setAppValue(key, value, sample::kDomain));
  ASSERT_TRUE(elsewhere.synchronize());
}

TEST(Requests, ActivationIsPostedInProcess) {
  Settings settings;
  std::vector<std::string> posted;
  settings.center.setWitness(
      [&](const auto& notification) { posted.push_back(notification.name); });
  ASSERT_TRUE(settings.application.perform(host::Activate{}));
  EXPECT_THAT(posted, ElementsAre("UIApplicationDidBecomeActiveNotification"));
}

TEST(Requests, WhatOthersStoredIsSeenOnActivation) {
  Settings settings;
  storeElsewhere(settings, "text", "theirs");
  EXPECT_TRUE(settings.stored("text").isNothing());
  ASSERT_TRUE(settings.application.perform(host::Activate{}));
  EXPECT_EQ(settings.stored("text"), plist::Value("theirs"));
}

TEST(Requests, WhatOthersStoredIsSeenOnReload) {
  Settings settings;
  storeElsewhere(settings, "text", "theirs");
  ASSERT_TRUE(settings.application.perform(host::Reload{}));
  EXPECT_EQ(settings.row("text").propertyForKey("value"), plist::Value("theirs"));
}

TEST(Requests, WhatOthersStoredIsSeenByAPageThatOpens) {
  Settings settings;
  storeElsewhere(settings, "switch", true);
  ASSERT_TRUE(settings.application.perform(host::Tap{"link"}));
  EXPECT_EQ(settings.row("switch").propertyForKey("value"), plist::Value(true));
}

TEST(Requests, ReloadMakesNewRows) {
  Settings settings;
  const auto before = settings.row("switch").shared_from_this();
  ASSERT_TRUE(settings.application.perform(host::Reload{}));
  EXPECT_NE(&settings.row("switch"), before.get());
  EXPECT_TRUE(settings.row("switch").isBuilt());
}

TEST(Requests, CallRunsAnOperationAndGivesItsResult) {
  Settings settings;
  const auto result = settings.application.perform(Call{"echo:object:", {5, plist::Value()}});
  ASSERT_TRUE(result);
  EXPECT_EQ(*result, plist::Value(plist::Array{5, "nil"}));
}

TEST(Requests, CallTakesARowByItsIdOnlyWhereAnObjectIsWanted) {
  Settings settings;
  const auto result = settings.application.perform(Call{"echo:object:", {"switch", "slider"}});
  ASSERT_TRUE(result);
  EXPECT_EQ(*result, plist::Value(plist::Array{"switch", "PSSpecifier"}));
}

TEST(Requests, CallThatThePageHasNotOrThatDoesNotFit) {
  Settings settings;
  EXPECT_EQ(refusalOf(settings.application.perform(Call{"nothing"})), RefusalCode::BadRequest);
  EXPECT_EQ(refusalOf(settings.application.perform(Call{"echo:object:"})), RefusalCode::BadRequest);
  EXPECT_EQ(refusalOf(settings.application.perform(Call{"echo:object:", {1, "nothing"}})),
            RefusalCode::BadRequest);
}

TEST(Requests, RowsThatACallDroppedAreBuiltAgain) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(Call{"reloadSpecifiers"}));
  EXPECT_TRUE(settings.row("switch").isBuilt());
}

TEST(Requests, CallOfAPlatformOperation) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(Call{"viewWillAppear:", {true}}));
  EXPECT_THAT(events, ElementsAre("First viewWillAppear", "First has cells"));
}

}  // namespace
