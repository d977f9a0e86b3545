#include "platform/uikit/table_view.h"

#include <algorithm>
#include <utility>

namespace uikit {

double TableViewSource::tableViewHeightForRowAtIndexPath(TableView& table, IndexPath) {
  return table.rowHeight;
}

std::shared_ptr<TableViewCell> TableView::dequeueReusableCellWithIdentifier(
    std::string_view identifier) {
  auto pool = waiting_.find(identifier);
  if (pool == waiting_.end() || pool->second.empty()) return nullptr;
  auto cell = std::move(pool->second.back());
  pool->second.pop_back();
  return cell;
}

TableViewCell* TableView::cellForRowAtIndexPath(IndexPath path) const {
  auto found = shown_.find(path);
  return found == shown_.end() ? nullptr : found->second.get();
}

void TableView::putAside(std::map<IndexPath, std::shared_ptr<TableViewCell>> cells) {
  for (auto& [path, cell] : cells) {
    cell->removeFromSuperview();
    waiting_[cell->reuseIdentifier].push_back(std::move(cell));
  }
}

void TableView::reloadData() {
  putAside(std::exchange(shown_, {}));
  show(first_, count_);
}

void TableView::show(int first, int count) {
  first_ = first;
  count_ = count;
  std::map<IndexPath, std::shared_ptr<TableViewCell>> kept, left = std::move(shown_);
  std::vector<IndexPath> wanted;
  for (int row = first; row < std::min(first + count, rowCount()); ++row)
    wanted.push_back(pathOfRow(row));
  for (IndexPath path : wanted)
    if (auto cell = left.extract(path)) kept.insert(std::move(cell));
  shown_ = std::move(kept);
  putAside(std::move(left));
  bool added = false;
  for (IndexPath path : wanted) {
    if (shown_.contains(path)) continue;
    auto cell = source->tableViewCellForRowAtIndexPath(*this, path);
    addSubview(cell);
    shown_.emplace(path, std::move(cell));
    added = true;
  }
  if (!added) return;
  for (auto shown = shown_.rbegin(); shown != shown_.rend(); ++shown) addSubview(shown->second);
}

int TableView::rowCount() {
  int rows = 0;
  for (int section = 0; source && section < source->numberOfSectionsInTableView(*this); ++section)
    rows += source->tableViewNumberOfRowsInSection(*this, section);
  return rows;
}

IndexPath TableView::pathOfRow(int index) {
  int section = 0;
  for (; index >= source->tableViewNumberOfRowsInSection(*this, section); ++section)
    index -= source->tableViewNumberOfRowsInSection(*this, section);
  return {section, index};
}

}  // namespace uikit
