#include "platform/preferences/PSListItemsController.h"

namespace preferences {

const Operations PSListItemsController::ownOperations{[]() -> OperationTable { return {}; },
                                                      &PSViewController::ownOperations};

PSListController& PSListItemsController::list() const {
  return static_cast<PSListController&>(*parent());
}

void PSListItemsController::viewDidLoad() {
  PSViewController::viewDidLoad();
  list().loadChoices(*specifier());
  table_ = std::make_shared<uikit::TableView>();
  table_->source = this;
}

int PSListItemsController::selectedRow() const {
  return specifier()->indexOfValue(list().valueOf(*specifier()));
}

int PSListItemsController::tableViewNumberOfRowsInSection(uikit::TableView&, int) {
  return static_cast<int>(specifier()->titles().size());
}

std::shared_ptr<uikit::TableViewCell> PSListItemsController::tableViewCellForRowAtIndexPath(
    uikit::TableView& table, uikit::IndexPath path) {
  auto cell = table.dequeueReusableCellWithIdentifier("PSListItemCell");
  if (!cell)
    cell = std::make_shared<uikit::TableViewCell>(uikit::CellStyle::Default, "PSListItemCell");
  cell->textLabel.text = specifier()->titles()[path.row];
  cell->accessory =
      path.row == selectedRow() ? uikit::Accessory::Checkmark : uikit::Accessory::None;
  return cell;
}

void PSListItemsController::tableViewDidSelectRowAtIndexPath(uikit::TableView& table,
                                                             uikit::IndexPath path) {
  list().userChanged(*specifier(), specifier()->values()[path.row]);
  table.reloadData();
}

}  // namespace preferences
