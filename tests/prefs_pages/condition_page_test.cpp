#include "prefs/pages/option_pages.h"
#include "tests/prefs_pages/pages_bundle.h"

namespace {

using namespace pages_test;
using Page = Opened<prefs::ConditionsListController>;

const uikit::Color kTint{0.20392156862745098, 0.28627450980392155, 0.3686274509803922, 1.0};

void clearTints(Page& opened) {
  for (const char* row : {"firewhenbattery", "fireat"})
    opened.row(row).control()->tintColor.reset();
}

TEST(ConditionsPage, TintsBothControlsFromATenthOfASecondAfterItIsShown) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  opened.device.queue.advance(kTenthOfASecond - foundation::Nanoseconds(1));
  EXPECT_EQ(opened.row("fireat").control()->tintColor, std::nullopt);
  opened.device.queue.advance(foundation::Nanoseconds(1));
  EXPECT_EQ(opened.row("firewhenbattery").control()->tintColor, kTint);
  EXPECT_EQ(opened.row("fireat").control()->tintColor, kTint);
  EXPECT_EQ(kTint.hex(), "#34495E");
}

TEST(ConditionsPage, TintsAgainWhenTheApplicationBecomesActive) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  opened.device.queue.advance(kTenthOfASecond);
  clearTints(opened);
  opened.activate();
  EXPECT_EQ(opened.row("firewhenbattery").control()->tintColor, kTint);
  EXPECT_EQ(opened.row("fireat").control()->tintColor, kTint);
}

TEST(ConditionsPage, IsNotTintedByAnActivationAfterItDisappeared) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  opened.page->viewWillDisappear(false);
  opened.activate();
  EXPECT_EQ(opened.row("fireat").control()->tintColor, std::nullopt);
}

TEST(ConditionsPage, ChangingAValueDoesNotTint) {
  Page opened;
  opened.build();
  opened.page->setSegmentColor();
  clearTints(opened);
  opened.change("firewhenbattery", 1);
  opened.change("fireat", 1);
  EXPECT_EQ(opened.row("firewhenbattery").control()->tintColor, std::nullopt);
  EXPECT_EQ(opened.row("fireat").control()->tintColor, std::nullopt);
}

TEST(ConditionsPage, TintsOnlyThoseTwo) {
  Page opened;
  opened.build();
  const auto before = opened.row("fireincall").control()->tintColor;
  opened.row("fireincall").control()->tintColor.reset();
  opened.page->setSegmentColor();
  EXPECT_EQ(opened.row("fireincall").control()->tintColor, std::nullopt);
  EXPECT_EQ(before, kTint);  // the switch cell's own
}

TEST(ConditionsPage, NeverDimsARow) {
  Page opened;
  opened.build();
  opened.page->setSegmentColor();
  for (auto& row : opened.page->specifiers()) EXPECT_TRUE(looksEnabled(*row->cellObject()));
}

TEST(ConditionsPage, AMissingControlIsSkipped) {
  Page opened;
  opened.page->setSegmentColor();
  opened.page->buildRow(opened.row("fireat"));
  opened.page->setSegmentColor();
  EXPECT_EQ(opened.row("fireat").control()->tintColor, kTint);
}

TEST(ConditionsPage, HasNoSetterOfItsOwn) {
  Page opened;
  EXPECT_EQ(opened.page->operations().find("setValue:forSpecifier:"), nullptr);
  EXPECT_EQ(opened.page->operations().find("setSliderEnableDisable"), nullptr);
  for (auto& row : opened.page->specifiers()) EXPECT_EQ(row->textForKey("set"), "");
}

TEST(ConditionsPage, StoresThroughThePlatformsSetterWithoutAFlush) {
  Page opened;
  opened.build();
  EXPECT_FALSE(opened.flushes([&] { opened.change("firewhenbattery", 2); }));
  EXPECT_EQ(opened.stored("firewhenbattery"), plist::Value(2));
  EXPECT_EQ(opened.device.darwin.posted, std::vector<std::string>{"com.zorvek.quorvantis.prefs"});
}

TEST(ConditionsPage, ScrollingDoesNotTint) {
  Page opened;
  opened.build();
  opened.page->scrollViewDidScroll(nullptr);
  EXPECT_EQ(opened.row("fireat").control()->tintColor, std::nullopt);
}

TEST(ConditionsPage, TheScheduledTaskHoldsThePageUntilItHasRun) {
  Page opened;
  opened.page->viewWillAppear(false);
  const std::weak_ptr<foundation::Object> life = opened.page;
  opened.page.reset();
  EXPECT_FALSE(life.expired());
  opened.device.queue.advance(kTenthOfASecond);
  EXPECT_TRUE(life.expired());
}

}  // namespace
