#pragma once

#include <memory>

#include "apps/window/options.h"
#include "apps/window/settings_window.h"

namespace window {

// The program from its start to its end: a device, the Settings application on it, and its window.
// The window has the size, and without a page in the options the page, that it had when it was last
// closed.
class Session {
 public:
  // Refused where there is no such page or row. The desktop is the one of this bus.
  static host::Outcome<std::unique_ptr<Session>> open(
      const Options& options, const QDBusConnection& desktop = DesktopPortal::sessionBus());
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  SettingsWindow& settings() { return *settings_; }
  // Once the window is closed: remembers it, and flushes what was stored.
  host::Attempt<platform::Done> finish();

 private:
  Session(const Options& options, std::unique_ptr<QtMainQueue> queue);

  const std::string folder_;  // of the host's state
  QtMainQueue& queue_;
  host::Device device_;
  host::Application application_;
  QObject pages_;  // lives as long as pages take what was read
  host::ListReader lists_;
  std::optional<SettingsWindow> settings_;
};

}  // namespace window
