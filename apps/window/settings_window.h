#pragma once

#include <QObject>
#include <QQmlApplicationEngine>
#include <QString>
#include <string>

#include "apps/window/qt_main_queue.h"
#include "apps/window/settings_bridge.h"

class QQuickWindow;

namespace window {

// The window on a Settings application that runs on this queue. A QGuiApplication has to be there;
// its coming to the foreground is told to the application.
class SettingsWindow : public QObject {
  Q_OBJECT

 public:
  SettingsWindow(host::SettingsApplication& host, QtMainQueue& queue);

  SettingsBridge& bridge() { return bridge_; }
  // Puts a problem on screen; may be called from any thread while the window is there.
  void report(const std::string& problem);
  QQuickWindow* quickWindow() const;  // null when the window couldn't be made

 private:
  SettingsBridge bridge_;
  QQmlApplicationEngine engine_;
};

}  // namespace window
