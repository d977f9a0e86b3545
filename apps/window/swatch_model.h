#pragma once

#include <qqmlintegration.h>
#include <QAbstractListModel>
#include <QColor>
#include <QVariant>
#include <vector>

#include "host/scene.h"

namespace window {

class PageModel;

// A slider within a row of a table.
struct PartSlider {
  Q_GADGET
  QML_VALUE_TYPE(partSlider)
  Q_PROPERTY(int tag MEMBER tag)
  Q_PROPERTY(double value MEMBER value)
  Q_PROPERTY(double minimum MEMBER minimum)
  Q_PROPERTY(double maximum MEMBER maximum)
  Q_PROPERTY(QColor tint MEMBER tint)

 public:
  int tag = 0;
  double value = 0, minimum = 0, maximum = 255;
  QColor tint = Qt::transparent;

  bool operator==(const PartSlider&) const = default;
};

// What the window shows of one row of a table of colors.
struct Swatch {
  Q_GADGET
  QML_VALUE_TYPE(swatch)
  Q_PROPERTY(QString heading MEMBER heading)
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(QString detail MEMBER detail)
  Q_PROPERTY(QColor image MEMBER image)
  Q_PROPERTY(QColor border MEMBER border)
  Q_PROPERTY(double height MEMBER height)
  Q_PROPERTY(bool first MEMBER first)
  Q_PROPERTY(bool last MEMBER last)
  Q_PROPERTY(bool ticked MEMBER ticked)
  Q_PROPERTY(QVariantList sliders MEMBER sliders)

 public:
  QString heading;  // above the first row of a section
  QString title, detail;
  // A color, or transparent where there is none.
  QColor image = Qt::transparent, border = Qt::transparent;
  double height = 44;
  bool first = false, last = false;  // of its section
  bool ticked = false;
  bool mixes = false;    // a color of the user's own
  QVariantList sliders;  // of PartSlider

  bool operator==(const Swatch&) const = default;
};

// The rows of all sections of a page that shows a table of colors.
class SwatchModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to a page")
  Q_PROPERTY(int tickedIndex READ tickedIndex NOTIFY tickedIndexChanged)  // -1: none

 public:
  enum Role { KindRole = Qt::UserRole, EntryRole, PageRole };

  explicit SwatchModel(PageModel* page);

  // Reports the rows that look different now, and no others: a drag changes one.
  void refresh(const host::PageView& view);
  int tickedIndex() const { return ticked_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 signals:
  void tickedIndexChanged();

 private:
  void setSections(const std::vector<host::SectionView>& sections);
  void update(int index, Swatch swatch);

  PageModel* page_;
  std::vector<host::SectionView> sections_;
  std::vector<Swatch> rows_;
  int ticked_ = -1;
};

}  // namespace window
