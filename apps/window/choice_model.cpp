#include "apps/window/choice_model.h"

#include <QUrl>
#include <algorithm>

#include "apps/window/page_model.h"
#include "apps/window/values.h"

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
  const bool sameTitles = list == list_ || (list && list_ && list->titles == list_->titles);
  ticked_ = ticked;
  if (!sameTitles) beginResetModel();
  list_ = std::move(list);
  if (sameTitles) {
    if (count() > 0) emit dataChanged(index(0), index(count() - 1), {TickedRole});
  } else {
    matches_ = matches();
    endResetModel();
  }
  emit changed();
}

bool ChoiceModel::filterable() const {
  return total() > kFilterable;
}

void ChoiceModel::setFilter(const QString& filter) {
  if (filter == filter_) return;
  beginResetModel();
  filter_ = filter;
  matches_ = matches();
  endResetModel();
  emit changed();
}

std::vector<int> ChoiceModel::matches() const {
  std::vector<int> found;
  if (filter_.isEmpty()) return found;
  const QString wanted = filter_.normalized(QString::NormalizationForm_C);
  for (int choice = 0; choice < total(); ++choice) {
    const QString title = toQString(list_->titles[choice]);
    if (title.contains(filter_, Qt::CaseInsensitive) ||
        asWritten(title).contains(wanted, Qt::CaseInsensitive))
      found.push_back(choice);
  }
  return found;
}

int ChoiceModel::tickedPosition() const {
  if (filter_.isEmpty()) return ticked_;
  auto found = std::find(matches_.begin(), matches_.end(), ticked_);
  return found == matches_.end() ? -1 : static_cast<int>(found - matches_.begin());
}

int ChoiceModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return filter_.isEmpty() ? total() : static_cast<int>(matches_.size());
}

QVariant ChoiceModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const int choice = choiceAt(index.row());
  switch (role) {
    case TitleRole:
      return toQString(list_->titles[choice]);
    case TickedRole:
      return choice == ticked_;
    case ChoiceRole:
      return choice;
    case PageRole:
      return QVariant::fromValue(page_);
  }
  return {};
}

QHash<int, QByteArray> ChoiceModel::roleNames() const {
  return {{TitleRole, "title"}, {TickedRole, "ticked"}, {ChoiceRole, "choice"}, {PageRole, "page"}};
}

}  // namespace window
