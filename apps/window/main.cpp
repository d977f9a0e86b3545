#include <QGuiApplication>
#include <QPalette>
#include <QQuickWindow>
#include <cstdio>

#include "apps/window/display.h"
#include "apps/window/options.h"
#include "apps/window/screenshot.h"
#include "apps/window/settings_window.h"
#include "apps/window/steps.h"
#include "apps/window/text.h"
#include "host/device.h"

namespace {

enum ExitCode { kDone = 0, kFailed = 1, kWrongUse = 2, kNoPage = 3 };

int complain(ExitCode code, const QString& message) {
  std::fprintf(stderr, "quorvantis-settings: %s\n", qPrintable(message));
  return code;
}

QStringList argumentsIn(int count, char** values) {
  QStringList arguments;
  for (int i = 0; i < count; ++i) arguments << QString::fromLocal8Bit(values[i]);
  return arguments;
}

void setAppearance(bool dark) {
  QPalette palette;
  palette.setColor(QPalette::Window, dark ? Qt::black : Qt::white);
  QGuiApplication::setPalette(palette);
}

int run(const window::Options& options) {
  auto mainQueue = std::make_unique<window::QtMainQueue>();
  window::QtMainQueue& queue = *mainQueue;
  host::Device device(options.device, std::move(mainQueue));
  constexpr int kGuessedEntries = 12;  // until the window is laid out, and on each new page
  host::SettingsApplication host(device.environment(), kGuessedEntries, kGuessedEntries);
  if (options.page.empty())
    host.launch();
  else if (auto launched = host.launch(options.page); !launched)
    return complain(kNoPage, window::toQString(launched.error().message));

  window::SettingsWindow settings(host, queue);
  QQuickWindow* screen = settings.quickWindow();
  if (!screen) return complain(kFailed, "the window can't be made.");
  device.setProblemHandler([&](const std::string& problem) { settings.report(problem); });

  int code = kDone;
  if (!options.size.isEmpty()) screen->resize(options.size);
  if (options.picture) {
    auto next = [&, step = options.steps.begin()]() mutable {
      if (step == options.steps.end()) return false;
      if (auto done = perform(*step++, host, settings.bridge()); !done)
        code = complain(kFailed, window::toQString(done.error().message));
      return true;
    };
    window::takeScreenshot(*screen, options.picture->file, next, [&](bool saved) {
      if (!saved) code = complain(kFailed, "can't write " + options.picture->file);
      QGuiApplication::quit();
    });
  }
  QGuiApplication::exec();
  device.setProblemHandler({});
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  auto options = window::readOptions(argumentsIn(argc, argv));
  if (!options) return complain(kWrongUse, options.error());
  if (options->help) return std::fputs(window::kUsage, stdout) < 0 ? kFailed : kDone;
  if (options->picture && !window::hasDisplay()) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (!window::hasDisplay())
    return complain(kFailed,
                    "there is no display: neither DISPLAY, WAYLAND_DISPLAY nor QT_QPA_PLATFORM is "
                    "set. \"quorvantis\" does the same without a window.");

  window::failPlainly();
  QGuiApplication application(argc, argv);
  QGuiApplication::setApplicationDisplayName("Settings");
  QGuiApplication::setDesktopFileName("quorvantis-settings");
  if (options->dark) setAppearance(*options->dark);
  return run(*options);
}
