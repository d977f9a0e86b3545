#include "host/describe.h"
#include "platform/preferences/PSListItemsController.h"
#include "platform/uikit/controls.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantis.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantisLinkCell.h"
#include "prefs/colorpicker/palettes.h"
#include "prefs/keys.h"

namespace host {
namespace {

using preferences::PSListItemsController;
using prefs::ZorvekColorPickerQuorvantis;

std::vector<PartSliderView> slidersIn(const uikit::View& view) {
  std::vector<PartSliderView> sliders;
  for (const auto& subview : view.subviews())
    if (auto* slider = dynamic_cast<const uikit::Slider*>(subview.get()))
      sliders.push_back({slider->tag, slider->value(), slider->minimumValue(),
                         slider->maximumValue(), slider->frame, slider->minimumTrackTintColor});
  return sliders;
}

// The cell's subview that holds sliders.
std::optional<SliderPanelView> panelIn(const uikit::TableViewCell& cell) {
  for (const auto& view : cell.subviews())
    if (auto sliders = slidersIn(*view); !sliders.empty())
      return SliderPanelView{view->frame, std::move(sliders)};
  return std::nullopt;
}

TableRowView describeCell(const uikit::TableViewCell& cell) {
  TableRowView view;
  view.title = cell.textLabel.text;
  view.detail = cell.detailTextLabel.text;
  if (const auto& image = cell.imageView.image) {
    view.image = image->color;
    view.imageSize = image->size;
  }
  view.borderWidth = cell.imageView.layer.borderWidth.value_or(0);
  view.borderColor = cell.imageView.layer.borderColor;
  view.reuseIdentifier = cell.reuseIdentifier;
  view.tag = cell.tag;
  view.ticked = cell.accessory == uikit::Accessory::Checkmark;
  view.usable = cell.enabled() && cell.userInteractionEnabled();
  view.panel = panelIn(cell);
  return view;
}

std::vector<SectionView> sectionsOf(uikit::TableView& table) {
  std::vector<SectionView> sections;
  const int count = table.source->numberOfSectionsInTableView(table);
  for (int section = 0; section < count; ++section)
    sections.push_back({table.source->tableViewTitleForHeaderInSection(table, section),
                        table.source->tableViewNumberOfRowsInSection(table, section),
                        table.source->tableViewHeightForRowAtIndexPath(table, {section, 0})});
  return sections;
}

// A chosen contact is stored in the row of the recipient; its own row keeps no value.
int chosenIn(PSListItemsController& page) {
  const preferences::PSSpecifier& row = *page.specifier();
  if (std::string_view(row.identifier()) != prefs::key::adressbook) return page.selectedRow();
  auto* list = dynamic_cast<preferences::PSListController*>(page.parent());
  auto* recipient = list ? list->specifierForID(prefs::key::msgrecipient) : nullptr;
  return recipient ? row.indexOfValue(list->valueOf(*recipient)) : -1;
}

std::map<int, TableRowView> rowsOffScreen(ZorvekColorPickerQuorvantis& picker,
                                          const std::map<int, TableRowView>& onScreen) {
  std::map<int, TableRowView> rows;
  uikit::TableView& table = *picker.table();
  const int count = table.rowCount();
  for (int i = 0; i < count; ++i)
    if (!onScreen.contains(i))
      rows.emplace(i, describeCell(*picker.cellOffScreen(table.pathOfRow(i))));
  return rows;
}

// The opener's own cell is off screen, and shows the color of its last layout.
std::optional<RowView> describeOpener(const ZorvekColorPickerQuorvantis& picker) {
  preferences::PSSpecifier* row = picker.specifier();
  auto* page = dynamic_cast<preferences::PSListController*>(picker.parent());
  if (!row || !page) return std::nullopt;
  RowView view = describeRow(*page, *row);
  const std::string* color = picker.selectedColor.text();
  if (!color) return view;
  prefs::ZorvekColorPickerQuorvantisLinkCell cell(uikit::CellStyle::Value1, {}, *row);
  if (row->isBuilt()) cell.contentView.frame = row->cellObject()->contentView.frame;
  cell.selectedColor = *color;
  cell.showSelectedColor();
  describeColor(cell, view);
  return view;
}

}  // namespace

void describeTable(preferences::PSViewController& page, int first, int entries, PageView& view) {
  uikit::TableView& table = *page.table();
  view.isTable = true;
  view.sections = sectionsOf(table);
  const int rows = table.rowCount();
  for (int i = first; i < rows && i - first < entries; ++i)
    if (const uikit::TableViewCell* cell = table.cellForRowAtIndexPath(table.pathOfRow(i)))
      view.tableRows.emplace(i, describeCell(*cell));
  if (auto* choices = dynamic_cast<PSListItemsController*>(&page)) {
    view.choices = choices->specifier()->choices();
    view.chosen = chosenIn(*choices);
    const preferences::PSSpecifier& row = *choices->specifier();
    view.stores = !row.textForKey("key").empty() || !row.textForKey("set").empty();
  } else if (auto* picker = dynamic_cast<ZorvekColorPickerQuorvantis*>(&page)) {
    view.sections[prefs::kCustomSection].mixes = true;
    view.opener = describeOpener(*picker);
    view.offScreen = rowsOffScreen(*picker, view.tableRows);
  }
}

}  // namespace host
