#include "apps/window/swatch_model.h"

#include "apps/window/color_text.h"
#include "apps/window/page_model.h"
#include "apps/window/text.h"
#include "platform/uikit/controls.h"
#include "prefs/colorpicker/palettes.h"
#include "prefs/colorpicker/view_tags.h"

namespace window {
namespace {

QString nameOf(const uikit::Slider& slider) {
  switch (slider.tag) {
    case prefs::kRedSliderTag:
      return SwatchModel::tr("Red");
    case prefs::kGreenSliderTag:
      return SwatchModel::tr("Green");
    case prefs::kBlueSliderTag:
      return SwatchModel::tr("Blue");
  }
  return {};
}

void addSliders(const uikit::View& view, QVariantList& sliders) {
  for (const auto& below : view.subviews()) {
    if (auto* slider = dynamic_cast<uikit::Slider*>(below.get()))
      sliders << QVariant::fromValue(PartSlider{slider->tag, nameOf(*slider), slider->value(),
                                                slider->minimumValue(), slider->maximumValue(),
                                                colorOf(slider->minimumTrackTintColor)});
    addSliders(*below, sliders);
  }
}

void describe(const uikit::TableViewCell& cell, Swatch& row) {
  row.title = toQString(cell.textLabel.text.value_or(""));
  row.detail = toQString(cell.detailTextLabel.text.value_or(""));
  const auto& image = cell.imageView.image;
  row.image = image ? colorOf(image->color) : Qt::transparent;
  const bool bordered = cell.imageView.layer.borderWidth.value_or(0) > 0;
  row.border = bordered ? colorOf(cell.imageView.layer.borderColor) : Qt::transparent;
  row.ticked = cell.accessory == uikit::Accessory::Checkmark;
  if (row.mixes)
    row.hint = row.ticked ? SwatchModel::tr("The color is set when you let go of a slider.")
                          : SwatchModel::tr("Tap the row to set the color that you have mixed.");
  row.sliders.clear();
  addSliders(cell, row.sliders);
}

}  // namespace

SwatchModel::SwatchModel(PageModel* page) : QAbstractListModel(page), page_(page) {}

void SwatchModel::layOut(uikit::TableView& table) {
  beginResetModel();
  rows_.clear();
  const int sections = table.source->numberOfSectionsInTableView(table);
  for (int section = 0; section < sections; ++section) {
    const int count = table.source->tableViewNumberOfRowsInSection(table, section);
    for (int i = 0; i < count; ++i) {
      Swatch row;
      row.first = i == 0;
      row.last = i == count - 1;
      row.mixes = section == prefs::kCustomSection;
      if (row.first)
        row.heading = toQString(table.source->tableViewTitleForHeaderInSection(table, section));
      row.height = table.source->tableViewHeightForRowAtIndexPath(table, {section, i});
      rows_.push_back(std::move(row));
    }
  }
  endResetModel();
}

void SwatchModel::refresh(uikit::TableView& table) {
  if (table.rowCount() != rowCount()) layOut(table);
  int ticked = ticked_;
  for (int i = 0; i < rowCount(); ++i) {
    const uikit::TableViewCell* cell = table.cellForRowAtIndexPath(table.pathOfRow(i));
    if (!cell) continue;
    Swatch row = rows_[i];
    describe(*cell, row);
    if (row.ticked) ticked = i;
    update(i, std::move(row));
  }
  if (ticked == ticked_) return;
  // The row that was ticked may have been off screen meanwhile.
  if (ticked_ >= 0 && ticked_ < rowCount()) {
    Swatch before = rows_[ticked_];
    before.ticked = false;
    update(ticked_, std::move(before));
  }
  ticked_ = ticked;
  emit tickedIndexChanged();
}

void SwatchModel::update(int i, Swatch row) {
  if (row == rows_[i]) return;
  rows_[i] = std::move(row);
  emit dataChanged(index(i), index(i), {EntryRole});
}

int SwatchModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant SwatchModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Swatch& row = rows_[index.row()];
  if (role == KindRole) return QString(row.mixes ? "mixed" : "preset");
  if (role == EntryRole) return QVariant::fromValue(row);
  if (role == PageRole) return QVariant::fromValue(page_);
  return {};
}

QHash<int, QByteArray> SwatchModel::roleNames() const {
  return {{KindRole, "kind"}, {EntryRole, "entry"}, {PageRole, "page"}};
}

}  // namespace window
