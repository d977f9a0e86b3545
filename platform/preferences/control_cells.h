#pragma once

#include "platform/preferences/PSTableCell.h"

// The platform's own cells for rows that hold a control.
namespace preferences {

class PSSwitchTableCell : public PSTableCell {
 public:
  PSSwitchTableCell(uikit::CellStyle style, std::string reuseIdentifier, PSSpecifier& specifier);
  std::string_view className() const override { return "PSSwitchTableCell"; }
  void refreshCellContents() override;

 protected:
  uikit::Switch& switchControl() const;
};

class PSSliderTableCell : public PSTableCell {
 public:
  PSSliderTableCell(uikit::CellStyle style, std::string reuseIdentifier, PSSpecifier& specifier);
  std::string_view className() const override { return "PSSliderTableCell"; }
  void refreshCellContents() override;
};

class PSSegmentTableCell : public PSTableCell {
 public:
  PSSegmentTableCell(uikit::CellStyle style, std::string reuseIdentifier, PSSpecifier& specifier);
  std::string_view className() const override { return "PSSegmentTableCell"; }
  void refreshCellContents() override;
};

class PSEditableTableCell : public PSTableCell {
 public:
  PSEditableTableCell(uikit::CellStyle style, std::string reuseIdentifier, PSSpecifier& specifier);
  std::string_view className() const override { return "PSEditableTableCell"; }
  void refreshCellContents() override;
};

}  // namespace preferences
