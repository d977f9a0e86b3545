#pragma once

#include <QObject>
#include <QQmlApplicationEngine>
#include <QSize>

#include "apps/window/desktop.h"
#include "apps/window/desktop_portal.h"
#include "apps/window/qt_main_queue.h"
#include "apps/window/settings_bridge.h"
#include "host/device.h"
#include "host/following.h"
#include "host/list_reader.h"

class QQuickWindow;

namespace window {

// How many entries of a page are made before the window knows how many fit.
inline constexpr int kGuessedEntries = 12;
// A page of rows makes all of them: assistive technology reads those that are off screen too, which
// are dimmed by rules only once they are made.
inline constexpr int kAllRows = 1000;

// How the window begins.
struct Start {
  QSize size{};          // its own where this is empty
  std::string opened{};  // the row of the first page whose page is open, where there is such a row
  // Looks as the desktop on this bus wants. Where the bus isn't there the first change is reported
  // to be announced to nobody.
  std::optional<QDBusConnection> desktop{};
};

// What a reader of lists reads on: another device beside the one that is shown, which outlives it.
host::ListReader::MakeSource sourcesBeside(const host::Device& device);
// How a reader of lists reaches the thread of the pages, as long as `context` lives there.
host::ListReader::Post postTo(QObject& context);

// The window on a Settings application that runs on this queue. Needs a QGuiApplication; when that
// becomes active, so does the Settings application.
class SettingsWindow : public QObject {
  Q_OBJECT

 public:
  SettingsWindow(host::Application& application, QtMainQueue& queue, const Start& start = {});

  SettingsBridge& bridge() { return bridge_; }
  // From now on it shows what other processes change on this device, which has to outlive it, and
  // offers to undo, ways out where its settings can't be read, and its tools.
  // With a reader of lists it says which are being read.
  void attach(host::Device& device, const host::ListReader* lists = nullptr);
  Desktop& desktop() { return desktop_; }
  void showRow(const std::string& id);  // scrolls to that row of the shown page and marks it
  // Shows the row of that id, if it isn't empty, on that page or, where that is empty, the first.
  // Needs a device.
  host::Outcome<host::Done> showPage(const std::string& pageClass, const std::string& row);
  void raise();  // above other windows, as far as the desktop allows it
  // Reports a problem to the application; may be called from any thread while the window exists.
  void report(const host::Problem& problem);
  void withdraw(const host::Problem& problem);  // once it has gone
  QQuickWindow* quickWindow() const;            // null when the window couldn't be made

 private:
  void reopen(const std::string& id);
  void takeFont();

  host::Application& application_;
  SettingsBridge bridge_;
  std::unique_ptr<host::Following> following_;
  Desktop desktop_{nullptr};
  std::optional<DesktopPortal> portal_;
  QQmlApplicationEngine engine_;
};

}  // namespace window
