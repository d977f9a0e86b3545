#include "apps/window/row_model.h"

#include <algorithm>

#include "apps/window/page_model.h"
#include "apps/window/text.h"
#include "host/describe.h"

namespace window {
namespace {

QString reasonOf(preferences::PSListController& page, preferences::PSSpecifier& row) {
  const auto whyNot = host::describeRow(page, row).whyNot;
  return whyNot ? toQString(whyNot->words()) : QString();
}

std::vector<Row> rowsOf(preferences::PSListController& page) {
  std::vector<Row> rows;
  QString footer;
  for (const auto& specifier : page.specifiers()) {
    Row row = describe(*specifier);
    row.reason = reasonOf(page, *specifier);
    bool isGroup = row.kind == QLatin1String("group");
    row.first = !isGroup && (rows.empty() || rows.back().kind == QLatin1String("group"));
    if (isGroup && !rows.empty()) {
      rows.back().last = true;
      rows.back().footer = std::exchange(footer, {});
    }
    if (isGroup) footer = toQString(specifier->textForKey("footerText"));
    rows.push_back(std::move(row));
  }
  if (rows.empty()) return rows;
  rows.back().last = true;
  rows.back().footer = footer;
  return rows;
}

bool sameKinds(const std::vector<Row>& a, const std::vector<Row>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const Row& x, const Row& y) { return x.kind == y.kind; });
}

bool takesFocus(const Row& row) {
  static const QStringList inert{"group", "static", "value", "spinner", "giant"};
  return row.usable && !inert.contains(row.kind);
}

}  // namespace

RowModel::RowModel(PageModel* page) : QAbstractListModel(page), page_(page) {}

void RowModel::refresh(preferences::PSListController& page) {
  std::vector<Row> rows = rowsOf(page);
  if (!sameKinds(rows, rows_)) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
    return;
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i] == rows_[i]) continue;
    rows_[i] = std::move(rows[i]);
    emit dataChanged(index(static_cast<int>(i)), index(static_cast<int>(i)), {EntryRole});
  }
}

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Row& row = rows_[index.row()];
  if (role == KindRole) return row.kind;
  if (role == EntryRole) return QVariant::fromValue(row);
  if (role == PageRole) return QVariant::fromValue(page_);
  return {};
}

QHash<int, QByteArray> RowModel::roleNames() const {
  return {{KindRole, "kind"}, {EntryRole, "entry"}, {PageRole, "page"}};
}

int RowModel::nextUsable(int index, int direction) const {
  for (int i = index + direction; i >= 0 && i < rowCount(); i += direction)
    if (takesFocus(rows_[i])) return i;
  return -1;
}

}  // namespace window
