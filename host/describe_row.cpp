#include "host/describe.h"
#include "host/describe_control.h"
#include "platform/foundation/text.h"
#include "platform/foundation/url.h"
#include "platform/preferences/row_value.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantisLinkCell.h"
#include "prefs/colorpicker/palettes.h"
#include "prefs/pages/DependentListController.h"

namespace host {
namespace {

using preferences::CellType;
using preferences::PSListController;
using preferences::PSSpecifier;
using prefs::ZorvekColorPickerQuorvantisLinkCell;

RowKind kindOf(CellType type) {
  switch (type) {
    case CellType::PSGroupCell:
      return RowKind::Group;
    case CellType::PSLinkCell:
    case CellType::PSLinkListCell:
    case CellType::PSListItemCell:
      return RowKind::Link;
    case CellType::PSButtonCell:
      return RowKind::Button;
    case CellType::PSSwitchCell:
      return RowKind::Switch;
    case CellType::PSSliderCell:
      return RowKind::Slider;
    case CellType::PSSegmentCell:
      return RowKind::Segments;
    case CellType::PSEditTextCell:
    case CellType::PSSecureEditTextCell:
      return RowKind::Text;
    case CellType::PSEditTextViewCell:
      return RowKind::LongText;
    case CellType::PSTitleValueCell:
      return RowKind::Value;
    case CellType::PSStaticTextCell:
      return RowKind::Static;
    case CellType::PSSpinnerCell:
      return RowKind::Spinner;
    case CellType::PSGiantCell:
    case CellType::PSGiantIconCell:
      return RowKind::Giant;
  }
  return RowKind::Value;
}

RowKind kindOf(const PSSpecifier& row) {
  constexpr std::string_view kColorCell = "ZorvekColorPickerQuorvantisLinkCell";
  return row.textForKey("cellClass") == kColorCell ? RowKind::Color : kindOf(row.cellType());
}

std::optional<WhyNot> whyNotOf(PSListController& page, const PSSpecifier& row) {
  auto* dependent = dynamic_cast<prefs::DependentListController*>(&page);
  if (!dependent) return WhyNot{};
  const auto [id, lags] = dependent->dimmingOf(row.identifier());
  const PSSpecifier* by = id.empty() ? nullptr : page.specifierForID(id);
  if (!by) return WhyNot{};
  const uikit::Control* control = by->control();
  const preferences::PSTableCell* cell = by->cellObject();
  const bool usable = !cell || (cell->userInteractionEnabled() && cell->enabled());
  return WhyNot{std::string(id), by->name(), lags, !(control && control->isOn()), usable && !lags};
}

void describeCell(PSListController& page, const PSSpecifier& row, RowView& view) {
  const preferences::PSTableCell& cell = *row.cellObject();
  view.built = true;
  view.interaction = cell.userInteractionEnabled();
  view.enabled = cell.enabled();
  view.alpha = cell.alpha();
  view.ticked = cell.accessory == uikit::Accessory::Checkmark;
  view.usable = view.interaction && view.enabled;
  if (!view.usable) view.whyNot = whyNotOf(page, row);
}

std::string colorText(const std::string& text) {
  const prefs::ColorEntry* preset = prefs::presetColor(text);
  if (!preset) return text;
  return std::string(preset->name) + (text.starts_with('#') ? ", " + text : "");
}

// The path of a file that is chosen among others, though it isn't among the choices.
std::optional<std::string> fileIn(const PSSpecifier& row, const plist::Value& value) {
  if (!preferences::hasChoices(row.cellType()) || !value.text()) return std::nullopt;
  return row.titleForValue(value) ? std::nullopt : foundation::pathOfFileUrl(*value.text());
}

// A list that has no choices may be being read; then the file itself says whether it is there.
bool isGone(PSListController& page, const PSSpecifier& row, const plist::Value& value) {
  const auto file = fileIn(row, value);
  return file && (!row.values().empty() || !page.environment().root.hasEntry(*file));
}

// An empty text field is one that was never filled in, and a switch without a value is off.
bool sameSetting(RowKind kind, const plist::Value& a, const plist::Value& b) {
  if (kind == RowKind::Switch) return foundation::boolValue(a) == foundation::boolValue(b);
  const plist::Value empty("");
  const auto orEmpty = [&](const plist::Value& value) -> const plist::Value& {
    return value.isNothing() ? empty : value;
  };
  return plist::equalByValue(orEmpty(a), orEmpty(b));
}

}  // namespace

std::string shownText(const PSSpecifier& row, const plist::Value& value) {
  if (value.isNothing()) return {};
  if (const std::string* title = row.titleForValue(value)) return *title;
  const RowKind kind = kindOf(row);
  if (kind == RowKind::Switch) return foundation::boolValue(value) ? "on" : "off";
  if (kind == RowKind::Color && value.text()) return colorText(*value.text());
  if (preferences::hasChoices(row.cellType()) && value == plist::Value(""))
    return std::string(kUnset);
  if (const auto file = fileIn(row, value))
    return foundation::replacingInvalidUtf8(foundation::lastPathComponent(*file));
  return foundation::replacingInvalidUtf8(foundation::descriptionOf(value));
}

bool sameShown(const PSSpecifier& row, const plist::Value& a, const plist::Value& b) {
  return sameSetting(kindOf(row), a, b);
}

void describeColor(const ZorvekColorPickerQuorvantisLinkCell& cell, RowView& row) {
  const uikit::ImageView& swatch = *cell.thumbnailView;
  const uikit::Label& label = *cell.valueLabel;
  ColorView color;
  color.swatch = {swatch.hidden, std::nullopt, swatch.frame, swatch.layer.borderWidth.value_or(0),
                  swatch.layer.borderColor};
  if (swatch.image) color.swatch.color = swatch.image->color;
  color.label = {label.hidden, label.text, label.frame};
  row.control = std::move(color);
  row.value = cell.selectedColor ? plist::Value(*cell.selectedColor) : plist::Value();
  row.shown = colorText(cell.selectedColor.value_or(""));
}

namespace {

void describeValue(PSListController& page, PSSpecifier& row, RowView& view) {
  view.standard = preferences::defaultValue(row.properties());
  view.standardShown = shownText(row, view.standard);
  if (auto* color = dynamic_cast<ZorvekColorPickerQuorvantisLinkCell*>(row.cellObject())) {
    describeColor(*color, view);
  } else {
    view.value = row.isBuilt() ? shownValue(row, view.control) : page.valueOf(row);
    view.shown = shownText(row, view.value) + (isGone(page, row, view.value) ? " (gone)" : "");
  }
  view.changed = !view.key.empty() && !sameSetting(view.kind, view.value, view.standard);
  if (view.kind == RowKind::Color && view.built) view.value = row.propertyForKey("value");
}

}  // namespace

RowView describeRow(PSListController& page, PSSpecifier& row) {
  RowView view;
  view.id = row.identifier();
  view.label = row.name();
  view.key = row.textForKey("key");
  view.cellType = nameOf(row.cellType());
  view.cellClass = row.textForKey("cellClass");
  view.kind = kindOf(row);
  view.footer = row.textForKey("footerText");
  view.height = row.propertyForKey("height").number().value_or(0);
  view.destructive = row.boolForKey("isDestructive", false);
  if (row.isBuilt()) describeCell(page, row, view);
  view.control = describeControl(row);
  describeValue(page, row, view);
  return view;
}

std::string WhyNot::words() const {
  if (!instead.empty()) return instead;
  if (by.empty()) return "dimmed";
  if (lags) return "dimmed until you come back to this page";
  return std::string("dimmed: switch ") + (switchOn ? "on " : "off ") + label + " first";
}

std::string WhyNot::wayOut() const {
  return helps ? std::string("Switch ") + (switchOn ? "on " : "off ") + label : std::string();
}

}  // namespace host
