#include <gtest/gtest.h>

#include "platform/preferences/PSListController.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantisLinkCell.h"
#include "prefs/core/names.h"
#include "tests/platform_foundation/system_calls.h"
#include "tests/support/environment.h"

namespace {

using prefs::ZorvekColorPickerQuorvantisLinkCell;

constexpr std::string_view kKey = "chargecolor";

struct SettingsPage : preferences::PSListController {
  using PSListController::PSListController;
  std::string_view className() const override { return "SettingsPage"; }
};

constexpr preferences::CellClass kCells[] = {
    {"ZorvekColorPickerQuorvantisLinkCell",
     [](uikit::CellStyle style, std::string reuseIdentifier,
        preferences::PSSpecifier& specifier) -> std::shared_ptr<preferences::PSTableCell> {
       return std::make_shared<ZorvekColorPickerQuorvantisLinkCell>(
           style, std::move(reuseIdentifier), specifier);
     }}};

plist::Dictionary row(std::initializer_list<plist::Dictionary::Entry> more) {
  plist::Dictionary row{{"cell", "PSLinkCell"},
                        {"cellClass", "ZorvekColorPickerQuorvantisLinkCell"},
                        {"id", "color"},
                        {"label", "Charge color"}};
  for (const auto& [key, value] : more) row.set(key, value);
  return row;
}

// A settings page with one color row.
class LinkCell : public testing::Test {
 protected:
  void store(const plist::Value& value) {
    foundation::Preferences other(device_.root);
    ASSERT_TRUE(other.setAppValue(kKey, value, prefs::kDomain));
  }

  void build(const plist::Dictionary& properties) {
    bytes_ = *plist::writeBinary(
        plist::Dictionary{{"title", "Colors"}, {"items", plist::Array{properties}}});
    lists_[0].bytes = bytes_;
    page_ = std::make_shared<SettingsPage>(device_.environment);
    page_->viewDidLoad();
    auto* specifier = page_->specifierForID("color");
    page_->buildRow(*specifier);
    cell = dynamic_cast<ZorvekColorPickerQuorvantisLinkCell*>(specifier->cellObject());
    ASSERT_NE(cell, nullptr);
  }
  void buildWithDefault(const plist::Value& standard) {
    build(row({{"key", kKey}, {"defaults", prefs::kDomain}, {"default", standard}}));
  }
  void buildStored(const plist::Value& value) {
    store(value);
    build(row({{"key", kKey}, {"defaults", prefs::kDomain}}));
  }

  std::string swatch() {
    return cell->thumbnailView->hidden ? "(hidden)" : cell->thumbnailView->image->color.hex();
  }
  std::string label() {
    return cell->valueLabel->hidden ? "(hidden)" : cell->valueLabel->text.value_or("(unset)");
  }

  ZorvekColorPickerQuorvantisLinkCell* cell = nullptr;

 private:
  std::vector<std::uint8_t> bytes_;
  preferences::ListResource lists_[1] = {{"SettingsPage", {}}};
  preferences::Bundle bundle_{"SettingsPage", {}, kCells, lists_};

 protected:
  testing_support::TestDevice device_{bundle_};
  std::shared_ptr<SettingsPage> page_;
};

TEST_F(LinkCell, HasTheTitleOfItsSetting) {
  buildStored("#007AFF");
  EXPECT_EQ(cell->textLabel.text, "Charge color");
}

TEST_F(LinkCell, IsMadeWithBothViewsHidden) {
  buildStored("#007AFF");
  ZorvekColorPickerQuorvantisLinkCell made(uikit::CellStyle::Value1, "PSLinkCell",
                                           cell->specifier());
  EXPECT_TRUE(made.valueLabel->hidden);
  EXPECT_EQ(made.valueLabel->frame, (uikit::Rect{0, 0, 100, 32}));
  EXPECT_EQ(made.valueLabel->fontSize, 12);
  EXPECT_EQ(made.valueLabel->textColor, (uikit::Color{0.8, 0.8, 0.8, 1}));
  EXPECT_EQ(made.valueLabel->alignment, uikit::TextAlignment::Right);
  EXPECT_TRUE(made.thumbnailView->hidden);
  EXPECT_EQ(made.thumbnailView->frame, (uikit::Rect{0, 0, 24, 24}));
  EXPECT_EQ(made.thumbnailView->layer.borderColor, (uikit::Color{0.8, 0.8, 0.8, 1}));
  EXPECT_FALSE(made.thumbnailView->layer.borderWidth) << "set by the layout";
  EXPECT_FALSE(made.selectedColor) << "read by the layout";
  ASSERT_EQ(made.contentView.subviews().size(), 2u);
  EXPECT_EQ(made.contentView.subviews()[0], made.valueLabel);
  EXPECT_EQ(made.contentView.subviews()[1], made.thumbnailView);
}

TEST_F(LinkCell, ShowsASwatchOfTheStoredColor) {
  buildStored("#007AFF");
  EXPECT_EQ(swatch(), "#007AFF");
  EXPECT_EQ(cell->thumbnailView->image->size, (uikit::Size{24, 24}));
  EXPECT_EQ(cell->thumbnailView->layer.borderWidth, 0);
  EXPECT_EQ(label(), "(hidden)");
  EXPECT_EQ(cell->appID, prefs::kDomain);
}

TEST_F(LinkCell, HasABorderAroundWhite) {
  buildStored("#FFFFFF");
  EXPECT_EQ(swatch(), "#FFFFFF");
  EXPECT_EQ(cell->thumbnailView->layer.borderWidth, 1);
  EXPECT_EQ(cell->thumbnailView->layer.borderColor, (uikit::Color{0.8, 0.8, 0.8, 1}));
}

TEST_F(LinkCell, HasNoBorderAroundWhiteInLowerCase) {
  buildStored("#ffffff");
  EXPECT_EQ(swatch(), "#FFFFFF");
  EXPECT_EQ(cell->thumbnailView->layer.borderWidth, 0);
}

TEST_F(LinkCell, TakesTheBorderAwayAgain) {
  buildStored("#FFFFFF");
  store("#007AFF");
  cell->layoutSubviews();
  EXPECT_EQ(cell->thumbnailView->layer.borderWidth, 0);
}

TEST_F(LinkCell, ShowsAStoredWordAsItIs) {
  buildStored("none");
  EXPECT_EQ(label(), "none");
  EXPECT_EQ(swatch(), "(hidden)");
}

TEST_F(LinkCell, ShowsAColorWithoutTheSignAsAWord) {
  buildStored("FF0000");
  EXPECT_EQ(label(), "FF0000");
  EXPECT_EQ(swatch(), "(hidden)");
}

TEST_F(LinkCell, ShowsASwatchForWhateverBeginsWithTheSign) {
  buildStored("#");
  EXPECT_EQ(swatch(), "#000000");
  buildStored("#FFF");
  EXPECT_EQ(swatch(), "#000FFF");
}

TEST_F(LinkCell, ShowsStoredEmptyTextAsAnEmptyLabel) {
  buildStored("");
  EXPECT_EQ(label(), "");
}

TEST_F(LinkCell, PlacesTheSwatchAtTheRightEdge) {
  buildStored("#007AFF");
  EXPECT_EQ(cell->thumbnailView->frame, (uikit::Rect{292, 10, 24, 24}));
}

TEST_F(LinkCell, PlacesTheLabelAtTheRightEdge) {
  buildStored("none");
  EXPECT_EQ(cell->valueLabel->frame, (uikit::Rect{216, 6, 100, 32}));
}

TEST_F(LinkCell, PlacesBothByTheSizeOfTheContent) {
  buildStored("#007AFF");
  cell->frame = {0, 0, 768, 61};
  cell->layoutSubviews();
  EXPECT_EQ(cell->thumbnailView->frame, (uikit::Rect{740, 18.5, 24, 24}));
  EXPECT_EQ(cell->valueLabel->frame, (uikit::Rect{664, 14.5, 100, 32}));
}

TEST_F(LinkCell, DrawsTheSwatchInTheSizeThatTheViewHas) {
  buildStored("#007AFF");
  cell->thumbnailView->frame = {0, 0, 30, 20};
  cell->layoutSubviews();
  EXPECT_EQ(cell->thumbnailView->image->size, (uikit::Size{30, 20}));
  EXPECT_EQ(cell->thumbnailView->frame, (uikit::Rect{286, 12, 30, 20}));
}

TEST_F(LinkCell, IsLaidOutByItsSuperclassBeforeItReadsTheStore) {
  buildStored("#007AFF");
  cell->frame = {0, 0, 768, 61};
  // So that reading the store has something to flush, which shows when it happens.
  ASSERT_TRUE(device_.preferences.setAppValue("wifi", true, prefs::kDomain));
  std::optional<uikit::Rect> atRead;
  foundation::test::systemCalls().atNextFsync = [&] { atRead = cell->contentView.frame; };
  cell->layoutSubviews();
  EXPECT_EQ(atRead, (uikit::Rect{0, 0, 768, 61}));
}

TEST_F(LinkCell, ShowsTheDefaultWhileNothingIsStored) {
  buildWithDefault("#34495F");
  EXPECT_EQ(swatch(), "#34495F");
}

TEST_F(LinkCell, ShowsTheStoredColorRatherThanTheDefault) {
  store("none");
  buildWithDefault("#34495F");
  EXPECT_EQ(label(), "none");
}

TEST_F(LinkCell, IgnoresAStoredValueThatIsNotText) {
  for (const plist::Value& odd :
       {plist::Value(5), plist::Value(true), plist::Value(plist::Array{"#FF0000"})}) {
    store(odd);
    buildWithDefault("#34495F");
    EXPECT_EQ(swatch(), "#34495F");
  }
}

TEST_F(LinkCell, ShowsAnEmptyLabelWithNoValueAnywhere) {
  build(row({{"key", kKey}, {"defaults", prefs::kDomain}}));
  EXPECT_FALSE(cell->selectedColor);
  EXPECT_FALSE(cell->valueLabel->hidden);
  EXPECT_FALSE(cell->valueLabel->text);
  EXPECT_EQ(swatch(), "(hidden)");
}

TEST_F(LinkCell, IgnoresADefaultThatIsNotText) {
  buildWithDefault(5);
  EXPECT_FALSE(cell->selectedColor);
}

TEST_F(LinkCell, ReadsNothingWithoutAKey) {
  store("#007AFF");
  build(row({{"defaults", prefs::kDomain}, {"default", "none"}}));
  EXPECT_EQ(label(), "none");
}

TEST_F(LinkCell, ReadsNothingWithoutADomain) {
  store("#007AFF");
  build(row({{"key", kKey}, {"default", "none"}}));
  EXPECT_EQ(label(), "none");
  EXPECT_FALSE(cell->appID);
}

TEST_F(LinkCell, ReadsTheStoreAtEachLayout) {
  buildStored("#007AFF");
  store("#FF9500");
  EXPECT_EQ(swatch(), "#007AFF");
  cell->layoutSubviews();
  EXPECT_EQ(swatch(), "#FF9500");
  store("none");
  cell->layoutSubviews();
  EXPECT_EQ(label(), "none");
  EXPECT_EQ(swatch(), "(hidden)");
  store("#FF9500");
  cell->layoutSubviews();
  EXPECT_EQ(label(), "(hidden)");
}

TEST_F(LinkCell, KeepsItsColorWhenNothingIsStoredAnyLonger) {
  store("#007AFF");
  buildWithDefault("none");
  foundation::Preferences other(device_.root);
  ASSERT_TRUE(other.setAppValue(kKey, {}, prefs::kDomain));
  cell->layoutSubviews();
  EXPECT_EQ(swatch(), "#007AFF") << "the default is for a cell that never had a color";
}

TEST_F(LinkCell, KeepsItsColorWhenTheStoredValueIsNoLongerText) {
  buildStored("#007AFF");
  store(5);
  cell->layoutSubviews();
  EXPECT_EQ(swatch(), "#007AFF");
}

TEST_F(LinkCell, KeepsTheDefaultThatItOnceTook) {
  buildWithDefault("#34495F");
  cell->specifier().setPropertyForKey("none", "default");
  cell->layoutSubviews();
  EXPECT_EQ(swatch(), "#34495F");
}

TEST_F(LinkCell, ShowsTheDefaultOfARowThatIsOnNoPage) {
  preferences::PSSpecifier specifier(
      preferences::CellType::PSLinkCell,
      row({{"key", kKey}, {"defaults", prefs::kDomain}, {"default", "none"}}));
  ZorvekColorPickerQuorvantisLinkCell alone(uikit::CellStyle::Value1, "PSLinkCell", specifier);
  alone.layoutSubviews();
  EXPECT_EQ(alone.valueLabel->text, "none");
}

TEST_F(LinkCell, WritesNothing) {
  buildWithDefault("#34495F");
  EXPECT_TRUE(device_.preferences.copyKeyList(prefs::kDomain).empty());
  EXPECT_TRUE(device_.darwin.posted.empty());
}

}  // namespace
