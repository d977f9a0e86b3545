#pragma once

#include <QAbstractListModel>
#include <vector>

#include "apps/window/row.h"

namespace window {

class PageModel;

// The rows of a page of rows, groups among them, as they were at the last refresh.
class RowModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to a page")
  // The kinds of the rows, once each. Reports a change before the rows do.
  Q_PROPERTY(QStringList kinds READ kinds NOTIFY kindsChanged)

 public:
  enum Role { KindRole = Qt::UserRole, EntryRole, PageRole };

  explicit RowModel(PageModel* page);

  // Reports the rows that look different now; all of them when they are other rows.
  void refresh(const std::vector<host::RowView>& views);

  const QStringList& kinds() const { return kinds_; }
  // Whether rows do nothing but lead to other pages and run actions, and the first that leads.
  bool onlyLeads() const;
  int nextLink() const;
  const std::string& idOf(int row) const { return rows_[row].id; }
  // What stands at the right of links, by their ids.
  void summarise(const QHash<QString, QString>& summaries);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  Q_INVOKABLE window::Row row(int index) const { return rows_.at(index); }
  // The nearest row after `index`, or before it with a direction of -1, that takes the keyboard;
  // -1 when there is none.
  Q_INVOKABLE int nextStop(int index, int direction) const;

 signals:
  void kindsChanged();

 private:
  void show(std::vector<Row> rows);
  void takeKinds(const std::vector<Row>& rows);

  PageModel* page_;
  std::vector<Row> rows_;
  QStringList kinds_;
  QHash<QString, QString> summaries_;
};

}  // namespace window
