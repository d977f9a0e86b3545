#include <gmock/gmock.h>

#include "tests/host/sample_settings.h"

namespace {

using host::RefusalCode;
using sample::refusalOf;
using sample::Settings;
using testing::ElementsAre;
using uikit::IndexPath;

class TablePages : public testing::Test {
 protected:
  TablePages() {
    EXPECT_TRUE(settings.application.perform(host::Resize{100}));
    EXPECT_TRUE(settings.application.perform(host::Tap{"table"}));
    EXPECT_TRUE(settings.application.perform(host::Resize{6}));
  }

  Settings settings{6};
};

TEST_F(TablePages, ShowTheEntriesOfTheScreenOverAllSections) {
  auto* table = settings.application.shownTable();
  EXPECT_NE(table->cellForRowAtIndexPath({0, 4}), nullptr);
  EXPECT_NE(table->cellForRowAtIndexPath({1, 0}), nullptr);
  EXPECT_EQ(table->cellForRowAtIndexPath({1, 1}), nullptr);
}

TEST_F(TablePages, HaveNoRowsOfAList) {
  EXPECT_EQ(settings.application.shownList(), nullptr);
  EXPECT_EQ(refusalOf(settings.application.row(0)), RefusalCode::NoRow);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{0, true})), RefusalCode::NoRow);
}

TEST_F(TablePages, ScrollTakesCellsOffTheScreen) {
  ASSERT_TRUE(settings.application.perform(host::Scroll{10}));
  auto* table = settings.application.shownTable();
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 0}), nullptr);
  EXPECT_NE(table->cellForRowAtIndexPath({1, 5}), nullptr);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Scroll{sample::kTableRows})),
            RefusalCode::BadValue);
  ASSERT_TRUE(settings.application.perform(host::Scroll{sample::kTableRows - 1}));
  EXPECT_EQ(settings.application.firstShown(), sample::kTableRows - 6);
}

TEST_F(TablePages, ShowKeepsTheCellsThatStayOnScreen) {
  ASSERT_TRUE(settings.application.perform(host::Scroll{10}));
  auto* table = settings.application.shownTable();
  auto* cell = table->cellForRowAtIndexPath(table->pathOfRow(15));
  cell->detailTextLabel.text = "marked";
  ASSERT_TRUE(settings.application.perform(host::Scroll{14, 2}));
  EXPECT_EQ(table->cellForRowAtIndexPath(table->pathOfRow(15))->detailTextLabel.text, "marked");
  EXPECT_EQ(table->cellForRowAtIndexPath(table->pathOfRow(13)), nullptr);
}

TEST_F(TablePages, SelectTapsARowOnScreen) {
  ASSERT_TRUE(settings.application.perform(host::Select{0, 3}));
  EXPECT_THAT(settings.table().selected, ElementsAre(IndexPath{0, 3}));
}

TEST_F(TablePages, SelectOfARowThatIsNotThereOrOffScreen) {
  EXPECT_EQ(refusalOf(settings.application.perform(host::Select{2, 0})), RefusalCode::NoRow);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Select{0, 5})), RefusalCode::NoRow);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Select{-1, 0})), RefusalCode::NoRow);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Select{0, -1})), RefusalCode::NoRow);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Select{1, 5})), RefusalCode::NotBuilt);
  EXPECT_THAT(settings.table().selected, ElementsAre());
}

TEST_F(TablePages, SelectOnAPageOfRows) {
  ASSERT_TRUE(settings.application.perform(host::Back{}));
  EXPECT_EQ(refusalOf(settings.application.perform(host::Select{0, 0})), RefusalCode::NoRow);
}

TEST_F(TablePages, ReloadMakesTheCellsAnew) {
  settings.table().made.clear();
  ASSERT_TRUE(settings.application.perform(host::Reload{}));
  EXPECT_EQ(settings.table().made.size(), 6u);
}

TEST_F(TablePages, DragMovesTheSliderAndLetsGoOfIt) {
  ASSERT_TRUE(settings.application.perform(host::Scroll{sample::kTableRows - 1}));
  ASSERT_TRUE(settings.application.perform(host::Drag{sample::kSliderTag, 12.5, false}));
  EXPECT_EQ(settings.table().dragged, 1);
  EXPECT_EQ(settings.table().released, 0);
  ASSERT_TRUE(settings.application.perform(host::Drag{sample::kSliderTag, 255, true}));
  EXPECT_EQ(settings.table().dragged, 2);
  EXPECT_EQ(settings.table().released, 1);
  auto* slider = settings.application.shownTable()->viewWithTag(sample::kSliderTag);
  EXPECT_EQ(dynamic_cast<uikit::Slider&>(*slider).value(), 255.0f);
}

TEST_F(TablePages, DragThatCanNotBe) {
  EXPECT_EQ(refusalOf(settings.application.perform(host::Drag{1, 0, false})), RefusalCode::NoRow);
  ASSERT_TRUE(settings.application.perform(host::Scroll{sample::kTableRows - 1}));
  EXPECT_EQ(refusalOf(settings.application.perform(host::Drag{sample::kSliderTag, 255.5, true})),
            RefusalCode::BadValue);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Drag{sample::kSliderTag, -1, true})),
            RefusalCode::BadValue);
  EXPECT_EQ(settings.table().dragged, 0);
}

TEST_F(TablePages, DragOnAPageOfRows) {
  ASSERT_TRUE(settings.application.perform(host::Back{}));
  EXPECT_EQ(refusalOf(settings.application.perform(host::Drag{0, 1, true})), RefusalCode::NoRow);
}

TEST(ChoicesPage, SelectChoosesAndStaysAndBackShowsIt) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"list"}));
  EXPECT_EQ(settings.application.shownPage()->className(), "PSListItemsController");
  EXPECT_EQ(settings.application.shownPage()->title, "list");
  ASSERT_TRUE(settings.application.perform(host::Select{0, 0}));
  EXPECT_EQ(settings.application.pages().size(), 2u);
  EXPECT_EQ(settings.stored("list"), plist::Value(1));
  auto* table = settings.application.shownTable();
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 0})->accessory, uikit::Accessory::Checkmark);
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 1})->accessory, uikit::Accessory::None);
  ASSERT_TRUE(settings.application.perform(host::Back{}));
  EXPECT_EQ(settings.row("list").cellObject()->detailTextLabel.text, "number 1");
}

}  // namespace
