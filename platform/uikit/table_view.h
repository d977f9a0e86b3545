#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/uikit/table_view_cell.h"

namespace uikit {

class TableView;

// What a table asks of its data source, and what it reports to its delegate.
class TableViewSource {
 public:
  virtual ~TableViewSource() = default;
  virtual int numberOfSectionsInTableView(TableView&) { return 1; }
  virtual std::string tableViewTitleForHeaderInSection(TableView&, int) { return {}; }
  virtual int tableViewNumberOfRowsInSection(TableView&, int section) = 0;
  virtual double tableViewHeightForRowAtIndexPath(TableView& table, IndexPath path);
  virtual std::shared_ptr<TableViewCell> tableViewCellForRowAtIndexPath(TableView&, IndexPath) = 0;
  virtual void tableViewDidSelectRowAtIndexPath(TableView&, IndexPath) {}
};

enum class TableStyle { Plain, Grouped };

// A table that keeps a cell only for the rows on screen. A cell that leaves the screen waits under
// its reuse identifier until a row asks for it; it comes back as it was left, tag and all.
class TableView : public View {
 public:
  std::string_view className() const override { return "UITableView"; }

  TableStyle style = TableStyle::Plain;
  double rowHeight = 44;
  TableViewSource* source = nullptr;  // data source and delegate

  // Null when no cell waits under that identifier.
  std::shared_ptr<TableViewCell> dequeueReusableCellWithIdentifier(std::string_view identifier);
  TableViewCell* cellForRowAtIndexPath(IndexPath path) const;  // null when off screen
  void reloadData();  // all cells leave the screen; the rows on screen are asked for anew

  // Shows the rows first to first + count - 1, counted over all sections; makes the cells of rows
  // that came into view after those that left have been put aside. Cells stand in the table from
  // the last row to the first: what is looked up by tag is found in the lowest row that carries it,
  // however many others have kept the tag through reuse.
  void show(int first, int count);
  int rowCount();  // of all sections
  IndexPath pathOfRow(int index);
  int firstShown() const { return first_; }

 private:
  void putAside(std::map<IndexPath, std::shared_ptr<TableViewCell>> cells);

  std::map<IndexPath, std::shared_ptr<TableViewCell>> shown_;
  std::map<std::string, std::vector<std::shared_ptr<TableViewCell>>, std::less<>> waiting_;
  int first_ = 0, count_ = 0;
};

}  // namespace uikit
