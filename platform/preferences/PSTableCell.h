#pragma once

#include <memory>

#include "platform/uikit/controls.h"
#include "platform/uikit/table_view_cell.h"

namespace preferences {

class PSSpecifier;

// The cell of a row. `control` is what the user operates in it, if anything.
class PSTableCell : public uikit::TableViewCell {
 public:
  // initWithStyle:reuseIdentifier:specifier:
  PSTableCell(uikit::CellStyle style, std::string reuseIdentifier, PSSpecifier& specifier);
  std::string_view className() const override { return "PSTableCell"; }

  PSSpecifier& specifier() const { return specifier_; }
  uikit::Control* control() const { return control_.get(); }

  // Shows the row's current value: refreshCellContentsWithSpecifier:
  virtual void refreshCellContents() {}

  // The title of the choice that is the row's value, found out when it is asked for.
  std::optional<std::string> detailText() const;

 protected:
  void setControl(std::shared_ptr<uikit::Control> control);

 private:
  PSSpecifier& specifier_;
  std::shared_ptr<uikit::Control> control_;
};

}  // namespace preferences
