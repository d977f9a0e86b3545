#include <algorithm>
#include <map>
#include <set>

#include "platform/preferences/specifier_list.h"
#include "prefs/pages/DependentListController.h"
#include "prefs/profiles/profile_settings.h"
#include "tests/prefs_pages/pages_bundle.h"

// What the specifier lists of the option pages hold.
namespace {

using namespace pages_test;
using preferences::CellType;
using preferences::PSSpecifier;

// The low-power page's own keys; the others are a power-saving key with this prefix.
const std::string kLowPower = "lowpower";
constexpr std::size_t kStoredRows = 68;
const std::string kLowPowerSwitch = "lowpowermodeenabled";

bool isProfileKey(std::string_view key) {
  return std::ranges::count(prefs::profileKeys(), key) == 1;
}

preferences::SpecifierList rowsOf(const std::string& name) {
  auto list = preferences::readSpecifierList(readList(name));
  EXPECT_TRUE(list && !list->specifiers.empty()) << name;
  return list ? std::move(*list) : preferences::SpecifierList();
}

std::map<std::string, std::shared_ptr<PSSpecifier>> allStoredRows() {
  std::map<std::string, std::shared_ptr<PSSpecifier>> rows;
  for (const std::string& name : kPageNames)
    for (auto& row : rowsOf(name).specifiers) {
      const auto key = row->textForKey("key");
      if (key.empty()) continue;
      EXPECT_TRUE(rows.emplace(key, row).second) << key << " stands in two lists";
    }
  EXPECT_EQ(rows.size(), kStoredRows);
  return rows;
}

class OptionLists : public testing::TestWithParam<std::string> {};

TEST_P(OptionLists, LoadsInItsPage) {
  testing_support::TestDevice device(prefs::bundle());
  auto page = std::dynamic_pointer_cast<preferences::PSListController>(
      prefs::bundle().pageClass(GetParam())->create(device.environment));
  page->viewDidLoad();
  EXPECT_EQ(page->loadError(), "");
  EXPECT_EQ(page->className(), GetParam());
  EXPECT_FALSE(page->title.empty());
  EXPECT_EQ(page->specifiers().size(), rowsOf(GetParam()).specifiers.size());
}

TEST_P(OptionLists, EveryStoredRowIsWrittenInFull) {
  const bool ownSetter = GetParam() != "ConditionsListController";
  for (const auto& row : rowsOf(GetParam()).specifiers) {
    if (row->textForKey("key").empty()) continue;
    EXPECT_EQ(row->identifier(), row->textForKey("key"));
    EXPECT_EQ(row->textForKey("id"), row->textForKey("key"));
    EXPECT_FALSE(row->name().empty()) << row->identifier();
    EXPECT_EQ(row->textForKey("defaults"), "com.zorvek.quorvantis") << row->identifier();
    EXPECT_EQ(row->textForKey("PostNotification"), "com.zorvek.quorvantis.prefs");
    EXPECT_EQ(row->textForKey("set"), ownSetter ? "setValue:forSpecifier:" : "");
    EXPECT_EQ(row->propertyForKey("default").isNothing(), row->identifier() == "adressbook");
  }
}

TEST_P(OptionLists, OnlyGroupsAndButtonsStoreNothing) {
  for (const auto& row : rowsOf(GetParam()).specifiers)
    EXPECT_EQ(row->textForKey("key").empty(),
              row->cellType() == CellType::PSGroupCell || row->cellType() == CellType::PSButtonCell)
        << row->identifier();
}

TEST_P(OptionLists, StartsWithAGroupAndExplainsEachGroup) {
  const auto list = rowsOf(GetParam());
  EXPECT_EQ(list.specifiers.front()->cellType(), CellType::PSGroupCell);
  for (const auto& row : list.specifiers)
    EXPECT_EQ(row->textForKey("footerText").empty(), row->cellType() != CellType::PSGroupCell)
        << row->identifier();
}

TEST_P(OptionLists, EverySwitchIsTheBundlesOwn) {
  for (const auto& row : rowsOf(GetParam()).specifiers)
    EXPECT_EQ(row->textForKey("cellClass"),
              row->cellType() == CellType::PSSwitchCell ? "QuorvantisSwitchTableCell" : "")
        << row->identifier();
}

INSTANTIATE_TEST_SUITE_P(Pages, OptionLists, testing::ValuesIn(kPageNames),
                         [](const auto& info) { return info.param; });

TEST(OptionListRows, SlidersShowTheirValueAndNameTheirUnit) {
  int sliders = 0;
  for (const auto& [key, row] : allStoredRows()) {
    if (row->cellType() != CellType::PSSliderCell) continue;
    EXPECT_TRUE(row->boolForKey("showValue", false)) << key;
    EXPECT_TRUE(row->name().ends_with("(%)") || row->name().ends_with("(seconds)"));
    for (const char* bound : {"min", "max"})
      EXPECT_TRUE(row->propertyForKey(bound).real()) << key << " " << bound;
    ++sliders;
  }
  EXPECT_EQ(sliders, 6);
}

TEST(OptionListRows, FixedChoicesAreDistinctIntegersWithDistinctTitles) {
  int choiceRows = 0;
  for (const auto& [key, row] : allStoredRows()) {
    std::set<std::int64_t> values;
    for (const plist::Value& value : row->values()) {
      ASSERT_TRUE(value.integer()) << key;
      EXPECT_TRUE(values.insert(*value.integer()).second) << key;
    }
    EXPECT_EQ(std::set(row->titles().begin(), row->titles().end()).size(), row->titles().size());
    choiceRows += !values.empty();
  }
  EXPECT_EQ(choiceRows, 46);
}

TEST(OptionListRows, HoldNoOtherKeys) {
  for (const auto& [key, row] : allStoredRows()) {
    const bool known = isProfileKey(key) || key == "adressbook" || key == kLowPowerSwitch ||
                       (key.starts_with(kLowPower) && isProfileKey(key.substr(kLowPower.size())));
    EXPECT_TRUE(known) << key;
  }
}

TEST(OptionListRows, EachPageHoldsItsOwnKeys) {
  const std::map<std::string, std::vector<std::string>> first = {
      {"PowerSavingListController", {"airplanemode", "custbright", "poweroptionsdelay"}},
      {"SoundsListController", {"ringer", "customvolume", "music"}},
      {"UserNotificationListController", {"alerttype", "adressbook", "playsound", "testsound"}},
      {"ConditionsListController", {"disableonfire", "firewhenbattery", "fireat"}},
      {"LowPowerListController", {"lowpowermodeenabled", "lowpowerwifi", "lowpowercustbright"}}};
  for (const auto& [name, ids] : first) {
    std::set<std::string> found;
    for (const auto& row : rowsOf(name).specifiers) found.insert(row->identifier());
    for (const auto& id : ids) EXPECT_TRUE(found.contains(id)) << name << " " << id;
  }
}

TEST(OptionListRows, LowPowerRowsMirrorTheirPowerSavingTwins) {
  const auto rows = allStoredRows();
  int twins = 0;
  for (const auto& row : rowsOf("LowPowerListController").specifiers) {
    const std::string key(row->textForKey("key"));
    if (key.empty() || key == kLowPowerSwitch) continue;
    ++twins;
    const PSSpecifier& twin = *rows.at(key.substr(kLowPower.size()));
    EXPECT_EQ(row->cellType(), twin.cellType()) << key;
    EXPECT_EQ(row->name(), twin.name()) << key;
    EXPECT_EQ(row->values(), twin.values()) << key;
    EXPECT_EQ(row->titles(), twin.titles()) << key;
    for (const char* property : {"default", "min", "max", "detail"})
      EXPECT_EQ(row->propertyForKey(property), twin.propertyForKey(property)) << key;
  }
  EXPECT_EQ(twins, 19);
}

TEST(OptionListRows, ASettingThatAProfileMayLeaveAloneHasThreeStates) {
  const auto rows = allStoredRows();
  for (const char* key : {"airplanemode",
                          "wifi",
                          "locationservices",
                          "bluetooth",
                          "mobiledata",
                          "personalhotspot",
                          "vpn",
                          "bgapprefresh",
                          "autoupdates",
                          "reducemotion",
                          "grayscale",
                          "handoff",
                          "siri",
                          "quorvantislowpowermode",
                          "ioslowpowermode",
                          "autobrightness",
                          "ringvibration",
                          "silentvibration",
                          "locksound",
                          "keyboardclick",
                          "dnd"}) {
    EXPECT_EQ(rows.at(key)->values(), (plist::Array{0, 1, 2})) << key;
    EXPECT_EQ(rows.at(key)->titles(), (std::vector<std::string>{"Leave", "On", "Off"})) << key;
  }
}

TEST(OptionListRows, OfTheLowPowerRowsOnlyControllingSwitchesAreSwitches) {
  for (const auto& row : rowsOf("LowPowerListController").specifiers)
    EXPECT_EQ(row->cellType() == CellType::PSSwitchCell,
              row->identifier() == "lowpowermodeenabled" ||
                  row->identifier() == "lowpowercustbrightenabled")
        << row->identifier();
}

// Rows that come on screen later than the evaluation would look usable until the next one. Only the
// low-power page evaluates when it scrolls.
TEST(OptionListRows, WhatRulesDimIsOnTheFirstScreen) {
  constexpr std::size_t kScreenful = 12;
  std::size_t dimmed = 0;
  for (const char* name :
       {"PowerSavingListController", "SoundsListController", "UserNotificationListController"}) {
    testing_support::TestDevice device(prefs::bundle());
    auto page = std::dynamic_pointer_cast<prefs::DependentListController>(
        prefs::bundle().pageClass(name)->create(device.environment));
    page->viewDidLoad();
    for (const prefs::DependencyRule& rule : page->rules()) {
      const auto& rows = page->specifiers();
      const auto row = std::ranges::find(rows, std::string_view(rule.dependentRow),
                                         [](const auto& each) { return each->identifier(); });
      EXPECT_LT(row - rows.begin(), kScreenful) << std::string_view(rule.dependentRow);
      ++dimmed;
    }
  }
  EXPECT_EQ(dimmed, 7u);
}

TEST(OptionListRows, TheTintedRowsHaveAControl) {
  const auto rows = allStoredRows();
  for (const char* key : {"firewhenbattery", "fireat"})
    EXPECT_EQ(rows.at(key)->cellType(), CellType::PSSegmentCell);
}

TEST(OptionListRows, TheChoiceRowsOfTheNotificationPageNameTheirSources) {
  const auto rows = allStoredRows();
  EXPECT_EQ(rows.at("playsound")->textForKey("valuesDataSource"), "valueDataFromTarget:");
  EXPECT_EQ(rows.at("playsound")->textForKey("titlesDataSource"), "titlesDataFromTarget:");
  EXPECT_EQ(rows.at("adressbook")->textForKey("valuesDataSource"), "contactsValueDataFromTarget:");
  EXPECT_EQ(rows.at("adressbook")->textForKey("titlesDataSource"), "contactsTitlesDataFromTarget:");
}

TEST(OptionListRows, AButtonTestsTheSound) {
  for (const auto& row : rowsOf("UserNotificationListController").specifiers) {
    EXPECT_EQ(row->cellType() == CellType::PSButtonCell, row->identifier() == "testsound");
    EXPECT_EQ(row->textForKey("action"), row->identifier() == "testsound" ? "testSound" : "");
  }
}

}  // namespace
