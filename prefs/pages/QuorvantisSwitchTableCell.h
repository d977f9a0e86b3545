#pragma once

#include "platform/preferences/PSSwitchTableCell.h"

namespace prefs {

// The bundle's ordinary switch, in its accent colour.
class QuorvantisSwitchTableCell : public preferences::PSSwitchTableCell {
 public:
  QuorvantisSwitchTableCell(uikit::CellStyle style, std::string reuseIdentifier,
                            preferences::PSSpecifier& specifier);
  std::string_view className() const override { return "QuorvantisSwitchTableCell"; }
};

}  // namespace prefs
