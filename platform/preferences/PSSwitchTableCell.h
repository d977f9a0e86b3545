#pragma once

#include "platform/preferences/PSTableCell.h"

namespace preferences {

class PSSwitchTableCell : public PSTableCell {
 public:
  PSSwitchTableCell(uikit::CellStyle style, std::string reuseIdentifier, PSSpecifier& specifier);
  std::string_view className() const override { return "PSSwitchTableCell"; }
  void refreshCellContents() override;

 protected:
  uikit::Switch& switchControl() const;
};

}  // namespace preferences
