#include "platform/preferences/PSTableCell.h"

#include "platform/preferences/PSSpecifier.h"

namespace preferences {

PSTableCell::PSTableCell(uikit::CellStyle style, std::string reuseIdentifier,
                         PSSpecifier& specifier)
    : TableViewCell(style, std::move(reuseIdentifier)), specifier_(specifier) {
  textLabel.text = specifier.name();
  setUserInteractionEnabled(specifier.boolForKey("enabled", true));
  setAlpha(userInteractionEnabled() ? 1.0 : 0.3f);
}

void PSTableCell::setControl(std::shared_ptr<uikit::Control> control) {
  control_ = std::move(control);
  contentView.addSubview(control_);
}

void PSTableCell::refreshCellContents() {
  const plist::Value& value = specifier_.propertyForKey("value");
  if (const std::string* title = specifier_.titleForValue(value)) detailTextLabel.text = *title;
}

}  // namespace preferences
