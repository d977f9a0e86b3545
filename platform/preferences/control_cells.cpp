#include "platform/preferences/control_cells.h"

#include "platform/foundation/text.h"
#include "platform/preferences/PSSpecifier.h"

namespace preferences {
namespace {

float floatForKey(const PSSpecifier& specifier, std::string_view key, float otherwise) {
  auto number = specifier.propertyForKey(key).number();
  return number ? static_cast<float>(*number) : otherwise;
}

}  // namespace

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

PSSliderTableCell::PSSliderTableCell(uikit::CellStyle style, std::string reuseIdentifier,
                                     PSSpecifier& specifier)
    : PSTableCell(style, std::move(reuseIdentifier), specifier) {
  auto slider = std::make_shared<uikit::Slider>();
  slider->setRange(floatForKey(specifier, "min", 0), floatForKey(specifier, "max", 1));
  slider->continuous = specifier.boolForKey("isContinuous", false);
  setControl(std::move(slider));
}

void PSSliderTableCell::refreshCellContents() {
  auto& slider = static_cast<uikit::Slider&>(*control());
  slider.setValue(floatForKey(specifier(), "value", slider.minimumValue()));
}

PSSegmentTableCell::PSSegmentTableCell(uikit::CellStyle style, std::string reuseIdentifier,
                                       PSSpecifier& specifier)
    : PSTableCell(style, std::move(reuseIdentifier), specifier) {
  auto segments = std::make_shared<uikit::SegmentedControl>();
  segments->titles = specifier.titles();
  setControl(std::move(segments));
}

void PSSegmentTableCell::refreshCellContents() {
  static_cast<uikit::SegmentedControl&>(*control()).selectedSegmentIndex =
      specifier().indexOfValue(specifier().propertyForKey("value"));
}

PSEditableTableCell::PSEditableTableCell(uikit::CellStyle style, std::string reuseIdentifier,
                                         PSSpecifier& specifier)
    : PSTableCell(style, std::move(reuseIdentifier), specifier) {
  auto field = std::make_shared<uikit::TextField>();
  field->placeholder = specifier.textForKey("placeholder");
  setControl(std::move(field));
}

void PSEditableTableCell::refreshCellContents() {
  static_cast<uikit::TextField&>(*control()).text = specifier().textForKey("value");
}

}  // namespace preferences
