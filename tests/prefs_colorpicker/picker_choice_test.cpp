#include "tests/platform_foundation/system_calls.h"
#include "tests/prefs_colorpicker/picker_fixture.h"

namespace {

using namespace picker;
using PickerChoice = Page;
using Events = std::vector<Event>;

TEST_F(PickerChoice, TicksTheTappedRowInPlaceOfTheOther) {
  openWith("#007AFF");
  tap(kMarineBlue);
  EXPECT_FALSE(ticked(kSystemBlue));
  EXPECT_TRUE(ticked(kMarineBlue));
  EXPECT_EQ(page->selectedIndexPath, kMarineBlue);
  EXPECT_EQ(page->selectedColor, plist::Value("#34AADC"));
}

// Seen on a row that was ticked last but shows no tick: it loses the old tick, then gets the new.
TEST_F(PickerChoice, RemovesTheOldTickBeforeItSetsTheNew) {
  openWith("#007AFF");
  cell(kSystemBlue)->accessory = uikit::Accessory::None;
  tap(kSystemBlue);
  EXPECT_TRUE(ticked(kSystemBlue));
}

TEST_F(PickerChoice, IsTheSelectedColorBeforeItIsAnnounced) {
  openWith("#FF9501");
  page->table()->show(0, 61);
  std::vector<plist::Value> selected;
  device.center.setWitness(
      [&](const foundation::Notification&) { selected.push_back(page->selectedColor); });
  tap(kMocha);  // a preset, which moves the sliders
  slider(201)->drag(1);
  tap(kCustom);
  slider(201)->drag(2);
  slider(201)->endTracking();
  EXPECT_EQ(selected, (std::vector<plist::Value>{"#804000", "#014000", "#024000"}));
}

TEST_F(PickerChoice, StoresTheHexUnderTheRowsKey) {
  openWith("none");
  tap(kSystemBlue);
  EXPECT_EQ(stored(), plist::Value("#007AFF"));
}

TEST_F(PickerChoice, StoresTheSpecialWordNone) {
  openWith("#007AFF");
  tap(kNone);
  EXPECT_EQ(stored(), plist::Value("none"));
}

TEST_F(PickerChoice, StoresTheThemeColorBehindItsCaption) {
  openWith("none");
  tap(kTheme);
  EXPECT_EQ(stored(), plist::Value("#34495F"));
}

TEST_F(PickerChoice, AnnouncesInProcessThenAcrossProcessesWithTheColorInTheStore) {
  openWith("none");
  tap(kSystemBlue);
  EXPECT_EQ(events, (Events{{"local", std::string(kPreview), "#007AFF"},
                            {"darwin", std::string(kPost), "#007AFF"}}));
}

TEST_F(PickerChoice, LeavesOtherKeysAlone) {
  foundation::Preferences other(device.root);
  ASSERT_TRUE(other.setAppValue("wifi", true, prefs::kDomain));
  openWith("none");
  tap(kSystemBlue);
  EXPECT_EQ(stored("wifi"), plist::Value(true));
}

TEST_F(PickerChoice, OfTheTickedRowChangesNothingAndPostsNothing) {
  openWith("#007AFF");
  store("#FF9500");
  tap(kSystemBlue);
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(stored(), plist::Value("#FF9500"));
  EXPECT_TRUE(ticked(kSystemBlue));
}

TEST_F(PickerChoice, OfTheTickedCustomRowChangesNothingAndPostsNothing) {
  openWith("#FF9501", kCustomOnScreen);
  slider(201)->drag(1);
  tap(kCustom);
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(stored(), plist::Value("#FF9501"));
}

TEST_F(PickerChoice, OfTheDefaultStoresNothingWhileItIsTicked) {
  open(row({{"default", "none"}}));
  tap(kNone);
  EXPECT_TRUE(stored().isNothing());
  EXPECT_TRUE(events.empty());
}

TEST_F(PickerChoice, WorksWhileNoRowIsTicked) {
  openWith("#FF9501");
  EXPECT_FALSE(page->selectedIndexPath);
  tap(kSystemBlue);
  EXPECT_TRUE(ticked(kSystemBlue));
  EXPECT_EQ(stored(), plist::Value("#007AFF"));
}

TEST_F(PickerChoice, TakesTheTickFromARowThatIsOffScreen) {
  openWith("none");
  show(20);
  tap({2, 10});
  show(0);
  EXPECT_FALSE(ticked(kNone));
  show(20);
  EXPECT_TRUE(ticked({2, 10}));
  EXPECT_EQ(page->selectedIndexPath, (uikit::IndexPath{2, 10}));
}

TEST_F(PickerChoice, SurvivesScrolling) {
  openWith("none");
  tap(kSystemBlue);
  show(30);
  show(0);
  EXPECT_TRUE(ticked(kSystemBlue));
  EXPECT_FALSE(ticked(kNone));
}

TEST_F(PickerChoice, MovesTheSlidersOfTheCustomRowOnScreen) {
  openWith("none", kCustomOnScreen);
  tap(kMocha);
  EXPECT_EQ(sliders(), (std::vector<float>{0x80, 0x40, 0}));
  EXPECT_EQ(detail(kCustom), "#804000");
  EXPECT_EQ(swatch(kCustom), "#804000");
  EXPECT_FALSE(ticked(kCustom));
  EXPECT_EQ(events.size(), 2u) << "announced once";
}

TEST_F(PickerChoice, MovesTheSlidersToSystemBlue) {
  openWith("none");
  page->table()->show(0, 61);
  tap(kSystemBlue);
  EXPECT_EQ(sliders(), (std::vector<float>{0, 122, 255}));
}

TEST_F(PickerChoice, OfNoneMovesTheSlidersToBlack) {
  openWith("#007AFF");
  page->table()->show(0, 61);
  tap(kNone);
  EXPECT_EQ(sliders(), (std::vector<float>{0, 0, 0}));
  EXPECT_EQ(detail(kCustom), "#000000");
  EXPECT_EQ(stored(), plist::Value("none"));
}

TEST_F(PickerChoice, OfAPresetTakesTheTickFromTheCustomRow) {
  openWith("#FF9501", kCustomOnScreen);
  tap(kMocha);
  EXPECT_FALSE(ticked(kCustom));
  EXPECT_TRUE(ticked(kMocha));
  EXPECT_EQ(stored(), plist::Value("#804000"));
  EXPECT_EQ(events.size(), 2u);
}

// The mixed color became a preset's, whose row was made since: that row loses its tick, and the
// custom row, ticked still, stores the color that its sliders take.
TEST_F(PickerChoice, OfAPresetIsAnnouncedTwiceWhileTheCustomRowStaysTicked) {
  openWith("#007AFE", kCustomOnScreen);
  slider(203)->drag(255);
  slider(203)->endTracking();
  events.clear();
  page->tableViewCellForRowAtIndexPath(*page->table(), kSystemBlue);
  ASSERT_EQ(page->selectedIndexPath, kSystemBlue);
  tap(kMocha);
  const Event local{"local", std::string(kPreview), "#804000"};
  const Event darwin{"darwin", std::string(kPost), "#804000"};
  EXPECT_EQ(events, (Events{local, darwin, local, darwin}));
  EXPECT_TRUE(ticked(kMocha) && ticked(kCustom));
  EXPECT_EQ(page->selectedIndexPath, kMocha);
}

TEST_F(PickerChoice, OfTheCustomRowStoresItsCaption) {
  openWith("#007AFF", kCustomOnScreen);
  tap(kCustom);
  EXPECT_TRUE(ticked(kCustom));
  EXPECT_EQ(stored(), plist::Value("#007AFF"));
  EXPECT_EQ(page->selectedIndexPath, kCustom);
  EXPECT_EQ(events, (Events{{"local", std::string(kPreview), "#007AFF"},
                            {"darwin", std::string(kPost), "#007AFF"}}));
}

TEST_F(PickerChoice, OfTheCustomRowStoresTheDraggedColor) {
  openWith("#007AFF");
  page->table()->show(0, 61);
  slider(201)->drag(255);
  EXPECT_EQ(detail(kCustom), "#FF7AFF");
  EXPECT_EQ(stored(), plist::Value("#007AFF"));
  tap(kCustom);
  EXPECT_EQ(stored(), plist::Value("#FF7AFF"));
  EXPECT_FALSE(ticked(kSystemBlue));
}

TEST_F(PickerChoice, OfTheCustomRowStoresTheWordThatItShows) {
  openWith("none", kCustomOnScreen);
  tap(kCustom);
  EXPECT_EQ(stored(), plist::Value("none"));
}

TEST_F(PickerChoice, ReplacesAColorThatIsNotText) {
  openWith(5);
  tap(kSystemBlue);
  EXPECT_EQ(stored(), plist::Value("#007AFF"));
}

TEST_F(PickerChoice, IsNotStoredWithoutADomainButAnnounced) {
  open(rowWithout("defaults"));
  tap(kSystemBlue);
  EXPECT_TRUE(stored().isNothing());
  EXPECT_EQ(events,
            (Events{{"local", std::string(kPreview), {}}, {"darwin", std::string(kPost), {}}}));
  EXPECT_TRUE(ticked(kSystemBlue));
}

TEST_F(PickerChoice, IsNotStoredWithoutAKeyButAnnounced) {
  open(rowWithout("key"));
  tap(kSystemBlue);
  EXPECT_TRUE(device.preferences.copyKeyList(prefs::kDomain).empty());
  EXPECT_EQ(events.size(), 2u);
}

TEST_F(PickerChoice, SynchronisesTheDomainEvenWithoutAKey) {
  open(rowWithout("key"));
  ASSERT_TRUE(device.preferences.setAppValue("wifi", true, prefs::kDomain));
  auto& calls = foundation::test::systemCalls();
  calls.log.clear();
  tap(kSystemBlue);
  EXPECT_EQ(calls.log, std::vector<std::string>{"fsync Preferences"});
}

TEST_F(PickerChoice, IsStoredAndNotAnnouncedWithoutNotifications) {
  open({{"key", kKey}, {"defaults", prefs::kDomain}});
  tap(kSystemBlue);
  EXPECT_EQ(stored(), plist::Value("#007AFF"));
  EXPECT_TRUE(events.empty());
}

TEST_F(PickerChoice, PostsOnlyWhatTheRowNames) {
  open(rowWithout("PreviewNotification"));
  tap(kSystemBlue);
  EXPECT_EQ(events, (Events{{"darwin", std::string(kPost), "#007AFF"}}));
  events.clear();
  open(rowWithout("PostNotification"));
  tap(kMarineBlue);
  EXPECT_EQ(events, (Events{{"local", std::string(kPreview), "#34AADC"}}));
}

TEST_F(PickerChoice, IsAnnouncedWhenItCanNotBeStored) {
  open(row());
  std::filesystem::create_directories(
      device.folder.path() + "/var/mobile/Library/Preferences/com.zorvek.quorvantis.plist");
  tap(kSystemBlue);
  EXPECT_EQ(events.size(), 2u);
  EXPECT_TRUE(ticked(kSystemBlue));
}

TEST_F(PickerChoice, NotifyTweakStoresAndAnnouncesAnyColor) {
  openWith("none");
  page->notifyTweak("#123456");
  EXPECT_EQ(stored(), plist::Value("#123456"));
  EXPECT_EQ(events.size(), 2u);
  EXPECT_EQ(page->selectedColor, plist::Value("none"));
  EXPECT_TRUE(ticked(kNone));
}

TEST_F(PickerChoice, NotifyTweakRemovesTheKeyForAnUnsetColor) {
  openWith("none");
  page->notifyTweak(std::nullopt);
  EXPECT_TRUE(stored().isNothing());
  EXPECT_EQ(events.size(), 2u);
}

TEST_F(PickerChoice, OfARowOffScreenIsStored) {
  openWith("none");
  tap(kMocha);
  EXPECT_EQ(stored(), plist::Value("#804000"));
  EXPECT_FALSE(ticked(kNone));
  show(kCustomOnScreen);
  EXPECT_TRUE(ticked(kMocha));
}

}  // namespace
