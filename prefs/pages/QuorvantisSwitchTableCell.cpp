#include "prefs/pages/QuorvantisSwitchTableCell.h"

#include "prefs/pages/colors.h"

namespace prefs {

QuorvantisSwitchTableCell::QuorvantisSwitchTableCell(uikit::CellStyle style,
                                                     std::string reuseIdentifier,
                                                     preferences::PSSpecifier& specifier)
    : PSSwitchTableCell(style, std::move(reuseIdentifier), specifier) {
  switchControl().onTintColor = accentColor();
  switchControl().tintColor = accentColor();
}

}  // namespace prefs
