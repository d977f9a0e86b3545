#include <gtest/gtest.h>

#include "platform/uikit/table_view.h"

using namespace uikit;

namespace {

// Two sections of three and ten rows whose cells bear their row as a title.
struct Source : TableViewSource {
  int numberOfSectionsInTableView(TableView&) override { return 2; }
  int tableViewNumberOfRowsInSection(TableView&, int section) override { return section ? 10 : 3; }
  std::shared_ptr<TableViewCell> tableViewCellForRowAtIndexPath(TableView& table,
                                                                IndexPath path) override {
    auto cell = table.dequeueReusableCellWithIdentifier("row");
    if (!cell) {
      cell = std::make_shared<TableViewCell>(CellStyle::Default, "row");
      ++made;
    }
    cell->textLabel.text = std::to_string(path.section) + "." + std::to_string(path.row);
    return cell;
  }
  int made = 0;
};

class TableViewTest : public testing::Test {
 protected:
  TableViewTest() { table->source = &source; }
  Source source;
  std::shared_ptr<TableView> table = std::make_shared<TableView>();
};

}  // namespace

TEST_F(TableViewTest, MakesCellsOnlyForRowsOnScreen) {
  table->show(0, 4);
  EXPECT_EQ(source.made, 4);
  EXPECT_EQ(table->cellForRowAtIndexPath({1, 0})->textLabel.text, "1.0");
  EXPECT_EQ(table->cellForRowAtIndexPath({1, 1}), nullptr);
}

TEST_F(TableViewTest, ReusesTheCellsThatLeaveTheScreen) {
  table->show(0, 4);
  table->cellForRowAtIndexPath({0, 0})->tag = 205;
  auto* reused = table->cellForRowAtIndexPath({0, 0});
  table->show(1, 4);
  EXPECT_EQ(source.made, 4);
  EXPECT_EQ(table->cellForRowAtIndexPath({1, 1}), reused);
  EXPECT_EQ(reused->tag, 205) << "a cell comes back as it was left";
}

TEST_F(TableViewTest, KeepsTheCellsThatStayOnScreen) {
  table->show(0, 4);
  auto* stays = table->cellForRowAtIndexPath({0, 2});
  table->show(2, 4);
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 2}), stays);
}

TEST_F(TableViewTest, FindsViewsOnlyInCellsOnScreen) {
  table->show(0, 4);
  table->cellForRowAtIndexPath({0, 0})->tag = 9;
  EXPECT_NE(table->viewWithTag(9), nullptr);
  table->show(9, 2);
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 0}), nullptr);
}

TEST_F(TableViewTest, AsksAgainForEachRowOnReload) {
  table->show(0, 2);
  table->cellForRowAtIndexPath({0, 1})->textLabel.text = "stale";
  table->reloadData();
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 1})->textLabel.text, "0.1");
}

TEST_F(TableViewTest, ShowsNoRowBeyondTheLast) {
  table->show(11, 5);
  EXPECT_NE(table->cellForRowAtIndexPath({1, 9}), nullptr);
  EXPECT_EQ(source.made, 2);
  EXPECT_EQ(table->rowCount(), 13);
}
