#include "prefs/pages/switch_cells.h"

namespace prefs {

uikit::Color accentColor() {
  return uikit::Color::fromBytes(52, 73, 94);
}

QuorvantisSwitchTableCell::QuorvantisSwitchTableCell(uikit::CellStyle style,
                                                     std::string reuseIdentifier,
                                                     preferences::PSSpecifier& specifier)
    : PSSwitchTableCell(style, std::move(reuseIdentifier), specifier) {
  switchControl().onTintColor = accentColor();
  switchControl().tintColor = accentColor();
}

QuorvantisProfileActiveSwitchTableCell::QuorvantisProfileActiveSwitchTableCell(
    uikit::CellStyle style, std::string reuseIdentifier, preferences::PSSpecifier& specifier)
    : PSSwitchTableCell(style, std::move(reuseIdentifier), specifier) {
  switchControl().onTintColor = uikit::Color::fromBytes(46, 204, 113, 180);
  // Shows as the track of the switch while it is off.
  switchControl().backgroundColor = uikit::Color::fromBytes(231, 76, 60, 180);
  switchControl().layer.cornerRadius = 16.0;
}

}  // namespace prefs
