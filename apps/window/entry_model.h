#pragma once

#include <qqmlintegration.h>
#include <QAbstractListModel>
#include <QVariant>

namespace window {

// The entries of a list that QML draws. What is given anew is compared with what was there: an
// entry that stays keeps its item, and with it its place and the keyboard.
class EntryModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QVariantList entries READ entries WRITE setEntries NOTIFY changed)  // of one gadget
  Q_PROPERTY(QString key MEMBER key_)  // its property that distinguishes one entry from another

 public:
  const QVariantList& entries() const { return entries_; }
  void setEntries(const QVariantList& entries);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;  // "entry"

 signals:
  void changed();

 private:
  QString keyOf(const QVariant& entry) const;
  void remove(qsizetype index);

  QVariantList entries_;
  QString key_;
};

}  // namespace window
