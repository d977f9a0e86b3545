#pragma once

#include <QObject>
#include <QQmlApplicationEngine>

#include "apps/window/qt_main_queue.h"
#include "apps/window/settings_bridge.h"

class QQuickWindow;

namespace window {

// How many entries of a page are made before the window knows how many fit, and at the least.
inline constexpr int kGuessedEntries = 12;

// The window on a Settings application that runs on this queue. Needs a QGuiApplication; when that
// becomes active, so does the Settings application.
class SettingsWindow : public QObject {
  Q_OBJECT

 public:
  SettingsWindow(host::Application& application, QtMainQueue& queue);

  SettingsBridge& bridge() { return bridge_; }
  // From now on it has its tools, which work on this device; that has to outlive it.
  void attach(host::Device& device);
  void showRow(const std::string& id);  // scrolls to that row of the shown page and marks it
  // Reports a problem to the application; may be called from any thread while the window exists.
  void report(const host::Problem& problem);
  void withdraw(const host::Problem& problem);  // once it has gone
  QQuickWindow* quickWindow() const;            // null when the window couldn't be made

 private:
  host::Application& application_;
  SettingsBridge bridge_;
  QQmlApplicationEngine engine_;
};

}  // namespace window
