#pragma once

#include <qqmlintegration.h>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include "apps/window/values.h"
#include "host/scene.h"

namespace window {

class SettingsBridge;

// One button of an alert.
struct AlertButton {
  Q_GADGET
  QML_VALUE_TYPE(alertButton)
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(bool cancels MEMBER cancels)
  Q_PROPERTY(bool destructive MEMBER destructive)
  Q_PROPERTY(bool preferred MEMBER preferred)

 public:
  QString title;
  bool cancels = false, destructive = false;
  bool preferred = false;  // what Return presses in an alert
};

// An alert or a sheet on the screen: what QML shows of it, and what the user does to it. One that
// was dismissed keeps its look while it fades, and does nothing.
class AlertModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the application")
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QString message READ message CONSTANT)
  // What failed as it came up, though its message may promise it.
  Q_PROPERTY(QString failures READ failures NOTIFY failuresChanged)
  Q_PROPERTY(bool sheet READ sheet CONSTANT)
  Q_PROPERTY(QVariantList buttons MEMBER buttons_ CONSTANT)  // of AlertButton
  Q_PROPERTY(bool cancels READ cancels CONSTANT)             // has a button that cancels
  Q_PROPERTY(int firstButton READ firstButton CONSTANT)      // has the keyboard first
  Q_PROPERTY(bool picks READ picks CONSTANT)                 // has a picker
  Q_PROPERTY(QStringList choices MEMBER choices_ NOTIFY choicesChanged)  // of the picker
  Q_PROPERTY(int chosen READ chosen NOTIFY chosenChanged)                // -1: none
  // Where a sheet points to: the bar button, or a row of the page; else nowhere.
  Q_PROPERTY(bool atBarButton READ atBarButton CONSTANT)
  Q_PROPERTY(int anchorRow READ anchorRow CONSTANT)

 public:
  AlertModel(SettingsBridge& bridge, const host::AlertView& view);

  QString title() const { return toQString(view_.title); }
  QString message() const { return toQString(view_.message); }
  QString failures() const;
  bool sheet() const { return view_.style == host::AlertStyle::Sheet; }
  bool cancels() const { return buttonWhere(&AlertButton::cancels) >= 0; }
  // The one that changes nothing, else the one that Return presses.
  int firstButton() const;
  bool picks() const { return view_.picker.has_value(); }
  int chosen() const { return view_.picker ? view_.picker->selected : -1; }
  bool atBarButton() const { return view_.atBarButton; }
  int anchorRow() const { return view_.atRow.value_or(-1); }

  std::uint64_t number() const { return view_.number; }
  void refresh(const host::AlertView& view);  // of the same alert
  void leave();                               // the alert was dismissed

  Q_INVOKABLE void press(int button);
  Q_INVOKABLE void pressPreferred();
  // Esc, and a click beside a sheet: the button that cancels, or the only one there is.
  Q_INVOKABLE void cancel();
  Q_INVOKABLE void pick(int choice);
  // The first choice after `from`, or else of all, that begins with the text, or has a word that
  // does; -1 when there is none.
  Q_INVOKABLE int find(const QString& text, int from) const;
  Q_INVOKABLE void viewGone();  // its view is destroyed

 signals:
  void failuresChanged();
  void choicesChanged();
  void chosenChanged();
  void left();

 private:
  bool isTopmost() const;
  int buttonWhere(bool AlertButton::*property) const;

  SettingsBridge& bridge_;
  host::AlertView view_;
  QVariantList buttons_;
  QStringList choices_;
  bool left_ = false;
};

}  // namespace window
