#include "host/row_change.h"

#include <algorithm>

#include "platform/foundation/text.h"

namespace host {
namespace {

using plist::Value;
using preferences::PSListController;
using preferences::PSSpecifier;

Refusal badValue(const PSSpecifier& row, const std::string& what) {
  return {RefusalCode::BadValue, "\"" + row.identifier() + "\" " + what};
}

Outcome<Done> change(uikit::Switch& control, PSListController& page, PSSpecifier& row,
                     const Value& value) {
  const auto on = value.boolean();
  if (!on) return badValue(row, "takes true or false");
  control.setOn(*on);
  page.userChanged(row, *on);
  return Done{};
}

Outcome<Done> change(uikit::Slider& control, PSListController& page, PSSpecifier& row,
                     const Value& value) {
  const auto number = value.boolean() ? std::nullopt : value.number();
  if (!number) return badValue(row, "takes a number");
  const double minimum = row.propertyForKey("min").number().value_or(control.minimumValue());
  const double maximum = row.propertyForKey("max").number().value_or(control.maximumValue());
  if (!(*number >= minimum && *number <= maximum))
    return badValue(row, "takes a number from " + foundation::descriptionOf(minimum) + " to " +
                             foundation::descriptionOf(maximum));
  control.setValue(static_cast<float>(*number));
  page.userChanged(row, *number);
  return Done{};
}

Outcome<Done> change(uikit::TextField& control, PSListController& page, PSSpecifier& row,
                     const Value& value) {
  if (!value.text()) return badValue(row, "takes text");
  const bool lines = row.cellType() == preferences::CellType::PSEditTextViewCell;
  const auto cannotBeTyped = [lines](unsigned char c) {
    return (c < ' ' && !(lines && (c == '\n' || c == '\t'))) || c == 0x7F;
  };
  if (std::ranges::any_of(*value.text(), cannotBeTyped))
    return badValue(row,
                    lines ? "takes text without control characters" : "takes one line of text");
  control.text = *value.text();
  page.userChanged(row, value);
  return Done{};
}

Outcome<Done> choose(PSListController& page, PSSpecifier& row, const Value& value) {
  const int index = row.indexOfValue(value);
  if (index < 0) return badValue(row, "has no such choice");
  if (auto* segments = dynamic_cast<uikit::SegmentedControl*>(row.control()))
    segments->selectedSegmentIndex = index;
  const Value chosen = row.values[index];
  page.userChanged(row, chosen);
  return Done{};
}

}  // namespace

bool isUsable(const PSSpecifier& row) {
  const preferences::PSTableCell* cell = row.cellObject();
  return !cell || (cell->userInteractionEnabled() && cell->enabled());
}

Outcome<Done> changeRow(PSListController& page, PSSpecifier& row, const Value& value) {
  // The row and its control outlive a setter that reloads them.
  const auto heldRow = row.shared_from_this();
  uikit::Control* control = row.control();
  const auto heldControl = control ? control->shared_from_this() : nullptr;
  if (auto* button = dynamic_cast<uikit::Switch*>(control))
    return change(*button, page, row, value);
  if (auto* slider = dynamic_cast<uikit::Slider*>(control))
    return change(*slider, page, row, value);
  if (auto* field = dynamic_cast<uikit::TextField*>(control))
    return change(*field, page, row, value);
  if (!preferences::hasChoices(row.cellType())) return badValue(row, "takes no value");
  // A list of choices is opened before one is picked, and asked for at each opening.
  if (!control) page.loadChoices(row);
  return choose(page, row, value);
}

}  // namespace host
