#include <gmock/gmock.h>

#include "platform/preferences/PSListItemsController.h"
#include "tests/host/sample_settings.h"

namespace {

using host::RefusalCode;
using sample::events;
using sample::refusalOf;
using testing::ElementsAre;

TEST(Navigation, NothingIsShownBeforeALaunch) {
  sample::Device device;
  host::Application application(device.environment, 12);
  EXPECT_EQ(application.shownPage(), nullptr);
  EXPECT_EQ(application.shownList(), nullptr);
  EXPECT_EQ(application.shownTable(), nullptr);
  EXPECT_EQ(refusalOf(application.perform(host::Open{"Second", {}})), RefusalCode::NoPage);
  EXPECT_EQ(refusalOf(application.perform(host::Back{})), RefusalCode::NoPage);
  EXPECT_EQ(refusalOf(application.perform(host::Scroll{0})), RefusalCode::NoPage);
  EXPECT_EQ(refusalOf(application.perform(host::Reload{})), RefusalCode::NoPage);
  EXPECT_EQ(refusalOf(application.perform(host::Call{"act"})), RefusalCode::NoPage);
  EXPECT_EQ(refusalOf(application.perform(host::Bar{})), RefusalCode::NoPage);
  EXPECT_EQ(refusalOf(application.perform(host::Set{"switch", true})), RefusalCode::NoRow);
  ASSERT_TRUE(application.perform(host::Activate{}));
  EXPECT_EQ(refusalOf(application.perform(host::Layout{})), RefusalCode::NoPage);
}

TEST(Navigation, LaunchShowsThePrincipalPageAndMakesItsRowsLast) {
  sample::Device device;
  host::Application application(device.environment, 12);
  ASSERT_TRUE(application.perform(host::Launch{}));
  EXPECT_THAT(events, ElementsAre("First loadView", "First viewDidLoad from nowhere",
                                  "First viewWillAppear", "First has no cells"));
  EXPECT_EQ(application.shownPage()->title, "First Page");
  EXPECT_TRUE((*application.row("switch"))->isBuilt());
}

TEST(Navigation, LaunchOfAnotherPage) {
  sample::Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Launch{"Second"}));
  EXPECT_EQ(settings.application.shownPage()->className(), "Second");
  EXPECT_EQ(settings.application.pages().size(), 1u);
}

TEST(Navigation, LaunchOfAnUnknownPageChangesNothing) {
  sample::Settings settings;
  EXPECT_EQ(refusalOf(settings.application.perform(host::Launch{"Nowhere"})), RefusalCode::NoPage);
  EXPECT_EQ(settings.application.shownPage()->className(), "First");
  EXPECT_THAT(events, ElementsAre());
}

TEST(Navigation, SecondLaunchStartsAnew) {
  sample::Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"link"}));
  auto* before = settings.application.pages().front().get();
  ASSERT_TRUE(settings.application.perform(host::Launch{}));
  EXPECT_EQ(settings.application.pages().size(), 1u);
  EXPECT_NE(settings.application.shownPage(), before);
  EXPECT_THAT(events, testing::Contains("Second viewWillDisappear at once"));
}

TEST(Navigation, LinkRowPushesItsPageWhichIsLoadedBeforeTheOldOneDisappears) {
  sample::Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"link"}));
  EXPECT_THAT(events, ElementsAre("Second loadView", "Second viewDidLoad from link",
                                  "First viewWillDisappear", "Second viewWillAppear",
                                  "Second has no cells"));
  EXPECT_EQ(settings.application.shownPage()->title, "link");
  EXPECT_EQ(settings.application.shownPage()->parent(), settings.application.pages()[0].get());
}

TEST(Navigation, PushedPageIsOpenedFromTheVeryRow) {
  sample::Settings settings;
  auto* row = &settings.row("link");
  ASSERT_TRUE(settings.application.perform(host::Tap{"link"}));
  EXPECT_EQ(settings.application.shownPage()->specifier(), row);
}

TEST(Navigation, LinkToAnUnknownClassIsRefused) {
  sample::Settings settings;
  EXPECT_EQ(refusalOf(settings.application.perform(host::Tap{"nowhere"})), RefusalCode::NoPage);
  EXPECT_EQ(settings.application.pages().size(), 1u);
}

TEST(Navigation, BackDestroysThePageAfterTheOneBelowAppears) {
  sample::Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"link"}));
  settings.queue.advance(std::chrono::milliseconds(100));  // what is deferred holds the page
  events.clear();
  ASSERT_TRUE(settings.application.perform(host::Back{}));
  EXPECT_THAT(events, ElementsAre("Second viewWillDisappear", "First viewWillAppear",
                                  "First has cells", "Second dealloc"));
}

TEST(Navigation, NoBackFromTheFirstPage) {
  sample::Settings settings;
  EXPECT_EQ(refusalOf(settings.application.perform(host::Back{})), RefusalCode::NoPage);
  EXPECT_EQ(settings.application.pages().size(), 1u);
}

TEST(Navigation, OpenGivesThePageARowOfTheseProperties) {
  sample::Settings settings;
  ASSERT_TRUE(
      settings.application.perform(host::Open{"Second", {{"label", "From afar"}, {"key", "k"}}}));
  EXPECT_EQ(settings.application.shownPage()->title, "From afar");
  EXPECT_EQ(settings.application.shownPage()->specifier()->textForKey("key"), "k");
  EXPECT_TRUE(settings.application.shownPage()->specifier()->propertyForKey("default").isNothing());
}

TEST(Navigation, OpenOfAnUnknownPage) {
  sample::Settings settings;
  EXPECT_EQ(refusalOf(settings.application.perform(host::Open{"Nowhere", {}})),
            RefusalCode::NoPage);
}

TEST(Navigation, ChoicesOpenOnlyFromARowOfAList) {
  sample::Settings settings;
  EXPECT_EQ(refusalOf(settings.application.perform(host::Launch{"PSListItemsController"})),
            RefusalCode::BadRequest);
  ASSERT_TRUE(settings.application.perform(host::Tap{"table"}));
  EXPECT_EQ(refusalOf(settings.application.perform(host::Open{"PSListItemsController", {}})),
            RefusalCode::BadRequest);
}

TEST(Navigation, BrokenListIsReportedInItsLoadError) {
  sample::Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Open{"Broken", {}}));
  ASSERT_NE(settings.application.shownList(), nullptr);
  EXPECT_THAT(settings.application.shownList()->loadError(), testing::StartsWith("Broken: "));
  EXPECT_EQ(refusalOf(settings.application.perform(host::Scroll{0})), RefusalCode::BadValue);
}

TEST(Navigation, ObserverIsNotifiedOfChanges) {
  sample::Settings settings;
  int changes = 0;
  settings.application.setObserver([&] { ++changes; });
  ASSERT_TRUE(settings.application.perform(host::Tap{"link"}));
  EXPECT_GT(changes, 0);
}

}  // namespace
