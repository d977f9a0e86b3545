#include "tests/prefs_colorpicker/picker_fixture.h"

namespace {

using namespace picker;
using PickerRows = Page;

TEST_F(PickerRows, AreCellsWithANameAboveASmallerText) {
  openWith("none");
  uikit::TableViewCell& made = *cell(kSystemBlue);
  EXPECT_EQ(made.style, uikit::CellStyle::Subtitle);
  EXPECT_EQ(made.reuseIdentifier, "ColorSwatchCell");
  EXPECT_TRUE(made.opaque);
  EXPECT_EQ(made.selectionStyle, uikit::SelectionStyle::None);
  EXPECT_EQ(made.textLabel.fontSize, 14);
  EXPECT_EQ(made.textLabel.textColor, (uikit::Color{0, 0, 0, 1}));
  EXPECT_EQ(made.detailTextLabel.fontSize, 10);
  EXPECT_EQ(made.detailTextLabel.textColor, (uikit::Color{0.7, 0.7, 0.7, 1}));
}

TEST_F(PickerRows, ShowNameHexAndSwatchOfAColor) {
  openWith("none");
  EXPECT_EQ(cell(kSystemBlue)->textLabel.text, "System Blue");
  EXPECT_EQ(detail(kSystemBlue), "#007AFF");
  EXPECT_EQ(swatch(kSystemBlue), "#007AFF");
  EXPECT_EQ(cell(kSystemBlue)->imageView.image->size, (uikit::Size{48, 24}));
}

TEST_F(PickerRows, ShowEveryEntryOfThePalettesInOrder) {
  openWith("none");
  int first = 0;
  for (int section = 0; section < 4; ++section) {
    const int rows = page->tableViewNumberOfRowsInSection(*page->table(), section);
    const auto palette = page->palettes()[section];
    for (int row = 0; row < rows; ++row, ++first) {
      show(std::min(first, kCustomOnScreen));
      const auto& entry = (*palette.dictionary()->find("colors")->array())[row];
      const std::string& hex = *entry.dictionary()->find("hex")->text();
      EXPECT_EQ(cell({section, row})->textLabel.text, *entry.dictionary()->find("name")->text());
      if (section == 1 || section == 2) {
        EXPECT_EQ(detail({section, row}), hex);
        EXPECT_EQ(swatch({section, row}), hex);
      }
    }
  }
  EXPECT_EQ(first, 61);
}

TEST_F(PickerRows, OfTheSpecialPaletteHaveACaptionAndNoSwatch) {
  openWith("#007AFF");
  EXPECT_EQ(cell(kNone)->textLabel.text, "None");
  EXPECT_EQ(detail(kNone), "*default color");
  EXPECT_EQ(cell(kTheme)->textLabel.text, "Quorvantis");
  EXPECT_EQ(detail(kTheme), "*quorvantis theme color");
  EXPECT_FALSE(cell(kNone)->imageView.image || cell(kTheme)->imageView.image);
}

TEST_F(PickerRows, HaveABorderOnlyAroundSnow) {
  openWith("none");
  for (int first = 0; first < 60; first += kViewport) {
    show(first);
    for (int row = first; row < first + kViewport; ++row) {
      auto path = page->table()->pathOfRow(row);
      EXPECT_EQ(border(path), path == kSnow ? 1 : 0) << path.section << "." << path.row;
    }
  }
  show(12);
  EXPECT_EQ(cell(kSnow)->imageView.layer.borderColor, (uikit::Color{0.8, 0.8, 0.8, 1}));
}

TEST_F(PickerRows, AreTickedWhereTheHexIsTheCurrentColor) {
  openWith("#007AFF");
  for (int row = 0; row < kViewport; ++row) {
    auto path = page->table()->pathOfRow(row);
    EXPECT_EQ(ticked(path), path == kSystemBlue);
  }
  EXPECT_EQ(page->selectedIndexPath, kSystemBlue);
}

TEST_F(PickerRows, TickTheSpecialRowsToo) {
  openWith("none");
  EXPECT_TRUE(ticked(kNone));
  openWith("#34495F");
  EXPECT_TRUE(ticked(kTheme));
  EXPECT_FALSE(ticked(kNone));
}

TEST_F(PickerRows, KnowTheTickedRowOnlyOnceItWasOnScreen) {
  openWith("#FF2D55", 20);
  EXPECT_FALSE(page->selectedIndexPath);
  show(0);
  EXPECT_EQ(page->selectedIndexPath, (uikit::IndexPath{1, 4}));
}

TEST_F(PickerRows, WithNothingStoredTickTheDefault) {
  open(row({{"default", "none"}}));
  EXPECT_TRUE(ticked(kNone));
  EXPECT_EQ(detail(kNone), "*default color");
  show(kCustomOnScreen);
  EXPECT_EQ(detail(kCustom), "none");
  EXPECT_EQ(swatch(kCustom), "#000000");
  EXPECT_FALSE(ticked(kCustom));
  EXPECT_EQ(page->selectedIndexPath, kNone);
}

TEST_F(PickerRows, TickTheCustomRowForAColorOfNoPalette) {
  openWith("#FF9501", kCustomOnScreen);
  EXPECT_TRUE(ticked(kCustom));
  EXPECT_EQ(detail(kCustom), "#FF9501");
  EXPECT_EQ(swatch(kCustom), "#FF9501");
  EXPECT_EQ(page->selectedIndexPath, kCustom);
}

TEST_F(PickerRows, TickTheCustomRowForLowerCase) {
  openWith("#007aff");
  EXPECT_FALSE(ticked(kSystemBlue));
  show(kCustomOnScreen);
  EXPECT_TRUE(ticked(kCustom));
  EXPECT_EQ(detail(kCustom), "#007aff");
  EXPECT_EQ(swatch(kCustom), "#007AFF");
}

TEST_F(PickerRows, TickTheCustomRowForAnUnknownWord) {
  openWith("automatic", kCustomOnScreen);
  EXPECT_TRUE(ticked(kCustom));
  EXPECT_EQ(detail(kCustom), "automatic");
  EXPECT_EQ(swatch(kCustom), "#000000") << "no number from the second character on";
}

TEST_F(PickerRows, TickTheCustomRowForAnUnsetColor) {
  open(row());
  for (int row = 0; row < kViewport; ++row) EXPECT_FALSE(ticked(page->table()->pathOfRow(row)));
  show(kCustomOnScreen);
  EXPECT_TRUE(ticked(kCustom));
  EXPECT_FALSE(cell(kCustom)->detailTextLabel.text);
  EXPECT_EQ(swatch(kCustom), "#000000");
  EXPECT_EQ(sliders(), (std::vector<float>{0, 0, 0}));
}

TEST_F(PickerRows, ShowAStoredNumberAsItsText) {
  openWith(5, kCustomOnScreen);
  EXPECT_TRUE(ticked(kCustom));
  EXPECT_EQ(detail(kCustom), "5");
  EXPECT_EQ(swatch(kCustom), "#000000");
}

TEST_F(PickerRows, TickNothingForTheStoredWordCustom) {
  openWith("custom", kCustomOnScreen);
  EXPECT_FALSE(ticked(kCustom)) << "the word is the hex of an entry";
  EXPECT_EQ(detail(kCustom), "custom");
  EXPECT_EQ(page->selectedIndexPath, kCustom);
}

TEST_F(PickerRows, TheCustomRowHasACaptionSwatchSlidersTagAndBorder) {
  openWith("#007AFF", kCustomOnScreen);
  EXPECT_EQ(cell(kCustom)->textLabel.text, "Custom");
  EXPECT_EQ(detail(kCustom), "#007AFF");
  EXPECT_EQ(swatch(kCustom), "#007AFF");
  EXPECT_EQ(cell(kCustom)->imageView.image->size, (uikit::Size{48, 24}));
  EXPECT_EQ(sliders(), (std::vector<float>{0, 122, 255}));
  EXPECT_EQ(cell(kCustom)->tag, 205);
  EXPECT_EQ(border(kCustom), 1);
  EXPECT_EQ(cell(kCustom)->imageView.layer.borderColor, (uikit::Color{0.8, 0.8, 0.8, 1}));
  EXPECT_FALSE(ticked(kCustom));
}

TEST_F(PickerRows, TheSliderPanelIsInTheCellItself) {
  openWith("#007AFF", kCustomOnScreen);
  ASSERT_EQ(cell(kCustom)->subviews().size(), 1u);
  EXPECT_EQ(cell(kCustom)->subviews()[0]->tag, 204);
  EXPECT_TRUE(cell(kCustom)->contentView.subviews().empty());
}

TEST_F(PickerRows, OtherRowsHaveNeitherTagNorPanel) {
  openWith("#007AFF", kCustomOnScreen);
  EXPECT_EQ(cell(kMocha)->tag, 0);
  EXPECT_EQ(cell(kMocha)->viewWithTag(204), nullptr);
}

TEST_F(PickerRows, AReusedCellKeepsTheTagButNotThePanel) {
  openWith("#FF9501", kCustomOnScreen);
  uikit::TableViewCell* custom = cell(kCustom);
  show(kCustomOnScreen - 1);
  auto path = page->table()->pathOfRow(kCustomOnScreen - 1);
  ASSERT_EQ(cell(path), custom);
  EXPECT_EQ(custom->tag, 205);
  EXPECT_EQ(page->table()->viewWithTag(204), nullptr);
  EXPECT_EQ(page->table()->viewWithTag(201), nullptr);
}

TEST_F(PickerRows, AReusedCellShowsNothingOfItsEarlierUse) {
  openWith("#FF9501", kCustomOnScreen);
  uikit::TableViewCell* custom = cell(kCustom);
  custom->setUserInteractionEnabled(false);
  custom->textLabel.enabled = false;
  show(0);
  ASSERT_EQ(cell(kNone), custom);
  EXPECT_EQ(custom->textLabel.text, "None");
  EXPECT_EQ(detail(kNone), "*default color");
  EXPECT_FALSE(custom->imageView.image);
  EXPECT_EQ(border(kNone), 0);
  EXPECT_FALSE(ticked(kNone));
  EXPECT_TRUE(custom->userInteractionEnabled());
  EXPECT_TRUE(custom->textLabel.enabled);
}

TEST_F(PickerRows, TheCustomRowComesBackWithOnePanelOnly) {
  openWith("#FF9501", kCustomOnScreen);
  show(0);
  show(kCustomOnScreen);
  EXPECT_EQ(cell(kCustom)->subviews().size(), 1u);
  page->table()->reloadData();
  EXPECT_EQ(cell(kCustom)->subviews().size(), 1u);
  EXPECT_EQ(detail(kCustom), "#FF9501");
}

TEST_F(PickerRows, TheCustomRowComesBackWithTheCurrentColorNotTheDraggedOne) {
  openWith("#007AFF", kCustomOnScreen);
  slider(201)->drag(255);
  EXPECT_EQ(detail(kCustom), "#FF7AFF");
  show(0);
  show(kCustomOnScreen);
  EXPECT_EQ(detail(kCustom), "#007AFF");
  EXPECT_EQ(sliders(), (std::vector<float>{0, 122, 255}));
}

}  // namespace
