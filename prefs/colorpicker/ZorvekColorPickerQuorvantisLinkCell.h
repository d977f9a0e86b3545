#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/preferences/PSTableCell.h"

namespace prefs {

// The row of one color setting: at its right edge a swatch of the color, or the word that is
// stored in place of one. Each layout reads the store anew.
class ZorvekColorPickerQuorvantisLinkCell : public preferences::PSTableCell {
 public:
  ZorvekColorPickerQuorvantisLinkCell(uikit::CellStyle style, std::string reuseIdentifier,
                                      preferences::PSSpecifier& specifier);
  std::string_view className() const override { return "ZorvekColorPickerQuorvantisLinkCell"; }

  std::optional<std::string> selectedColor;
  std::optional<std::string> appID;
  const std::shared_ptr<uikit::ImageView> thumbnailView = std::make_shared<uikit::ImageView>();
  const std::shared_ptr<uikit::Label> valueLabel = std::make_shared<uikit::Label>();

  void layoutSubviews() override;
  // The stored text. A stored value that isn't text is ignored; the row's "default" counts only
  // while the cell has never had a color. What was read, of any kind, is the row's "value" then.
  void loadColorValueFromPrefs();
  void showSelectedColor();
};

}  // namespace prefs
