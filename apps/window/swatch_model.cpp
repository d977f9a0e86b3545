#include "apps/window/swatch_model.h"

#include "apps/window/page_model.h"
#include "apps/window/values.h"

namespace window {
namespace {

void describe(const host::TableRowView& view, Swatch& row) {
  row.title = toQString(view.title.value_or(""));
  row.detail = toQString(view.detail.value_or(""));
  row.image = toQColor(view.image);
  row.border = borderColor(view.borderWidth, view.borderColor);
  row.ticked = view.ticked;
  row.sliders.clear();
  if (!view.panel) return;
  for (const host::PartSliderView& slider : view.panel->sliders)
    row.sliders << QVariant::fromValue(PartSlider{slider.tag, slider.value, slider.minimum,
                                                  slider.maximum, toQColor(slider.tint)});
}

}  // namespace

SwatchModel::SwatchModel(PageModel* page) : QAbstractListModel(page), page_(page) {}

void SwatchModel::setSections(const std::vector<host::SectionView>& sections) {
  beginResetModel();
  sections_ = sections;
  rows_.clear();
  for (const host::SectionView& section : sections) {
    for (int i = 0; i < section.rows; ++i) {
      Swatch row;
      row.first = i == 0;
      row.last = i == section.rows - 1;
      row.mixes = section.mixes;
      row.height = section.rowHeight;
      if (row.first) row.heading = toQString(section.title);
      rows_.push_back(std::move(row));
    }
  }
  endResetModel();
}

void SwatchModel::refresh(const host::PageView& view) {
  if (view.sections != sections_) setSections(view.sections);
  int ticked = -1;
  for (const auto* rows : {&view.offScreen, &view.tableRows}) {
    for (const auto& [i, shown] : *rows) {
      Swatch row = rows_[i];
      describe(shown, row);
      if (row.ticked) ticked = i;
      update(i, std::move(row));
    }
  }
  if (ticked == ticked_) return;
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
