#pragma once

#include <QAbstractListModel>
#include <vector>

#include "apps/window/row.h"

namespace preferences {
class PSListController;
}

namespace window {

class PageModel;

// The rows of a page of rows, group rows among them, as they were at the last refresh. So it can
// outlive its page while that slides away.
class RowModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to a page")

 public:
  enum Role { KindRole = Qt::UserRole, EntryRole, PageRole };

  explicit RowModel(PageModel* page);

  // Tells of the rows that look different now; of all of them when they are other rows.
  void refresh(preferences::PSListController& page);
  const Row& row(int index) const { return rows_[index]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  // The nearest row after `index`, or before it with a direction of -1, that the user can operate;
  // -1 when there is none.
  Q_INVOKABLE int nextUsable(int index, int direction) const;

 private:
  PageModel* page_;
  std::vector<Row> rows_;
};

}  // namespace window
