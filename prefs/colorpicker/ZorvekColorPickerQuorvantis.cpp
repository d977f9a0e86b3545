#include "prefs/colorpicker/ZorvekColorPickerQuorvantis.h"

#include "platform/foundation/text.h"
#include "platform/uikit/geometry.h"
#include "prefs/colorpicker/color_values.h"
#include "prefs/colorpicker/palettes.h"
#include "prefs/colorpicker/picker_views.h"
#include "prefs/colorpicker/view_tags.h"
#include "prefs/core/preference_store.h"

namespace prefs {
namespace {

using uikit::Accessory;
using uikit::IndexPath;
using uikit::TableView;
using uikit::TableViewCell;

// Section 0 has these in place of its color texts.
constexpr const char* kSpecialCaptions[] = {"*default color", "*quorvantis theme color"};

const Palette* paletteAt(int section) {
  const auto palettes = colorPalettes();
  return section >= 0 && section < std::ssize(palettes) ? &palettes[section] : nullptr;
}

const ColorEntry* entryAt(IndexPath path) {
  const Palette* palette = paletteAt(path.section);
  const bool exists = palette && path.row >= 0 && path.row < std::ssize(palette->colors);
  return exists ? &palette->colors[path.row] : nullptr;
}

std::optional<std::string> textOf(const plist::Value& color) {
  return color.text() ? std::optional(*color.text()) : std::nullopt;
}

plist::Value valueOf(const std::optional<std::string>& color) {
  return color ? plist::Value(*color) : plist::Value();
}

std::optional<std::string> captionOf(const plist::Value& color) {
  return color.isNothing() ? std::nullopt : std::optional(foundation::descriptionOf(color));
}

}  // namespace

plist::Array ZorvekColorPickerQuorvantis::palettes() {
  return asArray(colorPalettes());
}

plist::Array ZorvekColorPickerQuorvantis::specialColors() {
  return asArray(colorPalettes()[kSpecialSection].colors);
}

plist::Array ZorvekColorPickerQuorvantis::iOSColors() {
  return asArray(colorPalettes()[kIOSSection].colors);
}

plist::Array ZorvekColorPickerQuorvantis::crayonColors() {
  return asArray(colorPalettes()[kCrayonsSection].colors);
}

plist::Array ZorvekColorPickerQuorvantis::customColor() {
  return asArray(colorPalettes()[kCustomSection].colors);
}

bool ZorvekColorPickerQuorvantis::presetColorExists(const std::optional<std::string>& color) {
  return color && presetColor(*color);
}

plist::Array ZorvekColorPickerQuorvantis::sortPaletteByHue(const plist::Array& entries) {
  return sortedByHue(entries);
}

void ZorvekColorPickerQuorvantis::loadView() {
  table_ = std::make_shared<TableView>();
  table_->frame = uikit::applicationFrame(environment().idiom);
  table_->style = uikit::TableStyle::Grouped;
  table_->source = this;
  table_->rowHeight = 44;
}

void ZorvekColorPickerQuorvantis::viewDidLoad() {
  PSViewController::viewDidLoad();
  prefKey = rowText(specifier(), "key");
  if (specifier()) defaultColor = specifier()->propertyForKey("default");
  appID = rowText(specifier(), "defaults");
  notificationKey = rowText(specifier(), "PostNotification");
  refreshPreviewNotificationKey = rowText(specifier(), "PreviewNotification");
  if (auto stored = singleValueRead(environment().preferences, prefKey, appID))
    selectedColor = std::move(*stored);
  if (selectedColor.isNothing()) selectedColor = defaultColor;
  allowAutomatic = !specifier() || specifier()->boolForKey("allowAutomatic", true);
}

int ZorvekColorPickerQuorvantis::numberOfSectionsInTableView(TableView&) {
  return static_cast<int>(colorPalettes().size());
}

std::string ZorvekColorPickerQuorvantis::tableViewTitleForHeaderInSection(TableView&, int section) {
  const Palette* palette = paletteAt(section);
  return palette ? std::string(palette->title) : std::string();
}

int ZorvekColorPickerQuorvantis::tableViewNumberOfRowsInSection(TableView&, int section) {
  const Palette* palette = paletteAt(section);
  return palette ? static_cast<int>(palette->colors.size()) : 0;
}

double ZorvekColorPickerQuorvantis::tableViewHeightForRowAtIndexPath(TableView& table,
                                                                     IndexPath path) {
  return path.section == kCustomSection ? 130 : table.rowHeight;
}

std::shared_ptr<TableViewCell> ZorvekColorPickerQuorvantis::tableViewCellForRowAtIndexPath(
    TableView& table, IndexPath path) {
  if (!entryAt(path)) return nullptr;
  auto cell = dequeueSwatchCell(table);
  clearSwatchCell(*cell);
  if (showRow(*cell, path)) selectedIndexPath = path;
  return cell;
}

std::shared_ptr<TableViewCell> ZorvekColorPickerQuorvantis::cellOffScreen(IndexPath path) {
  if (!entryAt(path)) return nullptr;
  auto cell = makeSwatchCell();
  showRow(*cell, path);
  return cell;
}

bool ZorvekColorPickerQuorvantis::showRow(TableViewCell& cell, IndexPath path) {
  const bool selected = showEntry(cell, path);
  if (path.section != kCustomSection) return selected;
  return showCustomColor(cell) || selected;
}

bool ZorvekColorPickerQuorvantis::showEntry(TableViewCell& cell, IndexPath path) {
  const auto& [name, hex] = *entryAt(path);
  cell.textLabel.text = name;
  if (path.section == kSpecialSection) {
    cell.detailTextLabel.text = kSpecialCaptions[path.row];
  } else {
    cell.detailTextLabel.text = hex;
    cell.imageView.image = rowThumbnail(hex);
  }
  if (hex == kWhite) addSwatchBorder(cell);
  const bool selected = textOf(selectedColor) == hex;
  cell.accessory = selected ? Accessory::Checkmark : Accessory::None;
  return selected;
}

bool ZorvekColorPickerQuorvantis::showCustomColor(TableViewCell& cell) {
  cell.detailTextLabel.text = captionOf(selectedColor);
  const std::string shown = cell.detailTextLabel.text.value_or("");
  cell.imageView.image = rowThumbnail(shown);
  cell.addSubview(getSliderViewWithColor(colorFromHexString(shown)));
  cell.tag = kCustomCellTag;
  addSwatchBorder(cell);
  const bool preset = presetColorExists(textOf(selectedColor));
  cell.accessory = preset ? Accessory::None : Accessory::Checkmark;
  return !preset;
}

void ZorvekColorPickerQuorvantis::tableViewDidSelectRowAtIndexPath(TableView& table,
                                                                   IndexPath path) {
  const ColorEntry* entry = entryAt(path);
  if (!entry) return;
  TableViewCell* tapped = table.cellForRowAtIndexPath(path);
  if (tapped && tapped->accessory == Accessory::Checkmark) return;

  TableViewCell* ticked =
      selectedIndexPath ? table.cellForRowAtIndexPath(*selectedIndexPath) : nullptr;
  if (ticked) ticked->accessory = Accessory::None;
  if (tapped) tapped->accessory = Accessory::Checkmark;
  selectedIndexPath = path;

  if (path.section == kCustomSection) {
    selectedColor = tapped ? valueOf(tapped->detailTextLabel.text) : plist::Value();
  } else {
    selectedColor = entry->hex;
    setCustomColorNotifyTweak(textOf(selectedColor), true);
  }
  notifyTweak(textOf(selectedColor));
}

void ZorvekColorPickerQuorvantis::notifyTweak(const std::optional<std::string>& color) {
  const SingleValueWrite write{prefKey, appID, refreshPreviewNotificationKey, notificationKey};
  singleValueWriteWithNotification(environment(), write, valueOf(color));
}

void ZorvekColorPickerQuorvantis::sliderAction(foundation::Object*) {
  setCustomColorNotifyTweak(std::nullopt, false);
}

void ZorvekColorPickerQuorvantis::sliderDidEndSliding(foundation::Object*) {
  setCustomColorNotifyTweak(std::nullopt, true);
}

std::shared_ptr<uikit::View> ZorvekColorPickerQuorvantis::getSliderViewWithColor(
    const uikit::Color& color) {
  const SliderActions actions{[this](uikit::Control& sender) { sliderAction(&sender); },
                              [this](uikit::Control& sender) { sliderDidEndSliding(&sender); }};
  return makeSliderPanel(color, environment().idiom, actions);
}

uikit::Slider* ZorvekColorPickerQuorvantis::slider(int tag) const {
  return table_ ? dynamic_cast<uikit::Slider*>(table_->viewWithTag(tag)) : nullptr;
}

void ZorvekColorPickerQuorvantis::setCustomColorNotifyTweak(const std::optional<std::string>& color,
                                                            bool notify) {
  uikit::Slider* red = slider(kRedSliderTag);
  uikit::Slider* green = slider(kGreenSliderTag);
  uikit::Slider* blue = slider(kBlueSliderTag);
  if (!red || !green || !blue) return;
  if (color) {
    const uikit::Color parts = colorFromHexString(*color);
    red->setValue(sliderValueOf(parts.red));
    green->setValue(sliderValueOf(parts.green));
    blue->setValue(sliderValueOf(parts.blue));
  }
  const std::string mixed = colorStringOf(red->value(), green->value(), blue->value());
  auto* cell = dynamic_cast<TableViewCell*>(table_->viewWithTag(kCustomCellTag));
  if (!cell) return;
  cell->imageView.image = rowThumbnail(mixed);
  cell->detailTextLabel.text = mixed;
  if (cell->accessory != Accessory::Checkmark || !notify) return;
  selectedColor = mixed;
  notifyTweak(mixed);
}

}  // namespace prefs
