#include "prefs/pages/switch_cells.h"
#include "tests/prefs_pages/pages_bundle.h"

namespace {

template <class Cell>
struct Made {
  preferences::PSSpecifier row{preferences::CellType::PSSwitchCell,
                               plist::Dictionary{{"id", "profileactive"}, {"label", "Active"}}};
  Cell cell{uikit::CellStyle::Value1, "reuse", row};
  const uikit::Switch& control = dynamic_cast<uikit::Switch&>(*cell.control());
};

TEST(SwitchCell, OnTintAndTintAreSlate) {
  Made<prefs::QuorvantisSwitchTableCell> made;
  const uikit::Color slate{52 / 255.0, 73 / 255.0, 94 / 255.0, 1.0};
  EXPECT_EQ(made.control.onTintColor, slate);
  EXPECT_EQ(made.control.tintColor, slate);
  EXPECT_EQ(slate.hex(), "#34495E");
}

TEST(SwitchCell, NothingElseOfItsLookIsChanged) {
  Made<prefs::QuorvantisSwitchTableCell> made;
  EXPECT_EQ(made.control.backgroundColor, std::nullopt);
  EXPECT_EQ(made.control.layer.cornerRadius, std::nullopt);
}

TEST(ProfileActiveSwitchCell, OnTintIsGreen) {
  Made<prefs::QuorvantisProfileActiveSwitchTableCell> made;
  EXPECT_EQ(made.control.onTintColor,
            (uikit::Color{46 / 255.0, 204 / 255.0, 113 / 255.0, 180 / 255.0}));
  EXPECT_EQ(made.control.onTintColor->hex(), "#2ECC71");
}

TEST(ProfileActiveSwitchCell, BackgroundIsRed) {
  Made<prefs::QuorvantisProfileActiveSwitchTableCell> made;
  EXPECT_EQ(made.control.backgroundColor,
            (uikit::Color{231 / 255.0, 76 / 255.0, 60 / 255.0, 180 / 255.0}));
  EXPECT_EQ(made.control.backgroundColor->hex(), "#E74C3C");
}

TEST(ProfileActiveSwitchCell, BothColorsCarryTheSameAlpha) {
  Made<prefs::QuorvantisProfileActiveSwitchTableCell> made;
  EXPECT_EQ(made.control.onTintColor->alpha, 180 / 255.0);
  EXPECT_EQ(made.control.backgroundColor->alpha, 180 / 255.0);
}

TEST(ProfileActiveSwitchCell, CornerRadiusIsSixteen) {
  Made<prefs::QuorvantisProfileActiveSwitchTableCell> made;
  EXPECT_EQ(made.control.layer.cornerRadius, 16.0);
}

TEST(ProfileActiveSwitchCell, TintIsLeftAsThePlatforms) {
  Made<prefs::QuorvantisProfileActiveSwitchTableCell> made;
  EXPECT_EQ(made.control.tintColor, std::nullopt);
}

const uikit::Switch& switchOf(preferences::PSListController& page, const char* id) {
  return dynamic_cast<const uikit::Switch&>(*page.specifierForID(id)->control());
}

// On the page of a list, and again when the row is redrawn.
TEST(SwitchCell, IsSlateOnEveryOptionPageAndAfterARedraw) {
  int switches = 0;
  const uikit::Color slate = uikit::Color::fromBytes(52, 73, 94);
  for (const std::string& name : pages_test::kPageNames) {
    testing_support::TestDevice device(prefs::bundle());
    const auto page = std::dynamic_pointer_cast<preferences::PSListController>(
        prefs::bundle().pageClass(name)->create(device.environment));
    for (const auto& row : page->specifiers()) {
      if (row->cellType() != preferences::CellType::PSSwitchCell) continue;
      const char* id = row->identifier().c_str();
      page->buildRow(*row);
      EXPECT_EQ(switchOf(*page, id).tintColor, slate) << name << " " << id;
      page->reloadSpecifier(row.get());
      EXPECT_EQ(switchOf(*page, id).tintColor, slate) << name << " " << id;
      EXPECT_EQ(switchOf(*page, id).onTintColor, slate) << name << " " << id;
      ++switches;
    }
  }
  EXPECT_EQ(switches, 11);
}

TEST(ProfileActiveSwitchCell, IsRoundAndGreenOnRedOnTheProfilePageAndAfterARedraw) {
  testing_support::TestDevice device(prefs::bundle());
  const auto page = std::dynamic_pointer_cast<preferences::PSListController>(
      prefs::bundle().pageClass("ProfilesListController")->create(device.environment));
  const auto row = page->specifierForID("profileactive");
  page->buildRow(*row);
  for (int drawn = 0; drawn < 2; ++drawn, page->reloadSpecifier(row)) {
    const uikit::Switch& control = switchOf(*page, "profileactive");
    EXPECT_EQ(control.layer.cornerRadius, 16.0);
    EXPECT_EQ(control.onTintColor, uikit::Color::fromBytes(46, 204, 113, 180));
    EXPECT_EQ(control.backgroundColor, uikit::Color::fromBytes(231, 76, 60, 180));
    EXPECT_EQ(control.tintColor, std::nullopt);
  }
}

TEST(SwitchCell, ShowsTheRowsValueAndTitle) {
  Made<prefs::QuorvantisSwitchTableCell> made;
  made.row.setPropertyForKey(1, "value");
  made.cell.refreshCellContents();
  EXPECT_TRUE(made.control.isOn());
  EXPECT_EQ(made.cell.textLabel.text, "Active");
  EXPECT_EQ(made.cell.className(), "QuorvantisSwitchTableCell");
}

}  // namespace
