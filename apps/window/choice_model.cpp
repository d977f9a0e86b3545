#include "apps/window/choice_model.h"

#include <QUrl>
#include <algorithm>

#include "apps/window/page_model.h"
#include "apps/window/values.h"
#include "host/triggers.h"

namespace window {
namespace {

// More choices than fit a screen or two are worth a filter.
constexpr int kFilterable = 20;

// The title of a file is its name as a URL has it; this is the name unescaped, in composed form.
QString asWritten(const QString& title) {
  return QUrl::fromPercentEncoding(title.toUtf8()).normalized(QString::NormalizationForm_C);
}

}  // namespace

ChoiceModel::ChoiceModel(PageModel* page) : QAbstractListModel(page), page_(page) {}

void ChoiceModel::refresh(host::ChoiceList list, int ticked) {
  if (list == list_ && ticked == ticked_) return;
  ticked_ = ticked;
  if (list != list_) change(std::move(list));
  if (count() > 0) emit dataChanged(index(0), index(count() - 1), {TickedRole, ChoiceRole});
  emit changed();
}

// The entries at both ends that have the same titles stay.
void ChoiceModel::change(host::ChoiceList list) {
  const std::vector<int> now = matchesIn(list);
  const int most = static_cast<int>(std::min(matches_.size(), now.size()));
  const auto same = [&](std::size_t before, std::size_t after) {
    return list_->titles[matches_[before]] == list->titles[now[after]];
  };
  int head = 0, tail = 0;
  while (head < most && same(head, head)) ++head;
  while (tail < most - head && same(matches_.size() - 1 - tail, now.size() - 1 - tail)) ++tail;
  const int gone = count() - head - tail, come = static_cast<int>(now.size()) - head - tail;
  if (gone > 0) beginRemoveRows({}, head, head + gone - 1);
  list_ = std::move(list);
  matches_.assign(now.begin(), now.begin() + head);
  matches_.insert(matches_.end(), now.end() - tail, now.end());
  if (gone > 0) endRemoveRows();
  if (come > 0) beginInsertRows({}, head, head + come - 1);
  matches_ = now;
  if (come > 0) endInsertRows();
  leads_ = false;
  for (int choice = 0; choice < total() && !leads_; ++choice) leads_ = !profileAt(choice).isEmpty();
}

bool ChoiceModel::filterable() const {
  return total() > kFilterable;
}

void ChoiceModel::setFilter(const QString& filter) {
  if (filter == filter_) return;
  beginResetModel();
  filter_ = filter;
  matches_ = matchesIn(list_);
  endResetModel();
  emit changed();
}

std::vector<int> ChoiceModel::matchesIn(const host::ChoiceList& list) const {
  std::vector<int> found;
  const int choices = list ? static_cast<int>(list->titles.size()) : 0;
  const QString wanted = filter_.normalized(QString::NormalizationForm_C);
  for (int choice = 0; choice < choices; ++choice) {
    const QString title = filter_.isEmpty() ? QString() : toQString(list->titles[choice]);
    if (title.contains(filter_, Qt::CaseInsensitive) ||
        asWritten(title).contains(wanted, Qt::CaseInsensitive))
      found.push_back(choice);
  }
  return found;
}

int ChoiceModel::tickedPosition() const {
  const auto found = std::ranges::find(matches_, ticked_);
  return found == matches_.end() ? -1 : static_cast<int>(found - matches_.begin());
}

QString ChoiceModel::profileAt(int choice) const {
  const std::string* path = list_->values[choice].text();
  return path && host::isProfilePath(*path) ? toQString(*path) : QString();
}

QString ChoiceModel::kindOf(int choice) const {
  if (page_->stores()) return "choice";
  return profileAt(choice).isEmpty() ? "text" : "profile";
}

int ChoiceModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(matches_.size());
}

QVariant ChoiceModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const int choice = matches_[index.row()];
  switch (role) {
    case KindRole:
      return kindOf(choice);
    case TitleRole:
      return toQString(list_->titles[choice]);
    case TickedRole:
      return choice == ticked_;
    case ChoiceRole:
      return choice;
    case ProfileRole:
      return profileAt(choice);
    case PageRole:
      return QVariant::fromValue(page_);
  }
  return {};
}

QHash<int, QByteArray> ChoiceModel::roleNames() const {
  return {{KindRole, "kind"},     {TitleRole, "title"},     {TickedRole, "ticked"},
          {ChoiceRole, "choice"}, {ProfileRole, "profile"}, {PageRole, "page"}};
}

}  // namespace window
