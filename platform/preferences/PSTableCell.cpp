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

std::optional<std::string> PSTableCell::detailText() const {
  const std::string* title = specifier_.titleForValue(specifier_.propertyForKey("value"));
  return title ? std::optional(*title) : std::nullopt;
}

}  // namespace preferences
