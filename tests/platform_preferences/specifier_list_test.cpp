#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/preferences/specifier_list.h"
#include "tests/support/sample_bundle.h"

namespace {

using plist::Array;
using plist::Dictionary;
using preferences::readSpecifierList;

plist::Value listOf(Array items) {
  return Dictionary{{"items", std::move(items)}};
}

std::string readError(const plist::Value& root) {
  auto list = readSpecifierList(root);
  if (list) return "no error";
  return std::to_string(list.error().row) + ": " + list.error().what;
}

const preferences::Bundle kNoBundle{"Page", {}, {}, {}};

std::vector<std::string> wrongIn(Dictionary row) {
  auto list = readSpecifierList(listOf({std::move(row)}));
  EXPECT_TRUE(list) << list.error().what;
  std::vector<std::string> wrong;
  for (auto& error : preferences::validate(*list, sample::ListPage::ownOperations, kNoBundle))
    wrong.push_back(error.what);
  return wrong;
}

TEST(SpecifierList, KeepsRowsInOrderAndTheTitle) {
  auto list = readSpecifierList(sample::firstList());
  ASSERT_TRUE(list);
  EXPECT_EQ(list->title, "First Page");
  EXPECT_EQ(list->specifiers[1]->identifier(), "switch");
  EXPECT_EQ(list->specifiers[0]->cellType(), preferences::CellType::PSGroupCell);
}

TEST(SpecifierList, MustBeADictionaryWithItems) {
  EXPECT_EQ(readError("text"), "-1: the root must be a dictionary");
  EXPECT_EQ(readError(Dictionary{}), "-1: items must be an array");
  EXPECT_EQ(readError(Dictionary{{"items", 5}}), "-1: items must be an array");
  EXPECT_EQ(readError(Dictionary{{"title", 5}, {"items", Array{}}}), "-1: title must be text");
}

TEST(SpecifierList, NamesTheRowOfAnUnknownCellType) {
  EXPECT_EQ(
      readError(listOf({Dictionary{{"cell", "PSGroupCell"}}, Dictionary{{"cell", "PSFooCell"}}})),
      "1: unknown cell type \"PSFooCell\"");
}

TEST(SpecifierList, NamesARowThatIsNotARow) {
  EXPECT_EQ(readError(listOf({"text"})), "0: a row must be a dictionary");
  EXPECT_EQ(readError(listOf({Dictionary{{"label", "x"}}})), "0: cell is missing");
  EXPECT_EQ(readError(listOf({Dictionary{{"cell", 5}}})), "0: cell must be text");
  EXPECT_EQ(readError(listOf({Dictionary{{"cell", "PSSwitchCell"}, {"key", 5}}})),
            "0: key must be text");
}

TEST(SpecifierList, RefusesChoicesThatAreNoLists) {
  EXPECT_EQ(readError(listOf({Dictionary{{"cell", "PSSegmentCell"}, {"validValues", 1}}})),
            "0: validValues and validTitles must be arrays");
  EXPECT_EQ(readError(listOf({Dictionary{
                {"cell", "PSSegmentCell"}, {"validValues", Array{1}}, {"validTitles", Array{1}}}})),
            "0: validTitles must hold texts");
}

TEST(SpecifierList, DropsSurplusChoices) {
  auto list = readSpecifierList(listOf({Dictionary{
      {"cell", "PSSegmentCell"}, {"validValues", Array{1, 2}}, {"validTitles", Array{"one"}}}}));
  ASSERT_TRUE(list);
  EXPECT_EQ(list->specifiers[0]->values().size(), 1u);
}

TEST(SpecifierList, IdentifiesARowByIdElseKeyElseLabel) {
  auto id = [](Dictionary row) {
    row.set("cell", "PSSwitchCell");
    return (*readSpecifierList(listOf({row}))).specifiers[0]->identifier();
  };
  EXPECT_EQ(id({{"label", "l"}, {"key", "k"}, {"id", "i"}}), "i");
  EXPECT_EQ(id({{"label", "l"}, {"key", "k"}}), "k");
  EXPECT_EQ(id({{"label", "l"}}), "l");
}

TEST(SpecifierList, KeepsUnknownKeysReadable) {
  auto list =
      readSpecifierList(listOf({Dictionary{{"cell", "PSLinkCell"}, {"allowAutomatic", false}}}));
  EXPECT_EQ((*list).specifiers[0]->propertyForKey("allowAutomatic"), plist::Value(false));
}

TEST(Validation, FindsNothingWrongWithTheSample) {
  auto list = readSpecifierList(sample::everyKindOfRow());
  ASSERT_TRUE(list);
  for (auto& error :
       preferences::validate(*list, sample::ListPage::ownOperations, sample::bundle()))
    ADD_FAILURE() << error.row << ": " << error.what;
}

TEST(Validation, NamesUnknownSelectors) {
  using testing::Contains;
  EXPECT_THAT(wrongIn(sample::row("PSSwitchCell", "a", {{"set", "absent:"}})),
              Contains("unknown selector \"absent:\" for set"));
  EXPECT_THAT(wrongIn(sample::row("PSSwitchCell", "a", {{"get", "absent:"}})),
              Contains("unknown selector \"absent:\" for get"));
  EXPECT_THAT(wrongIn(sample::row("PSButtonCell", "a", {{"action", "absent"}})),
              Contains("unknown selector \"absent\" for action"));
  EXPECT_THAT(
      wrongIn(sample::row("PSLinkListCell", "a",
                          {{"valuesDataSource", "absent:"}, {"titlesDataSource", "names:"}})),
      Contains("unknown selector \"absent:\" for valuesDataSource"));
}

TEST(Validation, NamesSelectorsOfTheWrongShape) {
  using testing::Contains;
  EXPECT_THAT(wrongIn(sample::row("PSSwitchCell", "a", {{"set", "names:"}})),
              Contains("selector \"names:\" can't serve as set"));
  EXPECT_THAT(wrongIn(sample::row("PSButtonCell", "a", {{"action", "setValue:forSpecifier:"}})),
              Contains("selector \"setValue:forSpecifier:\" can't serve as action"));
}

TEST(Validation, NamesUnknownClasses) {
  using testing::Contains;
  EXPECT_THAT(wrongIn(sample::row("PSLinkCell", "a", {{"detail", "Absent"}})),
              Contains("unknown page class \"Absent\""));
  EXPECT_THAT(wrongIn(sample::row("PSSwitchCell", "a", {{"cellClass", "Absent"}})),
              Contains("unknown cell class \"Absent\""));
  EXPECT_THAT(wrongIn(sample::row("PSLinkCell", "a")), Contains("a link row needs detail"));
}

TEST(Validation, WantsChoicesToFit) {
  using testing::Contains;
  EXPECT_THAT(wrongIn(sample::row("PSLinkListCell", "a")), Contains("a row of choices needs some"));
  EXPECT_THAT(wrongIn(sample::row("PSSegmentCell", "a",
                                  {{"validValues", Array{1, 2}}, {"validTitles", Array{"x"}}})),
              Contains("validValues and validTitles differ in length"));
  EXPECT_THAT(wrongIn(sample::row(
                  "PSSegmentCell", "a",
                  {{"validValues", Array{1}}, {"validTitles", Array{"x"}}, {"default", 3}})),
              Contains("default is none of validValues"));
  EXPECT_THAT(wrongIn(sample::row("PSLinkListCell", "a", {{"valuesDataSource", "numbers:"}})),
              Contains("valuesDataSource and titlesDataSource go together"));
}

TEST(Validation, WantsARangeForASlider) {
  using testing::Contains;
  EXPECT_THAT(wrongIn(sample::row("PSSliderCell", "a")), Contains("a slider needs min below max"));
  EXPECT_THAT(wrongIn(sample::row("PSSliderCell", "a", {{"min", 0}, {"max", 10}, {"default", 11}})),
              Contains("default lies outside min and max"));
}

TEST(Validation, WantsKeyAndDefaultsTogetherAndIdsUnique) {
  using testing::Contains;
  EXPECT_THAT(wrongIn({{"cell", "PSSwitchCell"}, {"id", "a"}, {"key", "a"}}),
              Contains("key and defaults go together"));
  EXPECT_THAT(wrongIn({{"cell", "PSSwitchCell"}}), Contains("id is missing"));
  auto list = readSpecifierList(
      listOf({sample::row("PSSwitchCell", "a"), sample::row("PSSwitchCell", "a")}));
  auto errors = preferences::validate(*list, sample::ListPage::ownOperations, kNoBundle);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].row, 1);
  EXPECT_EQ(errors[0].what, "a second row of id \"a\"");
}

}  // namespace
