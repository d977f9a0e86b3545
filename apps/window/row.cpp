#include "apps/window/row.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "apps/window/color_text.h"
#include "apps/window/text.h"
#include "host/settings_application.h"
#include "platform/foundation/text.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantisLinkCell.h"

namespace window {
namespace {

using preferences::CellType;
using preferences::PSSpecifier;

const char* kindOf(CellType type) {
  switch (type) {
    case CellType::PSGroupCell:
      return "group";
    case CellType::PSLinkCell:
    case CellType::PSLinkListCell:
    case CellType::PSListItemCell:
      return "link";
    case CellType::PSButtonCell:
      return "button";
    case CellType::PSSwitchCell:
      return "switch";
    case CellType::PSSliderCell:
      return "slider";
    case CellType::PSSegmentCell:
      return "segment";
    case CellType::PSEditTextCell:
    case CellType::PSSecureEditTextCell:
      return "text";
    case CellType::PSEditTextViewCell:
      return "longtext";
    case CellType::PSTitleValueCell:
      return "value";
    case CellType::PSStaticTextCell:
      return "static";
    case CellType::PSSpinnerCell:
      return "spinner";
    case CellType::PSGiantCell:
    case CellType::PSGiantIconCell:
      return "giant";
  }
  return "value";
}

int inputHintsOf(const PSSpecifier& specifier) {
  struct Keyboard {
    const char* flag;
    Qt::InputMethodHint hint;
  };
  constexpr Keyboard kKeyboards[] = {{"isNumeric", Qt::ImhDigitsOnly},
                                     {"isDecimalPad", Qt::ImhFormattedNumbersOnly},
                                     {"isIP", Qt::ImhFormattedNumbersOnly},
                                     {"isURL", Qt::ImhUrlCharactersOnly},
                                     {"isEmail", Qt::ImhEmailCharactersOnly}};
  int hints = 0;
  for (auto [flag, hint] : kKeyboards)
    if (specifier.boolForKey(flag, false)) hints |= Qt::ImhNoPredictiveText | hint;
  if (specifier.boolForKey("noAutoCorrect", false)) hints |= Qt::ImhNoPredictiveText;
  return hints;
}

// What a person can aim at within the range.
double grainOf(double range) {
  return range >= 20 ? 1 : range >= 2 ? 0.1 : 0.01;
}

QString valueText(const PSSpecifier& specifier, const preferences::PSTableCell& cell) {
  if (auto& text = cell.detailTextLabel.text) return toQString(*text);
  const plist::Value& value = specifier.propertyForKey("value");
  bool shows = preferences::hasChoices(specifier.cellType()) ||
               specifier.cellType() == CellType::PSTitleValueCell;
  return shows && !value.isNothing() ? toQString(foundation::descriptionOf(value)) : QString();
}

void describeControl(const uikit::Slider& slider, const PSSpecifier& specifier, Row& row) {
  row.minimum = slider.minimumValue();
  row.maximum = slider.maximumValue();
  row.number = slider.value();
  row.continuous = slider.continuous;
  double range = row.maximum - row.minimum;
  if (specifier.boolForKey("isSegmented", false))
    row.stops = static_cast<int>(specifier.propertyForKey("segmentCount").number().value_or(0));
  row.step = row.stops > 0 ? range / row.stops
             : range >= 20 ? std::max(1.0, std::round(range / 20))
                           : range / 20;
  if (!specifier.boolForKey("showValue", false)) return row.value.clear();
  row.grain = grainOf(range);
  row.value = Row::numberText(row.number);
}

void describeControl(const uikit::Control& control, const PSSpecifier& specifier, Row& row) {
  row.tint = colorOf(control.tintColor);
  row.background = colorOf(control.backgroundColor);
  if (auto* button = dynamic_cast<const uikit::Switch*>(&control)) {
    row.on = button->isOn();
    row.onTint = colorOf(button->onTintColor);
  } else if (auto* slider = dynamic_cast<const uikit::Slider*>(&control)) {
    describeControl(*slider, specifier, row);
    if (slider->minimumTrackTintColor) row.tint = colorOf(slider->minimumTrackTintColor);
  } else if (auto* segments = dynamic_cast<const uikit::SegmentedControl*>(&control)) {
    row.selected = segments->selectedSegmentIndex;
    row.value.clear();
  } else if (auto* field = dynamic_cast<const uikit::TextField*>(&control)) {
    row.value = toQString(field->text);
    row.placeholder = toQString(field->placeholder);
  }
}

// A swatch, or the word that is stored in place of a colour.
void describeColor(const prefs::ZorvekColorPickerQuorvantisLinkCell& cell, Row& row) {
  row.spoken = spokenColor(cell.selectedColor.value_or(""));
  row.value = cell.valueLabel->hidden ? QString() : toQString(cell.valueLabel->text.value_or(""));
  if (cell.thumbnailView->hidden || !cell.thumbnailView->image) return;
  row.swatch = colorOf(cell.thumbnailView->image->color);
  const auto& layer = cell.thumbnailView->layer;
  if (layer.borderWidth.value_or(0) > 0) row.border = colorOf(layer.borderColor);
}

}  // namespace

QString Row::numberText(double number) {
  QString text = QString::number(number, 'f', 3);
  while (text.endsWith('0')) text.chop(1);
  if (text.endsWith('.')) text.chop(1);
  return text;
}

Row describe(const PSSpecifier& specifier) {
  Row row;
  CellType type = specifier.cellType();
  constexpr std::string_view kColorCell = "ZorvekColorPickerQuorvantisLinkCell";
  const bool isColor = specifier.textForKey("cellClass") == kColorCell;
  row.kind = QLatin1String(isColor ? "color" : kindOf(type));
  row.identifier = toQString(specifier.identifier());
  row.label = toQString(specifier.name());
  row.height = specifier.propertyForKey("height").number().value_or(0);
  row.opens = type == CellType::PSLinkCell || type == CellType::PSLinkListCell;
  row.secret = type == CellType::PSSecureEditTextCell;
  row.destructive = specifier.boolForKey("isDestructive", false);
  row.inputHints = inputHintsOf(specifier);
  if (type == CellType::PSSegmentCell)
    for (const std::string& title : specifier.titles()) row.titles << toQString(title);

  const preferences::PSTableCell* cell = specifier.cellObject();
  if (!cell) return row;
  row.built = true;
  row.usable = host::isUsable(specifier);
  row.opacity = cell->alpha();
  row.ticked = cell->accessory == uikit::Accessory::Checkmark;
  row.value = valueText(specifier, *cell);
  if (cell->control()) describeControl(*cell->control(), specifier, row);
  using prefs::ZorvekColorPickerQuorvantisLinkCell;
  if (auto* color = dynamic_cast<const ZorvekColorPickerQuorvantisLinkCell*>(cell))
    describeColor(*color, row);
  return row;
}

}  // namespace window
