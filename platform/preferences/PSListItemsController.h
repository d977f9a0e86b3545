#pragma once

#include <memory>

#include "platform/preferences/PSListController.h"
#include "platform/uikit/table_view.h"

namespace preferences {

// The choices of a list row: a table of one section, the current value ticked. Choosing stores
// through the setter of the row's own page and stays; going back leaves.
class PSListItemsController : public PSViewController, public uikit::TableViewSource {
 public:
  using PSViewController::PSViewController;
  std::string_view className() const override { return "PSListItemsController"; }

  void viewDidLoad() override;
  uikit::TableView* table() const override { return table_.get(); }
  uikit::TableView& tableView() const { return *table_; }
  int selectedRow() const;  // -1 when the row's value is not one of its choices

  int tableViewNumberOfRowsInSection(uikit::TableView& table, int section) override;
  std::shared_ptr<uikit::TableViewCell> tableViewCellForRowAtIndexPath(
      uikit::TableView& table, uikit::IndexPath path) override;
  void tableViewDidSelectRowAtIndexPath(uikit::TableView& table, uikit::IndexPath path) override;

  const Operations& operations() const override { return ownOperations; }
  static const Operations ownOperations;

 private:
  PSListController& list() const;

  std::shared_ptr<uikit::TableView> table_;
};

}  // namespace preferences
