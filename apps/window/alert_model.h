#pragma once

#include <qqmlintegration.h>
#include <QObject>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>

#include "host/settings_application.h"

namespace window {

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
// has gone keeps its looks while it fades, and does nothing.
class AlertModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the application")
  Q_PROPERTY(QString title MEMBER title_ CONSTANT)
  Q_PROPERTY(QString message MEMBER message_ CONSTANT)
  Q_PROPERTY(bool sheet MEMBER sheet_ CONSTANT)
  Q_PROPERTY(QVariantList buttons MEMBER buttons_ CONSTANT)  // of AlertButton
  Q_PROPERTY(bool cancels READ cancels CONSTANT)             // has a button that cancels
  Q_PROPERTY(bool picks MEMBER picks_ CONSTANT)              // has a picker
  Q_PROPERTY(QStringList choices MEMBER choices_ CONSTANT)   // of the picker
  Q_PROPERTY(int chosen READ chosen NOTIFY chosenChanged)    // -1: none
  // Where a sheet points to: the bar button, or a row of the page; else nowhere.
  Q_PROPERTY(bool atBarButton MEMBER atBarButton_ CONSTANT)
  Q_PROPERTY(int anchorRow MEMBER anchorRow_ CONSTANT)

 public:
  using Report = std::function<void(const QString& problem)>;

  AlertModel(host::SettingsApplication& host, std::shared_ptr<uikit::Alert> alert, Report report,
             QObject* parent);

  bool cancels() const { return buttonWhere(&AlertButton::cancels) >= 0; }
  int chosen() const { return chosen_; }
  bool shows(const std::shared_ptr<uikit::Alert>& alert) const { return alert_ == alert; }
  void refresh();
  void leave();  // the alert has gone from the screen

  Q_INVOKABLE void press(int button);
  Q_INVOKABLE void pressPreferred();
  // Esc, and a click beside a sheet: the button that cancels, or the only one there is.
  Q_INVOKABLE void cancel();
  Q_INVOKABLE void pick(int choice);
  // The first choice after `from`, or else of all, that begins with the text, or has a word that
  // does; -1 when there is none.
  Q_INVOKABLE int find(const QString& text, int from) const;
  Q_INVOKABLE void viewGone();  // its view has gone from the screen

 signals:
  void chosenChanged();
  void left();

 private:
  bool isTopmost() const;
  void findAnchor();
  int buttonWhere(bool AlertButton::*property) const;
  void tell(const host::Outcome<host::Done>& outcome);

  host::SettingsApplication& host_;
  std::shared_ptr<uikit::Alert> alert_;
  Report report_;
  QString title_, message_;
  bool sheet_ = false, picks_ = false, atBarButton_ = false;
  int anchorRow_ = -1, chosen_ = -1;
  QVariantList buttons_;
  QStringList choices_;
};

}  // namespace window
