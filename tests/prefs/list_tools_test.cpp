#include <gtest/gtest.h>

#include "prefs/keys.h"
#include "tests/support/environment.h"
#include "tools/rule_check.h"
#include "tools/specifier_list_source.h"

// What the build does with the sources of the specifier lists.
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;
using preferences::ListError;

Value listOf(Array rows, std::initializer_list<Dictionary::Entry> tables = {}) {
  Dictionary list{{"title", "Sample"}};
  for (const auto& [key, value] : tables) list.set(key, value);
  list.set("items", std::move(rows));
  return list;
}

// What is compiled of a list; the error's text where there is one.
Value completed(Value list) {
  const auto added = tools::addRowDefaults(list);
  return added ? list : Value(added.error().what);
}

TEST(RowDefaults, LeaveAListWithoutTablesAsItIs) {
  const Value list = listOf({Dictionary{{"cell", "PSGroupCell"}, {"id", "group"}}});
  EXPECT_EQ(completed(list), list);
}

TEST(RowDefaults, AreAddedToTheRowsOfTheirCellType) {
  EXPECT_EQ(completed(listOf(
                {Dictionary{{"cell", "PSSwitchCell"}, {"id", "a"}},
                 Dictionary{{"cell", "PSGroupCell"}, {"id", "b"}}},
                {{"rowDefaults", Dictionary{{"PSSwitchCell", Dictionary{{"cellClass", "C"}}}}}})),
            listOf({Dictionary{{"cell", "PSSwitchCell"}, {"id", "a"}, {"cellClass", "C"}},
                    Dictionary{{"cell", "PSGroupCell"}, {"id", "b"}}}));
}

TEST(RowDefaults, OfSettingsAreAddedToTheRowsWithAKeyWhichIsTheirId) {
  EXPECT_EQ(
      completed(listOf({Dictionary{{"cell", "PSSwitchCell"}, {"key", "a"}},
                        Dictionary{{"cell", "PSButtonCell"}, {"id", "b"}}},
                       {{"settingDefaults", Dictionary{{"defaults", "d"}}}})),
      listOf({Dictionary{{"cell", "PSSwitchCell"}, {"key", "a"}, {"id", "a"}, {"defaults", "d"}},
              Dictionary{{"cell", "PSButtonCell"}, {"id", "b"}}}));
}

TEST(RowDefaults, GiveWayToWhatTheRowStatesAndThoseOfSettingsToThoseOfTheCellType) {
  Dictionary row{{"cell", "PSSwitchCell"}, {"key", "a"}, {"id", "own"}, {"set", "own"}};
  const Value list = listOf(
      {row},
      {{"settingDefaults", Dictionary{{"set", "setting"}, {"get", "setting"}}},
       {"rowDefaults", Dictionary{{"PSSwitchCell", Dictionary{{"set", "row"}, {"get", "row"}}}}}});
  row.set("get", "row");
  EXPECT_EQ(completed(list), listOf({row}));
}

TEST(RowDefaults, ThatNoRowUsesAreAnError) {
  const Dictionary group{{"cell", "PSGroupCell"}, {"id", "group"}};
  EXPECT_EQ(completed(listOf({group}, {{"rowDefaults",
                                        Dictionary{{"PSSliderCell", Dictionary{{"min", 0.0}}}}}})),
            Value("rowDefaults: no row is a PSSliderCell"));
  EXPECT_EQ(completed(listOf({group}, {{"settingDefaults", Dictionary{{"defaults", "d"}}}})),
            Value("settingDefaults: no row has a key"));
}

TEST(RowDefaults, OfAnotherShapeAreAnError) {
  EXPECT_EQ(completed("text"), Value("items must be an array"));
  EXPECT_EQ(completed(listOf({}, {{"settingDefaults", "text"}})),
            Value("settingDefaults must be a dictionary"));
  EXPECT_EQ(completed(listOf({}, {{"rowDefaults", Array{}}})),
            Value("rowDefaults must be a dictionary"));
  EXPECT_EQ(completed(listOf({}, {{"rowDefaults", Dictionary{{"PSSwitchCell", 1}}}})),
            Value("rowDefaults: PSSwitchCell must be a dictionary"));
}

TEST(ListSource, NamesFileLineAndRowOfAnError) {
  const testing_support::TemporaryFolder folder;
  const std::filesystem::path file = std::filesystem::path(folder.path()) / "Sample.plist";
  std::ofstream(file) << "<plist>\n<dict><key>items</key><array>\n<dict>\n</dict>\n<dict/>\n"
                         "</array></dict>\n</plist>\n";
  const auto source = tools::SpecifierListSource::read(file);
  ASSERT_TRUE(source);
  EXPECT_EQ(source->name(), "Sample");
  EXPECT_EQ(source->message({1, "is wrong"}), file.string() + ":5: row 1: is wrong");
  EXPECT_EQ(source->message({-1, "is wrong"}), file.string() + ": is wrong");
}

TEST(ListSource, ThatCanNotBeReadIsAnErrorWithTheFile) {
  EXPECT_EQ(tools::SpecifierListSource::read("/nowhere/Sample.plist").error(),
            "/nowhere/Sample.plist: can't be read");
}

// The texts of what is wrong with these rules on a page of one switch and one text row.
std::vector<std::string> ruleErrors(std::vector<prefs::DependencyRule> rules) {
  const auto list = preferences::readSpecifierList(
      listOf({Dictionary{{"cell", "PSSwitchCell"}, {"id", "switch"}},
              Dictionary{{"cell", "PSEditTextCell"}, {"id", "text"}}}));
  std::vector<std::string> texts;
  for (const ListError& error : tools::ruleErrors("Page", rules, *list))
    texts.push_back(std::to_string(error.row) + " " + error.what);
  return texts;
}

using Texts = std::vector<std::string>;
constexpr prefs::Key kSwitch("switch"), kText("text"), kNone("none");

TEST(RuleCheck, AcceptsASwitchAndARowOfTheList) {
  EXPECT_EQ(ruleErrors({{kSwitch, kText}, {kSwitch, kSwitch}}), Texts());
}

TEST(RuleCheck, NamesThePageAndTheIdThatTheListLacks) {
  const Texts expected{"-1 Page: a rule names \"none\", and the list has no such row"};
  EXPECT_EQ(ruleErrors({{kSwitch, kNone}}), expected);
  EXPECT_EQ(ruleErrors({{kNone, kText}}), expected);
}

TEST(RuleCheck, NamesAControllingRowThatIsNotASwitch) {
  EXPECT_EQ(ruleErrors({{kText, kSwitch}}),
            Texts{"1 Page: a rule names \"text\", which is not a switch"});
}

TEST(RuleCheck, ReportsAFaultOnce) {
  EXPECT_EQ(ruleErrors({{kNone, kText}, {kNone, kSwitch}}).size(), 1u);
}

TEST(Keys, AreTheIdsOfTheRows) {
  EXPECT_EQ(std::string_view(prefs::key::custbrightenabled), "custbrightenabled");
  static_assert(!std::is_convertible_v<const char*, prefs::Key>);
}

}  // namespace
