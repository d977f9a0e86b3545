#pragma once

#include "platform/preferences/PSSwitchTableCell.h"

namespace prefs {

// The switch of "profileactive": green while a profile is active, red while not.
class QuorvantisProfileActiveSwitchTableCell : public preferences::PSSwitchTableCell {
 public:
  QuorvantisProfileActiveSwitchTableCell(uikit::CellStyle style, std::string reuseIdentifier,
                                         preferences::PSSpecifier& specifier);
  std::string_view className() const override { return "QuorvantisProfileActiveSwitchTableCell"; }
};

}  // namespace prefs
