#include "platform/preferences/PSSwitchTableCell.h"

#include "platform/foundation/text.h"
#include "platform/preferences/PSSpecifier.h"

namespace preferences {

PSSwitchTableCell::PSSwitchTableCell(uikit::CellStyle style, std::string reuseIdentifier,
                                     PSSpecifier& specifier)
    : PSTableCell(style, std::move(reuseIdentifier), specifier) {
  setControl(std::make_shared<uikit::Switch>());
}

uikit::Switch& PSSwitchTableCell::switchControl() const {
  return static_cast<uikit::Switch&>(*control());
}

void PSSwitchTableCell::refreshCellContents() {
  switchControl().setOn(foundation::boolValue(specifier().propertyForKey("value")));
}

}  // namespace preferences
