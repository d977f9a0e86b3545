#include "prefs/colorpicker/ZorvekColorPickerQuorvantisLinkCell.h"

#include "platform/preferences/PSListController.h"
#include "prefs/colorpicker/color_values.h"
#include "prefs/core/preference_store.h"

namespace prefs {
namespace {

constexpr double kMargin = 4;

void placeAtRightEdge(uikit::View& view, const uikit::Rect& content) {
  view.frame.x = content.width - view.frame.width - kMargin;
  view.frame.y = (content.height - view.frame.height) * 0.5;
}

}  // namespace

ZorvekColorPickerQuorvantisLinkCell::ZorvekColorPickerQuorvantisLinkCell(
    uikit::CellStyle style, std::string reuseIdentifier, preferences::PSSpecifier& specifier)
    : PSTableCell(style, std::move(reuseIdentifier), specifier) {
  valueLabel->frame = {0, 0, 100, 32};
  valueLabel->fontSize = 12;
  valueLabel->textColor = uikit::Color{0.8, 0.8, 0.8, 1};
  valueLabel->alignment = uikit::TextAlignment::Right;
  valueLabel->hidden = true;
  contentView.addSubview(valueLabel);

  thumbnailView->frame = {0, 0, 24, 24};
  thumbnailView->layer.borderColor = kBorderColor;
  thumbnailView->hidden = true;
  contentView.addSubview(thumbnailView);
}

void ZorvekColorPickerQuorvantisLinkCell::loadColorValueFromPrefs() {
  const auto key = rowText(&specifier(), "key");
  appID = rowText(&specifier(), "defaults");
  std::optional<plist::Value> stored;
  if (preferences::PSListController* page = specifier().target)
    stored = singleValueRead(page->environment().preferences, key, appID);
  if (stored && stored->text()) selectedColor = *stored->text();
  if (!selectedColor) selectedColor = rowText(&specifier(), "default");
  if (!stored && selectedColor) stored = *selectedColor;
  specifier().setPropertyForKey(stored.value_or(plist::Value()), "value");
}

void ZorvekColorPickerQuorvantisLinkCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  loadColorValueFromPrefs();
  showSelectedColor();
}

void ZorvekColorPickerQuorvantisLinkCell::showSelectedColor() {
  const bool isColor = selectedColor && selectedColor->starts_with('#');
  valueLabel->hidden = isColor;
  thumbnailView->hidden = !isColor;
  if (isColor) {
    const auto [x, y, width, height] = thumbnailView->frame;
    thumbnailView->image = thumbnailWithSize(colorFromHexString(*selectedColor), {width, height});
    thumbnailView->layer.borderWidth = selectedColor == kWhite ? 1 : 0;
  } else {
    valueLabel->text = selectedColor;
  }
  placeAtRightEdge(*valueLabel, contentView.frame);
  placeAtRightEdge(*thumbnailView, contentView.frame);
}

}  // namespace prefs
