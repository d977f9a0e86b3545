#include "host/describe_control.h"

#include <algorithm>

#include "platform/foundation/text.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/controls.h"

namespace host {
namespace {

using plist::Value;
using preferences::CellType;
using preferences::PSSpecifier;

Keyboard keyboardOf(const PSSpecifier& row) {
  constexpr std::pair<const char*, Keyboard> kKeyboards[] = {{"isNumeric", Keyboard::Digits},
                                                             {"isDecimalPad", Keyboard::Number},
                                                             {"isIP", Keyboard::Number},
                                                             {"isURL", Keyboard::Url},
                                                             {"isEmail", Keyboard::Email}};
  for (auto [flag, keyboard] : kKeyboards)
    if (row.boolForKey(flag, false)) return keyboard;
  return Keyboard::Plain;
}

float numberIn(const PSSpecifier& row, std::string_view key, float otherwise) {
  return static_cast<float>(row.propertyForKey(key).number().value_or(otherwise));
}

SliderView listedSlider(const PSSpecifier& row) {
  SliderView view;
  view.minimum = numberIn(row, "min", view.minimum);
  view.maximum = numberIn(row, "max", view.maximum);
  view.continuous = row.boolForKey("isContinuous", false);
  view.showsValue = row.boolForKey("showValue", false);
  if (row.boolForKey("isSegmented", false))
    view.stops = static_cast<int>(numberIn(row, "segmentCount", 0));
  return view;
}

TextView listedText(const PSSpecifier& row) {
  TextView view;
  view.placeholder = row.textForKey("placeholder");
  view.secret = row.cellType() == CellType::PSSecureEditTextCell;
  view.lines = row.cellType() == CellType::PSEditTextViewCell;
  view.keyboard = keyboardOf(row);
  view.correction = view.keyboard == Keyboard::Plain && !row.boolForKey("noAutoCorrect", false);
  return view;
}

// What the list says of the control that the platform's own cell of that type has.
ControlView listedControl(const PSSpecifier& row) {
  switch (row.cellType()) {
    case CellType::PSSwitchCell:
      return SwitchView{};
    case CellType::PSSliderCell:
      return listedSlider(row);
    case CellType::PSSegmentCell:
      return SegmentsView{row.choices(), -1, {}};
    case CellType::PSEditTextCell:
    case CellType::PSSecureEditTextCell:
    case CellType::PSEditTextViewCell:
      return listedText(row);
    case CellType::PSLinkListCell:
    case CellType::PSLinkCell: {
      const bool choices = preferences::hasChoices(row.cellType());
      return LinkView{std::string(row.textForKey("detail")), choices ? row.choices() : nullptr};
    }
    default:
      return std::monostate();
  }
}

ControlLook lookOf(const uikit::Control& control) {
  return {control.tintColor, control.backgroundColor, control.layer.cornerRadius};
}

SliderView describe(const uikit::Slider& slider, const PSSpecifier& row) {
  SliderView view = listedSlider(row);
  view.value = slider.value();
  view.minimum = slider.minimumValue();
  view.maximum = slider.maximumValue();
  view.continuous = slider.continuous;
  view.minimumTrackTint = slider.minimumTrackTintColor;
  view.look = lookOf(slider);
  return view;
}

TextView describe(const uikit::TextField& field, const PSSpecifier& row) {
  TextView view = listedText(row);
  view.text = field.text;
  view.placeholder = field.placeholder;
  view.look = lookOf(field);
  return view;
}

// Whether a control that was made from this value would be as this one is.
struct Shows {
  const PSSpecifier& row;
  const Value& value;

  bool operator()(const SwitchView& view) const { return foundation::boolValue(value) == view.on; }
  bool operator()(const SliderView& view) const {
    const auto number = static_cast<float>(value.number().value_or(view.minimum));
    return std::clamp(number, view.minimum, std::max(view.minimum, view.maximum)) == view.value;
  }
  bool operator()(const SegmentsView& view) const {
    return row.indexOfValue(value) == view.selected;
  }
  bool operator()(const TextView& view) const {
    return value.text() ? *value.text() == view.text : view.text.empty();
  }
  bool operator()(const auto&) const { return true; }
};

struct Says {
  Value operator()(const SwitchView& view) const { return view.on; }
  Value operator()(const SliderView& view) const { return view.value; }
  Value operator()(const SegmentsView& view) const {
    const bool chosen = view.selected >= 0 && view.selected < std::ssize(view.choices->values);
    return chosen ? view.choices->values[view.selected] : Value();
  }
  Value operator()(const TextView& view) const { return view.text; }
  Value operator()(const auto&) const { return {}; }
};

}  // namespace

ControlView describeControl(const PSSpecifier& row) {
  if (!row.isBuilt()) return listedControl(row);
  const uikit::Control* control = row.control();
  if (auto* button = dynamic_cast<const uikit::Switch*>(control))
    return SwitchView{button->isOn(), button->onTintColor, lookOf(*button)};
  if (auto* slider = dynamic_cast<const uikit::Slider*>(control)) return describe(*slider, row);
  if (auto* field = dynamic_cast<const uikit::TextField*>(control)) return describe(*field, row);
  if (auto* segments = dynamic_cast<const uikit::SegmentedControl*>(control))
    return SegmentsView{row.choices(), segments->selectedSegmentIndex, lookOf(*segments)};
  const ControlView listed = listedControl(row);
  return std::holds_alternative<LinkView>(listed) ? listed : std::monostate();
}

Value shownValue(const PSSpecifier& row, const ControlView& control) {
  const Value& read = row.propertyForKey("value");
  if (std::visit(Shows{row, read}, control)) return read;
  return std::visit(Says{}, control);
}

}  // namespace host
