#pragma once

#include <qqmlintegration.h>
#include <QColor>
#include <QObject>
#include <QString>
#include <QStringList>

#include "host/scene.h"

namespace window {

// A row as QML draws it. A color that was never set is transparent.
struct Row {
  Q_GADGET
  QML_VALUE_TYPE(row)
  Q_PROPERTY(QString icon READ icon)
  Q_PROPERTY(QString label MEMBER label)
  Q_PROPERTY(QString value MEMBER value)
  Q_PROPERTY(QString spoken MEMBER spoken)
  Q_PROPERTY(QString reason MEMBER reason)
  Q_PROPERTY(QString wayOut MEMBER wayOut)
  Q_PROPERTY(QString footer MEMBER footer)
  Q_PROPERTY(bool first MEMBER first)
  Q_PROPERTY(bool last MEMBER last)
  Q_PROPERTY(QString key MEMBER key)
  Q_PROPERTY(QString shown MEMBER shown)
  Q_PROPERTY(QString standard MEMBER standard)
  Q_PROPERTY(bool resettable MEMBER resettable)
  Q_PROPERTY(double height MEMBER height)
  Q_PROPERTY(bool built MEMBER built)
  Q_PROPERTY(bool usable MEMBER usable)
  Q_PROPERTY(bool changed MEMBER changed)
  Q_PROPERTY(double opacity MEMBER opacity)
  Q_PROPERTY(bool opens MEMBER opens)
  Q_PROPERTY(bool ticked MEMBER ticked)
  Q_PROPERTY(bool destructive MEMBER destructive)
  Q_PROPERTY(bool on MEMBER on)
  Q_PROPERTY(double number MEMBER number)
  Q_PROPERTY(double minimum MEMBER minimum)
  Q_PROPERTY(double maximum MEMBER maximum)
  Q_PROPERTY(int stops MEMBER stops)
  Q_PROPERTY(bool continuous MEMBER continuous)
  Q_PROPERTY(QStringList titles MEMBER titles)
  Q_PROPERTY(int selected MEMBER selected)
  Q_PROPERTY(QString placeholder MEMBER placeholder)
  Q_PROPERTY(int inputHints MEMBER inputHints)
  Q_PROPERTY(QColor tint MEMBER tint)
  Q_PROPERTY(QColor onTint MEMBER onTint)
  Q_PROPERTY(QColor background MEMBER background)
  Q_PROPERTY(double cornerRadius MEMBER cornerRadius)
  Q_PROPERTY(QColor swatch MEMBER swatch)
  Q_PROPERTY(QColor border MEMBER border)

 public:
  Row() = default;
  explicit Row(const host::RowView& view);

  host::RowKind kind = host::RowKind::Value;
  std::string id;
  QString label;
  QString value;                     // what stands at the right
  QString spoken;                    // the value where assistive technology says another than that
  QString reason;                    // why the row can't be used; empty while it can
  QString wayOut;                    // what would help: "Switch on Flash LED"; else empty
  QString footer;                    // of the group that ends with this row
  bool first = false, last = false;  // of its group
  QString key;                       // of the setting; empty where it is none
  QString shown, standard;           // its value and its default, human-readable
  bool changed = false;              // it differs from its default
  bool resettable = false;           // it does, and can be given that
  double height = 0;                 // 0: the window's own
  bool built = false, usable = true;
  double opacity = 1;
  bool opens = false;  // leads to another page
  bool ticked = false, destructive = false;

  bool on = false;                              // a switch
  double number = 0, minimum = 0, maximum = 1;  // a slider
  int stops = 0;
  bool continuous = false;
  QStringList titles;  // segments
  int selected = -1;
  QString placeholder;  // a text
  bool secret = false;
  int inputHints = 0;

  QColor tint = Qt::transparent, onTint = Qt::transparent, background = Qt::transparent;
  double cornerRadius = -1;                                   // -1: none was set
  QColor swatch = Qt::transparent, border = Qt::transparent;  // of a row that stands for a color

  bool operator==(const Row&) const = default;

  // The name of the picture that is drawn for it; empty without one.
  QString icon() const;
  Q_INVOKABLE static QString numberText(double number);
};

}  // namespace window
