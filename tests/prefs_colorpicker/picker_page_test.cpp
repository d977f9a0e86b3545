#include "tests/prefs_colorpicker/picker_fixture.h"

namespace {

using namespace picker;
using PickerPage = Page;

TEST_F(PickerPage, ShowsAGroupedTableThatItFeedsItself) {
  open(row());
  uikit::TableView& table = *page->table();
  EXPECT_EQ(table.style, uikit::TableStyle::Grouped);
  EXPECT_EQ(table.source, page.get());
  EXPECT_EQ(table.rowHeight, 44);
  EXPECT_EQ(table.frame, (uikit::Rect{0, 20, 320, 460}));
}

TEST_F(PickerPage, FillsATabletsScreen) {
  environment.idiom = uikit::Idiom::Tablet;
  open(row());
  EXPECT_EQ(page->table()->frame, (uikit::Rect{0, 20, 768, 1004}));
}

TEST_F(PickerPage, HasNoTableBeforeItsViewIsLoaded) {
  prefs::ZorvekColorPickerQuorvantis unloaded(environment);
  EXPECT_EQ(unloaded.table(), nullptr);
  unloaded.setCustomColorNotifyTweak("#112233", true);
  EXPECT_TRUE(events.empty());
}

TEST_F(PickerPage, IsTitledByTheRowThatOpenedIt) {
  open(row());
  EXPECT_EQ(page->title, "Charge color");
}

TEST_F(PickerPage, TakesTheSettingFromTheRow) {
  open(row({{"default", "#FF9500"}}));
  EXPECT_EQ(page->prefKey, kKey);
  EXPECT_EQ(page->defaultColor, plist::Value("#FF9500"));
  EXPECT_EQ(page->appID, prefs::kDomain);
  EXPECT_EQ(page->notificationKey, kPost);
  EXPECT_EQ(page->refreshPreviewNotificationKey, kPreview);
}

TEST_F(PickerPage, LeavesUnsetWhatTheRowDoesNotSay) {
  open({{"label", "Bare"}});
  EXPECT_FALSE(page->prefKey || page->appID || page->notificationKey ||
               page->refreshPreviewNotificationKey || page->selectedIndexPath == kNone);
  EXPECT_TRUE(page->defaultColor.isNothing());
  EXPECT_TRUE(page->selectedColor.isNothing());
}

TEST_F(PickerPage, CanBeOpenedWithoutARow) {
  page = std::make_shared<prefs::ZorvekColorPickerQuorvantis>(environment);
  page->loadView();
  page->viewDidLoad();
  show(kCustomOnScreen);
  EXPECT_TRUE(ticked(kCustom));
  tap(kMocha);
  EXPECT_TRUE(events.empty());
}

TEST_F(PickerPage, AllowsAutomaticUnlessTheRowSaysOtherwise) {
  open(row());
  EXPECT_TRUE(page->allowAutomatic);
  open(row({{"allowAutomatic", false}}));
  EXPECT_FALSE(page->allowAutomatic);
  open(row({{"allowAutomatic", true}}));
  EXPECT_TRUE(page->allowAutomatic);
  open(row({{"allowAutomatic", "NO"}}));
  EXPECT_FALSE(page->allowAutomatic);
}

TEST_F(PickerPage, IgnoresThatAutomaticIsNotAllowed) {
  store("none");
  open(row({{"allowAutomatic", false}}));
  EXPECT_EQ(page->table()->rowCount(), 61);
  EXPECT_TRUE(ticked(kNone));
}

TEST_F(PickerPage, ReadsTheStoredColorRatherThanTheDefault) {
  store("#FF9500");
  open(row({{"default", "none"}}));
  EXPECT_EQ(page->selectedColor, plist::Value("#FF9500"));
}

TEST_F(PickerPage, SynchronisesBeforeItReads) {
  store("#FF9500");
  EXPECT_EQ(device.preferences.copyAppValue(kKey, prefs::kDomain), plist::Value("#FF9500"));
  store("#007AFF");
  open(row());
  EXPECT_EQ(page->selectedColor, plist::Value("#007AFF"));
}

TEST_F(PickerPage, TakesTheDefaultWhileNothingIsStored) {
  open(row({{"default", "#34495F"}}));
  EXPECT_EQ(page->selectedColor, plist::Value("#34495F"));
}

TEST_F(PickerPage, LoadingAgainKeepsTheColorWhileNothingIsStored) {
  open(row({{"default", "#34495F"}}));
  page->selectedColor = "#FF9500";
  page->viewDidLoad();
  EXPECT_EQ(page->selectedColor, plist::Value("#FF9500"));
  store("#007AFF");
  page->viewDidLoad();
  EXPECT_EQ(page->selectedColor, plist::Value("#007AFF"));
}

TEST_F(PickerPage, ReadsNothingWithoutAKey) {
  store("#FF9500");
  open(rowWithout("key", {{"default", "none"}}));
  EXPECT_EQ(page->selectedColor, plist::Value("none"));
}

TEST_F(PickerPage, ReadsNothingWithoutADomain) {
  store("#FF9500");
  open(rowWithout("defaults", {{"default", "none"}}));
  EXPECT_EQ(page->selectedColor, plist::Value("none"));
}

TEST_F(PickerPage, TakesAStoredValueAsItIs) {
  openWith(5);
  EXPECT_EQ(page->selectedColor, plist::Value(5));
}

TEST_F(PickerPage, ReadsTheStoreOnceAndNoMore) {
  openWith("#FF9500");
  store("#007AFF");
  page->table()->reloadData();
  EXPECT_EQ(page->selectedColor, plist::Value("#FF9500"));
  EXPECT_FALSE(ticked(kSystemBlue));
}

TEST_F(PickerPage, ChangesNothingByOpening) {
  open(row({{"default", "#34495F"}}), kCustomOnScreen);
  EXPECT_TRUE(stored().isNothing());
  EXPECT_TRUE(events.empty());
}

TEST_F(PickerPage, HasASectionForEachPalette) {
  open(row());
  uikit::TableView& table = *page->table();
  const std::pair<const char*, int> expected[] = {
      {"Special", 2}, {"iOS Palette", 10}, {"Crayons", 48}, {"Custom", 1}};
  ASSERT_EQ(page->numberOfSectionsInTableView(table), 4);
  for (int section = 0; section < 4; ++section) {
    EXPECT_EQ(page->tableViewTitleForHeaderInSection(table, section), expected[section].first);
    EXPECT_EQ(page->tableViewNumberOfRowsInSection(table, section), expected[section].second);
  }
  EXPECT_EQ(table.rowCount(), 61);
}

TEST_F(PickerPage, IsTallOnlyInTheCustomRow) {
  open(row());
  uikit::TableView& table = *page->table();
  for (auto path : {kNone, kTheme, kSystemBlue, kSnow, kMocha})
    EXPECT_EQ(page->tableViewHeightForRowAtIndexPath(table, path), 44);
  EXPECT_EQ(page->tableViewHeightForRowAtIndexPath(table, kCustom), 130);
}

TEST_F(PickerPage, HasNoRowBeyondItsPalettes) {
  open(row());
  uikit::TableView& table = *page->table();
  for (uikit::IndexPath path : {uikit::IndexPath{4, 0}, {-1, 0}, {0, 2}, {1, -1}, {3, 1}}) {
    EXPECT_EQ(page->tableViewCellForRowAtIndexPath(table, path), nullptr);
    tap(path);
  }
  EXPECT_EQ(page->tableViewTitleForHeaderInSection(table, 4), "");
  EXPECT_EQ(page->tableViewNumberOfRowsInSection(table, -1), 0);
  EXPECT_TRUE(events.empty());
  EXPECT_TRUE(stored().isNothing());
}

TEST_F(PickerPage, IsDestroyedWithItsViews) {
  openWith("none", kCustomOnScreen);
  std::weak_ptr<foundation::Object> watch = page;
  page.reset();
  EXPECT_TRUE(watch.expired());
}

}  // namespace
