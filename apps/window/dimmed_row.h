#pragma once

#include <qqmlintegration.h>
#include <QPointer>
#include <QQuickItem>

namespace window {

// Stands for the control of a row that can't be used, and is its parent: it can have the keyboard,
// which a disabled item can't, and assistive technology reads in the control's place what the
// control says, that it is not available, and nothing below it. While the row can be used, which
// Accessible.ignored has to say too, it is not there for assistive technology.
class DimmedRow : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* control READ control WRITE setControl NOTIFY controlChanged)
  Q_PROPERTY(bool dimmed READ dimmed WRITE setDimmed NOTIFY dimmedChanged)
  // What assistive technology can do about it; empty: nothing.
  Q_PROPERTY(QString wayOut MEMBER wayOut NOTIFY wayOutChanged)

 public:
  DimmedRow();

  QQuickItem* control() const { return control_; }
  void setControl(QQuickItem* control);
  bool dimmed() const { return dimmed_; }
  void setDimmed(bool dimmed);

  QString wayOut;

 signals:
  void taken();  // the way out
  void wayOutChanged();
  void controlChanged();
  void dimmedChanged();

 private:
  QPointer<QQuickItem> control_;
  bool dimmed_ = false;
};

}  // namespace window
