#pragma once

#include "platform/preferences/control_cells.h"
#include "platform/uikit/color.h"

// The bundle's switches, which differ from the platform's in their colors alone.
namespace prefs {

// #34495E. One step away from a color that the picker offers, on purpose.
uikit::Color accentColor();

// The ordinary switch, in the accent color.
class QuorvantisSwitchTableCell : public preferences::PSSwitchTableCell {
 public:
  QuorvantisSwitchTableCell(uikit::CellStyle style, std::string reuseIdentifier,
                            preferences::PSSpecifier& specifier);
  std::string_view className() const override { return "QuorvantisSwitchTableCell"; }
};

// The switch of "profileactive": green while a profile is active, red while not.
class QuorvantisProfileActiveSwitchTableCell : public preferences::PSSwitchTableCell {
 public:
  QuorvantisProfileActiveSwitchTableCell(uikit::CellStyle style, std::string reuseIdentifier,
                                         preferences::PSSpecifier& specifier);
  std::string_view className() const override { return "QuorvantisProfileActiveSwitchTableCell"; }
};

}  // namespace prefs
