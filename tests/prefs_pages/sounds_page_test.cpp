#include "prefs/pages/option_pages.h"
#include "tests/prefs_pages/pages_bundle.h"

namespace {

using namespace pages_test;
using Page = Opened<prefs::SoundsListController>;

TEST(SoundsPage, DimsTheVolumeWhileCustomVolumeIsOff) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  opened.device.queue.advance(kTenthOfASecond);
  EXPECT_TRUE(looksDimmed(opened.cell("customvolume")));
  EXPECT_EQ(opened.page->dimmingOf("customvolume").by, "customvolumeenabled");
}

TEST(SoundsPage, SwitchingCustomVolumeOnMakesTheVolumeUsableAtOnce) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  opened.change("customvolumeenabled", true);
  EXPECT_TRUE(looksEnabled(opened.cell("customvolume")));
}

TEST(SoundsPage, EvaluatesAfterEveryChange) {
  Page opened;
  opened.build();
  opened.change("ringer", 1);
  EXPECT_TRUE(looksDimmed(opened.cell("customvolume")));
}

TEST(SoundsPage, NoOtherRowIsEverDimmed) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  ASSERT_GT(opened.page->specifiers().size(), 1u);
  for (auto& row : opened.page->specifiers())
    EXPECT_EQ(looksEnabled(*row->cellObject()), row->identifier() != "customvolume");
}

TEST(SoundsPage, AMissingSwitchReadsAsOff) {
  Page opened;
  opened.page->buildRow(opened.row("customvolume"));
  opened.page->setSliderEnableDisable();
  EXPECT_TRUE(looksDimmed(opened.cell("customvolume")));
}

TEST(SoundsPage, ScrollingDoesNotEvaluate) {
  Page opened;
  opened.build();
  opened.page->scrollViewDidScroll(nullptr);
  EXPECT_TRUE(looksEnabled(opened.cell("customvolume")));
}

}  // namespace
