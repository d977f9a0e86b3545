#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

#include "apps/window/desktop.h"

namespace window {

// Follows the desktop's settings portal, org.freedesktop.portal.Settings on the session bus that is
// running: at DBUS_SESSION_BUS_ADDRESS, else at $XDG_RUNTIME_DIR/bus; none is started. Without a
// bus, without a portal, and for a value of another type than it should have, nothing is followed.
// Nothing waits for the answer: it comes through the event loop.
class DesktopPortal : public QObject {
  Q_OBJECT

 public:
  DesktopPortal(Desktop& desktop, const QDBusConnection& bus);

  // The session bus; not connected where there is none.
  static QDBusConnection sessionBus();

 private slots:
  void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  void ask();

  Desktop& desktop_;
  QDBusConnection bus_;
};

}  // namespace window
