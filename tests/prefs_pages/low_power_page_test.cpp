#include "prefs/keys.h"
#include "prefs/pages/option_pages.h"
#include "tests/prefs_pages/pages_bundle.h"

namespace {

using namespace pages_test;
using Page = Opened<prefs::LowPowerListController>;

const std::vector<std::string> kOptionRows = {
    "lowpowerioslowpowermode",  "lowpowerairplanemode",    "lowpowerwifi",
    "lowpowerlocationservices", "lowpowerbluetooth",       "lowpowermobiledata",
    "lowpowermobiledatarate",   "lowpowerpersonalhotspot", "lowpowervpn",
    "lowpowerbgapprefresh",     "lowpowerautoupdates",     "lowpowerreducemotion",
    "lowpowergrayscale",        "lowpowerhandoff",         "lowpowersiri",
    "lowpowerautolock",         "lowpowerautobrightness",  "lowpowercustbrightenabled"};

struct Combination {
  bool mode, brightness, optionsUsable, sliderUsable;
};

void PrintTo(const Combination& combination, std::ostream* out) {
  *out << (combination.mode ? "ModeOn" : "ModeOff")
       << (combination.brightness ? "BrightnessOn" : "BrightnessOff");
}

class LowPowerTable : public testing::TestWithParam<Combination> {};

TEST_P(LowPowerTable, AllNineteenRows) {
  const Combination& expected = GetParam();
  Page opened;
  opened.build();
  opened.switchOf("lowpowermodeenabled").setOn(expected.mode);
  opened.switchOf("lowpowercustbrightenabled").setOn(expected.brightness);
  opened.page->setSliderEnableDisable();
  for (const std::string& row : kOptionRows) {
    EXPECT_EQ(looksEnabled(opened.cell(row)), expected.optionsUsable) << row;
    EXPECT_EQ(looksDimmed(opened.cell(row)), !expected.optionsUsable) << row;
    EXPECT_EQ(opened.page->dimmingOf(row).by, expected.optionsUsable ? "" : "lowpowermodeenabled");
  }
  EXPECT_EQ(looksEnabled(opened.cell("lowpowercustbright")), expected.sliderUsable);
  EXPECT_EQ(looksDimmed(opened.cell("lowpowercustbright")), !expected.sliderUsable);
  EXPECT_TRUE(looksEnabled(opened.cell("lowpowermodeenabled")));
}

INSTANTIATE_TEST_SUITE_P(Outcome, LowPowerTable,
                         testing::Values(Combination{false, true, true, true},
                                         Combination{false, false, true, false},
                                         Combination{true, true, false, false},
                                         Combination{true, false, false, false}),
                         testing::PrintToStringParamName());

TEST(LowPowerPage, RulesAreInTheOrderOfTheTable) {
  Page opened;
  const auto rules = opened.page->rules();
  ASSERT_EQ(rules.size(), 20u);
  EXPECT_EQ(rules.front().controllingSwitch, prefs::key::lowpowercustbrightenabled);
  EXPECT_EQ(rules.front().dependentRow, prefs::key::lowpowercustbright);
  EXPECT_EQ(rules.front().effect, prefs::Effect::EnabledWhileOn);
  for (std::size_t i = 0; i < kOptionRows.size(); ++i) {
    EXPECT_EQ(rules[i + 1].controllingSwitch, prefs::key::lowpowermodeenabled);
    EXPECT_EQ(std::string_view(rules[i + 1].dependentRow), kOptionRows[i]);
    EXPECT_EQ(rules[i + 1].effect, prefs::Effect::EnabledWhileOff);
  }
  EXPECT_EQ(rules.back().controllingSwitch, prefs::key::lowpowermodeenabled);
  EXPECT_EQ(rules.back().dependentRow, prefs::key::lowpowercustbright);
  EXPECT_EQ(rules.back().effect, prefs::Effect::DimmedWhileOn);
}

TEST(LowPowerPage, TheSliderIsDimmedByTheLastRuleThatDoes) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  EXPECT_EQ(opened.page->dimmingOf("lowpowercustbright").by, "lowpowercustbrightenabled");
  opened.switchOf("lowpowermodeenabled").setOn(true);
  opened.page->setSliderEnableDisable();
  EXPECT_EQ(opened.page->dimmingOf("lowpowercustbright").by, "lowpowermodeenabled");
}

TEST(LowPowerPage, AllOptionRowsAreUsableWhileTheModeRowIsNotBuilt) {
  Page opened;
  opened.store("lowpowermodeenabled", true);
  for (const std::string& row : kOptionRows) opened.page->buildRow(opened.row(row));
  opened.page->setSliderEnableDisable();
  for (const std::string& row : kOptionRows) EXPECT_TRUE(looksEnabled(opened.cell(row))) << row;
}

TEST(LowPowerPage, TheSliderIsDimmedWhileItsSwitchIsNotBuilt) {
  Page opened;
  opened.store("lowpowercustbrightenabled", true);
  opened.page->buildRow(opened.row("lowpowercustbright"));
  opened.page->setSliderEnableDisable();
  EXPECT_TRUE(looksDimmed(opened.cell("lowpowercustbright")));
}

TEST(LowPowerPage, SwitchingTheModeOnDimsEverythingAtOnceAndOffEnablesIt) {
  Page opened;
  opened.store("lowpowercustbrightenabled", true);
  opened.build();
  opened.change("lowpowermodeenabled", true);
  for (const std::string& row : kOptionRows) EXPECT_TRUE(looksDimmed(opened.cell(row))) << row;
  EXPECT_TRUE(looksDimmed(opened.cell("lowpowercustbright")));
  opened.change("lowpowermodeenabled", false);
  for (const std::string& row : kOptionRows) EXPECT_TRUE(looksEnabled(opened.cell(row))) << row;
  EXPECT_TRUE(looksEnabled(opened.cell("lowpowercustbright")));
}

TEST(LowPowerPage, SwitchingTheModeOffLeavesTheSliderToItsOwnSwitch) {
  Page opened;
  opened.build();
  opened.change("lowpowermodeenabled", true);
  opened.change("lowpowermodeenabled", false);
  EXPECT_TRUE(looksDimmed(opened.cell("lowpowercustbright")));
}

TEST(LowPowerPage, FlippingTheBrightnessSwitchWhileTheModeIsOnChangesNothing) {
  Page opened;
  opened.build();
  opened.change("lowpowermodeenabled", true);
  opened.change("lowpowercustbrightenabled", true);
  EXPECT_TRUE(looksDimmed(opened.cell("lowpowercustbrightenabled")));
  EXPECT_TRUE(looksDimmed(opened.cell("lowpowercustbright")));
}

TEST(LowPowerPage, EveryScrollEventEvaluates) {
  Page opened;
  opened.store("lowpowermodeenabled", true);
  opened.build();
  EXPECT_TRUE(looksEnabled(opened.cell("lowpowerwifi")));
  opened.page->scrollViewDidScroll(nullptr);
  EXPECT_TRUE(looksDimmed(opened.cell("lowpowerwifi")));
}

TEST(LowPowerPage, RowsThatComeIntoViewGetTheirStateAtTheNextScrollEvent) {
  Page opened;
  opened.store("lowpowermodeenabled", true);
  opened.page->buildRow(opened.row("lowpowermodeenabled"));
  opened.page->scrollViewDidScroll(nullptr);
  opened.page->buildRow(opened.row("lowpowersiri"));
  EXPECT_TRUE(looksEnabled(opened.cell("lowpowersiri")));
  opened.page->scrollViewDidScroll(nullptr);
  EXPECT_TRUE(looksDimmed(opened.cell("lowpowersiri")));
}

TEST(LowPowerPage, ScrollingReadsAndWritesNothingInTheStore) {
  Page opened;
  opened.build();
  foundation::Preferences another(opened.device.root);
  ASSERT_TRUE(another.setAppValue("lowpowermodeenabled", true, "com.zorvek.quorvantis"));
  opened.page->scrollViewDidScroll(nullptr);
  EXPECT_TRUE(looksEnabled(opened.cell("lowpowerwifi")));
  EXPECT_TRUE(opened.device.darwin.posted.empty());
}

TEST(LowPowerPage, EvaluatesAtTheThreeOtherMomentsToo) {
  Page opened;
  opened.build();
  uikit::TableViewCell& slider = opened.cell("lowpowercustbright");
  EXPECT_FALSE(evaluates(slider, [&] { opened.page->viewWillAppear(false); }));
  EXPECT_TRUE(evaluates(slider, [&] { opened.device.queue.advance(kTenthOfASecond); }));
  EXPECT_TRUE(evaluates(slider, [&] { opened.activate(); }));
  EXPECT_TRUE(evaluates(slider, [&] { opened.change("lowpowerwifi", 1); }));
}

TEST(LowPowerPage, SetSpecifierViewEnabledSwitchesOneCell) {
  Page opened;
  opened.build();
  opened.page->setSpecifierViewEnabled(&opened.cell("lowpowervpn"), false);
  EXPECT_TRUE(looksDimmed(opened.cell("lowpowervpn")));
  opened.page->setSpecifierViewEnabled(&opened.cell("lowpowervpn"), true);
  EXPECT_TRUE(looksEnabled(opened.cell("lowpowervpn")));
}

TEST(LowPowerPage, SetSpecifierViewEnabledWithoutACellDoesNothing) {
  Page opened;
  opened.build();
  opened.page->setSpecifierViewEnabled(nullptr, false);
  for (auto& row : opened.page->specifiers()) EXPECT_TRUE(looksEnabled(*row->cellObject()));
}

TEST(LowPowerPage, ItsOwnOperationsAreCalledBySelector) {
  Page opened;
  opened.build();
  const auto run = [&](const char* selector, std::vector<preferences::Argument> arguments) {
    return opened.page->operations().find(selector)->run(*opened.page, arguments).has_value();
  };
  foundation::Object* cell = &opened.cell("lowpowervpn");
  EXPECT_TRUE(run("setSpecifierView:enabled:", {cell, plist::Value(false)}));
  EXPECT_TRUE(looksDimmed(opened.cell("lowpowervpn")));
  EXPECT_TRUE(run("setSpecifierView:enabled:", {nullptr, plist::Value(true)}));
  EXPECT_TRUE(run("scrollViewDidScroll:", {nullptr}));
  EXPECT_TRUE(looksEnabled(opened.cell("lowpowervpn")));
}

}  // namespace
