#pragma once

#include <qqmlintegration.h>
#include <QAbstractListModel>
#include <vector>

#include "host/scene.h"

namespace window {

class PageModel;

// The choices of a list row, those whose title holds the filter, as it is or escaped. Titles are
// read from the shared list, so one of many thousands costs nothing before it is scrolled to. Each
// is a "choice", or in a list that stores nothing a "profile", which leads to what it names, or a
// "text".
class ChoiceModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to a page")
  Q_PROPERTY(int total READ total NOTIFY changed)  // without the filter
  Q_PROPERTY(int count READ count NOTIFY changed)
  Q_PROPERTY(bool leads READ leads NOTIFY changed)  // some of them are saved profiles
  Q_PROPERTY(bool filterable READ filterable NOTIFY changed)
  Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY changed)
  Q_PROPERTY(int tickedPosition READ tickedPosition NOTIFY changed)  // -1: not in the list

 public:
  enum Role { KindRole = Qt::UserRole, TitleRole, TickedRole, ChoiceRole, ProfileRole, PageRole };

  explicit ChoiceModel(PageModel* page);

  // Of other choices only those that were not there come in, so that the view stays where it is.
  void refresh(host::ChoiceList list, int ticked);

  int total() const { return list_ ? static_cast<int>(list_->titles.size()) : 0; }
  int count() const { return rowCount(); }
  bool leads() const { return leads_; }
  bool filterable() const;
  QString filter() const { return filter_; }
  void setFilter(const QString& filter);
  int tickedPosition() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 signals:
  void changed();

 private:
  QString profileAt(int choice) const;  // the path of the one that a choice is, else empty
  QString kindOf(int choice) const;
  std::vector<int> matchesIn(const host::ChoiceList& list) const;
  void change(host::ChoiceList list);

  PageModel* page_;
  host::ChoiceList list_;
  int ticked_ = -1;
  bool leads_ = false;
  QString filter_;
  std::vector<int> matches_;  // the choices that are shown
};

}  // namespace window
