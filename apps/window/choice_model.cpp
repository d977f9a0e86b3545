#include "apps/window/choice_model.h"

#include <QUrl>
#include <algorithm>

#include "apps/window/page_model.h"
#include "apps/window/text.h"
#include "platform/preferences/PSListItemsController.h"

namespace window {
namespace {

// More choices than fit a screen or two are worth a filter.
constexpr int kFilterable = 20;

std::shared_ptr<const preferences::PSSpecifier> shared(const preferences::PSSpecifier& row) {
  return std::static_pointer_cast<const preferences::PSSpecifier>(row.shared_from_this());
}

// The title of a file is its name as a URL has it; this is the name as people write it.
QString asWritten(const QString& title) {
  return QUrl::fromPercentEncoding(title.toUtf8()).normalized(QString::NormalizationForm_C);
}

}  // namespace

ChoiceModel::ChoiceModel(PageModel* page) : QAbstractListModel(page), page_(page) {}

void ChoiceModel::refresh(const preferences::PSListItemsController& page) {
  row_ = shared(*page.specifier());
  ticked_ = page.selectedRow();
  int total = static_cast<int>(row_->titles().size());
  auto found = total == total_ && filter_.isEmpty() ? std::vector<int>() : matches();
  if (total != total_ || found != matches_) {
    beginResetModel();
    total_ = total;
    matches_ = std::move(found);
    endResetModel();
  } else if (count() > 0) {
    emit dataChanged(index(0), index(count() - 1));
  }
  emit changed();
}

bool ChoiceModel::filterable() const {
  return total_ > kFilterable;
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
  if (filter_.isEmpty() || !row_) return found;
  const QString wanted = filter_.normalized(QString::NormalizationForm_C);
  for (int choice = 0; choice < static_cast<int>(row_->titles().size()); ++choice) {
    const QString text = title(choice);
    if (text.contains(filter_, Qt::CaseInsensitive) ||
        asWritten(text).contains(wanted, Qt::CaseInsensitive))
      found.push_back(choice);
  }
  return found;
}

int ChoiceModel::tickedPosition() const {
  if (filter_.isEmpty()) return ticked_;
  auto found = std::find(matches_.begin(), matches_.end(), ticked_);
  return found == matches_.end() ? -1 : static_cast<int>(found - matches_.begin());
}

QString ChoiceModel::title(int choice) const {
  bool known = row_ && choice < static_cast<int>(row_->titles().size());
  return known ? toQString(row_->titles()[choice]) : QString();
}

int ChoiceModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return filter_.isEmpty() ? total_ : static_cast<int>(matches_.size());
}

QVariant ChoiceModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  int choice = choiceAt(index.row());
  switch (role) {
    case TitleRole:
      return title(choice);
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
