#include "tests/prefs_colorpicker/picker_fixture.h"

namespace {

using namespace picker;
using PickerSliders = Page;

TEST_F(PickerSliders, FitAPhone) {
  openWith("#007AFF", kCustomOnScreen);
  EXPECT_EQ(page->table()->viewWithTag(204)->frame, (uikit::Rect{160, 0, 220, 130}));
  EXPECT_EQ(slider(201)->frame, (uikit::Rect{0, 20, 170, 10}));
  EXPECT_EQ(slider(202)->frame, (uikit::Rect{0, 60, 170, 10}));
  EXPECT_EQ(slider(203)->frame, (uikit::Rect{0, 100, 170, 10}));
}

TEST_F(PickerSliders, AreWiderOnATablet) {
  environment.idiom = uikit::Idiom::Tablet;
  openWith("#007AFF", kCustomOnScreen);
  EXPECT_EQ(page->table()->viewWithTag(204)->frame, (uikit::Rect{160, 0, 300, 130}));
  EXPECT_EQ(slider(201)->frame, (uikit::Rect{0, 20, 250, 10}));
  EXPECT_EQ(slider(202)->frame, (uikit::Rect{0, 60, 250, 10}));
  EXPECT_EQ(slider(203)->frame, (uikit::Rect{0, 100, 250, 10}));
}

TEST_F(PickerSliders, StandInThePanelRedThenGreenThenBlue) {
  open(row());
  auto panel = page->getSliderViewWithColor(uikit::Color::fromBytes(1, 2, 3));
  ASSERT_EQ(panel->subviews().size(), 3u);
  for (int i = 0; i < 3; ++i) {
    auto& each = dynamic_cast<uikit::Slider&>(*panel->subviews()[i]);
    EXPECT_EQ(each.tag, 201 + i);
    EXPECT_EQ(each.value(), static_cast<float>(i + 1));
  }
}

TEST_F(PickerSliders, RangeFrom0To255InTheirOwnColors) {
  openWith("#007AFF", kCustomOnScreen);
  const uikit::Color tints[] = {{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}};
  for (int i = 0; i < 3; ++i) {
    uikit::Slider& each = *slider(201 + i);
    EXPECT_EQ(each.minimumValue(), 0);
    EXPECT_EQ(each.maximumValue(), 255);
    EXPECT_TRUE(each.continuous);
    EXPECT_EQ(each.backgroundColor, (uikit::Color{0, 0, 0, 0}));
    EXPECT_EQ(each.minimumTrackTintColor, tints[i]);
    EXPECT_EQ(each.thumbTintColor, tints[i]);
  }
}

TEST_F(PickerSliders, StandExactlyAtEveryComponent) {
  open(row());
  for (int byte = 0; byte < 256; ++byte) {
    auto panel = page->getSliderViewWithColor(uikit::Color::fromBytes(byte, 0, 0));
    EXPECT_EQ(dynamic_cast<uikit::Slider&>(*panel->viewWithTag(201)).value(),
              static_cast<float>(byte));
  }
}

TEST_F(PickerSliders, ShowTheMixedColorWhileDraggedAndStoreNothing) {
  openWith("#007AFF", kCustomOnScreen);
  slider(201)->drag(127.6f);
  EXPECT_EQ(detail(kCustom), "#7F7AFF");
  EXPECT_EQ(swatch(kCustom), "#7F7AFF");
  EXPECT_EQ(cell(kCustom)->imageView.image->size, (uikit::Size{48, 24}));
  slider(202)->drag(0);
  slider(203)->drag(254.9f);
  EXPECT_EQ(detail(kCustom), "#7F00FE");
  EXPECT_EQ(stored(), plist::Value("#007AFF"));
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(page->selectedColor, plist::Value("#007AFF"));
}

TEST_F(PickerSliders, KeepTheFractionThatTheCaptionDrops) {
  openWith("#007AFF", kCustomOnScreen);
  slider(201)->drag(127.6f);
  EXPECT_EQ(slider(201)->value(), 127.6f);
}

TEST_F(PickerSliders, StoreNothingWhileDraggedOnATickedCustomRow) {
  openWith("#FF9501", kCustomOnScreen);
  slider(201)->drag(1);
  EXPECT_EQ(detail(kCustom), "#019501");
  EXPECT_EQ(stored(), plist::Value("#FF9501"));
  EXPECT_TRUE(events.empty());
}

TEST_F(PickerSliders, StoreWhenReleasedOnATickedCustomRow) {
  openWith("#FF9501", kCustomOnScreen);
  slider(201)->drag(1);
  slider(201)->endTracking();
  EXPECT_EQ(stored(), plist::Value("#019501"));
  EXPECT_EQ(page->selectedColor, plist::Value("#019501"));
  EXPECT_EQ(events, (std::vector<Event>{{"local", std::string(kPreview), "#019501"},
                                        {"darwin", std::string(kPost), "#019501"}}));
}

TEST_F(PickerSliders, StoreNothingWhenReleasedWhileAPresetIsTicked) {
  openWith("#007AFF", kCustomOnScreen);
  slider(201)->drag(255);
  slider(201)->endTracking();
  EXPECT_EQ(detail(kCustom), "#FF7AFF");
  EXPECT_EQ(stored(), plist::Value("#007AFF"));
  EXPECT_TRUE(events.empty());
}

TEST_F(PickerSliders, StoreWhenReleasedOutsideToo) {
  openWith("#FF9501", kCustomOnScreen);
  slider(203)->drag(2);
  slider(203)->sendActions(uikit::event::kTouchUpOutside);
  EXPECT_EQ(stored(), plist::Value("#FF9502"));
}

TEST_F(PickerSliders, StoreAfterTheCustomRowWasTapped) {
  openWith("#007AFF", kCustomOnScreen);
  tap(kCustom);
  slider(201)->drag(255);
  slider(201)->endTracking();
  EXPECT_EQ(stored(), plist::Value("#FF7AFF"));
  EXPECT_EQ(events.size(), 4u);
}

TEST_F(PickerSliders, StoreAPresetsColorFromTheTickedCustomRow) {
  openWith("#007AFE", kCustomOnScreen);
  slider(203)->drag(255);
  slider(203)->endTracking();
  EXPECT_EQ(stored(), plist::Value("#007AFF"));
  show(0);
  EXPECT_TRUE(ticked(kSystemBlue));
  show(kCustomOnScreen);
  EXPECT_FALSE(ticked(kCustom)) << "made anew, the row is ticked for colors of no palette only";
}

TEST_F(PickerSliders, DriveAnUnsetColor) {
  open(row(), kCustomOnScreen);
  slider(202)->drag(16);
  slider(202)->endTracking();
  EXPECT_EQ(stored(), plist::Value("#001000"));
}

TEST_F(PickerSliders, AreMovedByAGivenColor) {
  openWith("#FF9501", kCustomOnScreen);
  page->setCustomColorNotifyTweak("#102030", false);
  EXPECT_EQ(sliders(), (std::vector<float>{0x10, 0x20, 0x30}));
  EXPECT_EQ(detail(kCustom), "#102030");
  EXPECT_EQ(swatch(kCustom), "#102030");
  EXPECT_TRUE(events.empty());
  page->setCustomColorNotifyTweak("#102031", true);
  EXPECT_EQ(stored(), plist::Value("#102031"));
}

TEST_F(PickerSliders, ShowAGivenColorInUpperCase) {
  openWith("#FF9501", kCustomOnScreen);
  page->setCustomColorNotifyTweak("#abcdef", false);
  EXPECT_EQ(detail(kCustom), "#ABCDEF");
}

TEST_F(PickerSliders, DoNothingWhileTheCustomRowIsOffScreen) {
  openWith("#FF9501", kCustomOnScreen);
  show(0);
  EXPECT_EQ(slider(201), nullptr);
  page->setCustomColorNotifyTweak("#102030", true);
  page->sliderAction(nullptr);
  page->sliderDidEndSliding(nullptr);
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(detail(kNone), "*default color");
  EXPECT_EQ(page->selectedColor, plist::Value("#FF9501"));
}

TEST_F(PickerSliders, DoNothingWhenOneOfThemIsMissing) {
  openWith("#FF9501", kCustomOnScreen);
  for (int tag : {201, 202, 203}) {
    page->table()->reloadData();
    slider(tag)->removeFromSuperview();
    page->setCustomColorNotifyTweak("#102030", true);
    EXPECT_EQ(detail(kCustom), "#FF9501");
  }
  EXPECT_TRUE(events.empty());
}

// The cell is found by its tag, and a cell that the row left behind still carries it: the lowest
// row's counts, and that is the custom row.
TEST_F(PickerSliders, ShowTheirColorOnTheCustomRowThoughAnotherCellKeptItsTag) {
  openWith("#007AFF", kCustomOnScreen);
  for (int first : {40, 45, kCustomOnScreen}) show(first);
  const uikit::IndexPath left{2, 44};
  ASSERT_EQ(cell(left)->tag, 205);
  ASSERT_EQ(cell(kCustom)->tag, 205);
  const auto before = detail(left);
  slider(201)->drag(255);
  EXPECT_EQ(detail(left), before);
  EXPECT_EQ(detail(kCustom), "#FF7AFF");
}

TEST_F(PickerSliders, ShowTheirColorOnTheCustomRowThoughANewerCellKeptItsTag) {
  openWith("#007AFF", kCustomOnScreen);
  uikit::TableViewCell* first = cell(kCustom);
  for (int row = 40; row <= kCustomOnScreen; ++row) show(row);
  // The tall row takes the place of several, which come back while it is still in sight.
  const int left = 52;
  ASSERT_EQ(cell(page->table()->pathOfRow(left)), first);
  page->table()->show(left + 1, 60 - left);
  page->table()->show(left, 61 - left);
  ASSERT_EQ(cell(page->table()->pathOfRow(left)), first);
  ASSERT_EQ(first->tag, 205);
  const auto before = first->detailTextLabel.text;
  slider(201)->drag(255);
  EXPECT_EQ(first->detailTextLabel.text, before);
  EXPECT_EQ(detail(kCustom), "#FF7AFF");
}

TEST_F(PickerSliders, StoreWhenReleasedOnATickedCustomRowAfterAReload) {
  openWith("#FF7AFF", kCustomOnScreen);
  page->table()->reloadData();
  slider(202)->drag(127.6f);
  slider(202)->endTracking();
  EXPECT_EQ(detail(kCustom), "#FF7FFF");
  EXPECT_EQ(page->selectedColor, plist::Value("#FF7FFF"));
}

}  // namespace
