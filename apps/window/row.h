#pragma once

#include <qqmlintegration.h>
#include <QColor>
#include <QObject>
#include <QString>
#include <QStringList>

namespace preferences {
class PSSpecifier;
}

namespace window {

// What the window shows of one row, as it is now. A row that isn't built yet has its label only,
// and its kind.
struct Row {
  Q_GADGET
  QML_VALUE_TYPE(row)
  Q_PROPERTY(QString identifier MEMBER identifier)
  Q_PROPERTY(QString label MEMBER label)
  Q_PROPERTY(QString value MEMBER value)
  Q_PROPERTY(QString footer MEMBER footer)
  Q_PROPERTY(bool first MEMBER first)
  Q_PROPERTY(bool last MEMBER last)
  Q_PROPERTY(double height MEMBER height)
  Q_PROPERTY(bool built MEMBER built)
  Q_PROPERTY(bool usable MEMBER usable)
  Q_PROPERTY(double opacity MEMBER opacity)
  Q_PROPERTY(bool opens MEMBER opens)
  Q_PROPERTY(bool ticked MEMBER ticked)
  Q_PROPERTY(bool destructive MEMBER destructive)
  Q_PROPERTY(bool on MEMBER on)
  Q_PROPERTY(double number MEMBER number)
  Q_PROPERTY(double minimum MEMBER minimum)
  Q_PROPERTY(double maximum MEMBER maximum)
  Q_PROPERTY(double step MEMBER step)
  Q_PROPERTY(double grain MEMBER grain)
  Q_PROPERTY(int stops MEMBER stops)
  Q_PROPERTY(bool continuous MEMBER continuous)
  Q_PROPERTY(QStringList titles MEMBER titles)
  Q_PROPERTY(int selected MEMBER selected)
  Q_PROPERTY(QString placeholder MEMBER placeholder)
  Q_PROPERTY(bool secret MEMBER secret)
  Q_PROPERTY(int inputHints MEMBER inputHints)
  Q_PROPERTY(QColor tint MEMBER tint)
  Q_PROPERTY(QColor onTint MEMBER onTint)
  Q_PROPERTY(QColor background MEMBER background)
  Q_PROPERTY(QColor swatch MEMBER swatch)
  Q_PROPERTY(QColor border MEMBER border)
  Q_PROPERTY(QString spoken MEMBER spoken)
  Q_PROPERTY(QString reason MEMBER reason)

 public:
  QString kind;  // which delegate draws it
  QString identifier, label;
  QString value;                     // what stands at the right
  QString footer;                    // of the group that ends with this row
  bool first = false, last = false;  // of its group
  double height = 0;                 // 0: the window's own
  bool built = false;
  bool usable = true;
  double opacity = 1;
  bool opens = false;  // leads to another page
  bool ticked = false, destructive = false;

  bool on = false;                              // a switch
  double number = 0, minimum = 0, maximum = 1;  // a slider
  double step = 0;                              // what a key press moves it by
  double grain = 0;                             // what a drag can aim at; 0: anything
  int stops = 0;                                // it snaps to so many steps; 0: to none
  bool continuous = false;
  QStringList titles;  // segments
  int selected = -1;
  QString placeholder;  // a text
  bool secret = false;
  int inputHints = 0;

  // A colour, or transparent where none was set.
  QColor tint = Qt::transparent, onTint = Qt::transparent, background = Qt::transparent;
  QColor swatch = Qt::transparent, border = Qt::transparent;  // of a row that stands for a colour
  QString spoken;  // the value where assistive technology says another than is shown
  QString reason;  // why the row can't be used; empty while it can

  bool operator==(const Row&) const = default;

  // As a slider's value stands beside it: to a thousandth, without zeros at its end.
  Q_INVOKABLE static QString numberText(double number);
};

// The row's own part; first, last and footer follow from its neighbours, the reason from its page.
Row describe(const preferences::PSSpecifier& specifier);

}  // namespace window
