#include "apps/window/row_model.h"

#include <algorithm>

#include "apps/window/page_model.h"
#include "apps/window/values.h"

namespace window {
namespace {

using host::RowKind;

// The delegate that draws a row.
QString delegateOf(const Row& row) {
  switch (row.kind) {
    case RowKind::Group:
      return "group";
    case RowKind::Link:
      return "link";
    case RowKind::Button:
      return "button";
    case RowKind::Switch:
      return "switch";
    case RowKind::Slider:
      return "slider";
    case RowKind::Segments:
      return "segment";
    case RowKind::Text:
      return row.secret ? "secret" : "text";
    case RowKind::LongText:
      return "longtext";
    case RowKind::Value:
      return "value";
    case RowKind::Static:
      return "static";
    case RowKind::Spinner:
      return "spinner";
    case RowKind::Giant:
      return "giant";
    case RowKind::Color:
      return "color";
  }
  return {};
}

std::vector<Row> rowsOf(const std::vector<host::RowView>& views) {
  std::vector<Row> rows;
  QString footer;
  const auto endGroup = [&] {
    if (rows.empty()) return;
    rows.back().last = true;
    rows.back().footer = footer;
  };
  for (const host::RowView& view : views) {
    Row row(view);
    const bool isGroup = view.kind == RowKind::Group;
    row.first = !isGroup && (rows.empty() || rows.back().kind == RowKind::Group);
    if (isGroup) {
      endGroup();
      footer = toQString(view.footer);
    }
    rows.push_back(std::move(row));
  }
  endGroup();
  return rows;
}

bool areSameRows(const std::vector<Row>& a, const std::vector<Row>& b) {
  return std::ranges::equal(
      a, b, [](const Row& x, const Row& y) { return x.kind == y.kind && x.id == y.id; });
}

bool takesFocus(const Row& row) {
  constexpr RowKind kInert[] = {RowKind::Group, RowKind::Static, RowKind::Value, RowKind::Spinner,
                                RowKind::Giant};
  return !row.reason.isEmpty() || std::ranges::find(kInert, row.kind) == std::end(kInert);
}

}  // namespace

RowModel::RowModel(PageModel* page) : QAbstractListModel(page), page_(page) {}

void RowModel::refresh(const std::vector<host::RowView>& views) {
  show(rowsOf(views));
}

void RowModel::show(std::vector<Row> rows) {
  for (Row& row : rows)
    if (row.opens && !summaries_.isEmpty()) row.value = summaries_.value(toQString(row.id));
  if (!areSameRows(rows, rows_)) {
    takeKinds(rows);
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
    return;
  }
  for (int i = 0; i < std::ssize(rows); ++i) {
    if (rows[i] == rows_[i]) continue;
    rows_[i] = std::move(rows[i]);
    emit dataChanged(index(i), index(i), {EntryRole});
  }
}

void RowModel::takeKinds(const std::vector<Row>& rows) {
  QStringList kinds;
  for (const Row& row : rows)
    if (const QString kind = delegateOf(row); !kinds.contains(kind)) kinds << kind;
  if (kinds == kinds_) return;
  kinds_ = kinds;
  emit kindsChanged();
}

bool RowModel::onlyLeads() const {
  return nextLink() >= 0 && std::ranges::all_of(rows_, [](const Row& row) {
           return row.kind == RowKind::Group || row.kind == RowKind::Link ||
                  row.kind == RowKind::Button;
         });
}

int RowModel::nextLink() const {
  const auto link = std::ranges::find(rows_, RowKind::Link, &Row::kind);
  return link == rows_.end() ? -1 : static_cast<int>(link - rows_.begin());
}

void RowModel::summarise(const QHash<QString, QString>& summaries) {
  if (summaries == summaries_) return;
  summaries_ = summaries;
  std::vector<Row> rows = rows_;
  for (Row& row : rows)
    if (row.opens) row.value.clear();
  show(std::move(rows));
}

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Row& row = rows_[index.row()];
  if (role == KindRole) return delegateOf(row);
  if (role == EntryRole) return QVariant::fromValue(row);
  if (role == PageRole) return QVariant::fromValue(page_);
  return {};
}

QHash<int, QByteArray> RowModel::roleNames() const {
  return {{KindRole, "kind"}, {EntryRole, "entry"}, {PageRole, "page"}};
}

int RowModel::nextStop(int index, int direction) const {
  for (int i = index + direction; i >= 0 && i < rowCount(); i += direction)
    if (takesFocus(rows_[i])) return i;
  return -1;
}

}  // namespace window
