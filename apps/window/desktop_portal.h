#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QObject>

#include "apps/window/desktop.h"

namespace window {

// Follows the desktop's settings portal, org.freedesktop.portal.Settings on the session bus that is
// running: at DBUS_SESSION_BUS_ADDRESS, else at $XDG_RUNTIME_DIR/bus; none is started. Without a
// bus, without a portal, and for a value of another type than it should have, nothing is followed.
// The answer comes through the event loop.
class DesktopPortal : public QObject {
  Q_OBJECT

 public:
  DesktopPortal(Desktop& desktop, const QDBusConnection& bus);

  // Until the first answer has come, or a tenth of a second has passed: what comes later is
  // followed all the same.
  void await();

  // The session bus; not connected where there is none.
  static QDBusConnection sessionBus();

 signals:
  void answered();

 private slots:
  void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  void ask();
  void take(const QDBusMessage& answer);

  Desktop& desktop_;
  QDBusConnection bus_;
  bool waiting_ = false;  // for the first answer
};

}  // namespace window
