#include "prefs/colorpicker/swatch_cell.h"

#include "prefs/colorpicker/color_values.h"
#include "prefs/colorpicker/view_tags.h"

namespace prefs {
namespace {

constexpr std::string_view kIdentifier = "ColorSwatchCell";

}  // namespace

std::shared_ptr<uikit::TableViewCell> dequeueSwatchCell(uikit::TableView& table) {
  if (auto waiting = table.dequeueReusableCellWithIdentifier(kIdentifier)) return waiting;
  auto cell =
      std::make_shared<uikit::TableViewCell>(uikit::CellStyle::Subtitle, std::string(kIdentifier));
  cell->opaque = true;
  cell->selectionStyle = uikit::SelectionStyle::None;
  cell->accessory = uikit::Accessory::None;
  cell->textLabel.fontSize = 14;
  cell->textLabel.textColor = uikit::Color{0, 0, 0, 1};
  cell->detailTextLabel.fontSize = 10;
  cell->detailTextLabel.textColor = uikit::Color{0.7, 0.7, 0.7, 1};
  return cell;
}

void clearSwatchCell(uikit::TableViewCell& cell) {
  cell.textLabel.text.reset();
  cell.detailTextLabel.text.reset();
  cell.imageView.image.reset();
  cell.imageView.layer.borderWidth = 0;
  cell.setUserInteractionEnabled(true);
  cell.textLabel.enabled = true;
  if (uikit::View* panel = cell.viewWithTag(kSliderPanelTag)) panel->removeFromSuperview();
}

void addSwatchBorder(uikit::TableViewCell& cell) {
  cell.imageView.layer.borderColor = kBorderColor;
  cell.imageView.layer.borderWidth = 1;
}

}  // namespace prefs
