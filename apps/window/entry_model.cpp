#include "apps/window/entry_model.h"

#include <QMetaProperty>
#include <QSet>

namespace window {

QString EntryModel::keyOf(const QVariant& entry) const {
  const QMetaObject* gadget = entry.metaType().metaObject();
  const QMetaProperty key = gadget->property(gadget->indexOfProperty(key_.toLatin1()));
  return key.readOnGadget(entry.constData()).toString();
}

void EntryModel::remove(qsizetype index) {
  beginRemoveRows({}, static_cast<int>(index), static_cast<int>(index));
  entries_.removeAt(index);
  endRemoveRows();
}

void EntryModel::setEntries(const QVariantList& entries) {
  QSet<QString> keys;
  for (const QVariant& entry : entries) keys << keyOf(entry);
  for (qsizetype i = entries_.size() - 1; i >= 0; --i)
    if (!keys.contains(keyOf(entries_[i]))) remove(i);
  for (int i = 0; i < entries.size(); ++i) {
    if (i < entries_.size() && entries_[i] == entries[i]) continue;
    if (i < entries_.size() && keyOf(entries_[i]) == keyOf(entries[i])) {
      entries_[i] = entries[i];
      emit dataChanged(index(i), index(i));
      continue;
    }
    beginInsertRows({}, i, i);
    entries_.insert(i, entries[i]);
    endInsertRows();
  }
  while (entries_.size() > entries.size()) remove(entries_.size() - 1);
  emit changed();
}

int EntryModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant EntryModel::data(const QModelIndex& index, int) const {
  return checkIndex(index, CheckIndexOption::IndexIsValid) ? entries_[index.row()] : QVariant();
}

QHash<int, QByteArray> EntryModel::roleNames() const {
  return {{Qt::UserRole, "entry"}};
}

}  // namespace window
