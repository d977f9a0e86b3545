#include <QGuiApplication>
#include <QQuickWindow>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>

#include "apps/window/options.h"
#include "apps/window/settings_window.h"
#include "host/describe.h"
#include "host/device.h"
#include "host/user_file.h"
#include "host/window_state.h"

namespace {

enum ExitCode { kDone = 0, kFailed = 1, kWrongUse = 2, kNoPage = 3 };

int complain(ExitCode code, std::string_view message) {
  const std::string line = "quorvantis-settings: " + std::string(message) + "\n";
  static_cast<void>(host::writeStream(host::Stream::Error, line));
  return code;
}

// A display, or a Qt platform that needs none.
bool hasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (!qEnvironmentVariableIsEmpty(name)) return true;
  return false;
}

QtMessageHandler qtsOwn = nullptr;

// A failure that Qt takes for fatal, such as a display that refuses to be opened, would dump core.
void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type != QtFatalMsg) return qtsOwn(type, context, message);
  std::_Exit(complain(kFailed, message.simplified().toStdString()));
}

// The page that was open when the window was closed, where there still is such a one.
void reopen(host::Application& application, const std::string& row) {
  const auto rows = host::describe(application).pages.back().rows;
  const auto found = std::ranges::find(rows, row, &host::RowView::id);
  if (found == rows.end() || found->kind != host::RowKind::Link) return;
  const int index = static_cast<int>(found - rows.begin());
  static_cast<void>(application.perform(host::Scroll{index}));
  static_cast<void>(application.perform(host::Tap{index}));
}

// Its size and that page, for the next time.
void remember(window::SettingsWindow& settings, const std::string& folder) {
  const QQuickWindow& shown = *settings.quickWindow();
  static_cast<void>(host::writeWindowState(
      folder, {shown.width(), shown.height(), settings.bridge().openedId()}));
}

int run(const window::Options& options) {
  auto mainQueue = std::make_unique<window::QtMainQueue>();
  window::QtMainQueue& queue = *mainQueue;
  host::Device device(options.device, std::move(mainQueue));
  if (device.backups()) device.backups()->prepare();
  host::Application application(device.environment(), window::kGuessedEntries,
                                window::kGuessedEntries);
  application.record(device.backups());
  QObject pages;
  const host::ListReader lists(application, window::sourcesBeside(device), window::postTo(pages));
  if (const auto launched = application.perform(host::Launch{options.page}); !launched)
    return complain(kNoPage, launched.error().message);
  if (!options.row.empty())
    if (const auto row = application.row(options.row); !row)
      return complain(kNoPage, row.error().message);

  const std::string folder = options.device.state.value_or(std::string());
  const auto before = host::readWindowState(folder);
  if (options.page.empty()) reopen(application, before.row);
  window::SettingsWindow settings(application, queue, QSize(before.width, before.height));
  if (!settings.quickWindow()) return complain(kFailed, "the window can't be made.");
  device.setProblemHandler([&](const host::Problem& problem) { settings.report(problem); },
                           [&](const host::Problem& problem) { settings.withdraw(problem); });
  settings.attach(device, &lists);
  settings.followDesktop();
  if (!options.row.empty()) settings.showRow(options.row);
  const int code = QGuiApplication::exec();
  remember(settings, folder);
  device.setProblemHandler({});
  if (const auto finished = device.finish(); !finished)
    return complain(kFailed, "at the end: " + finished.error().problem.message());
  return code;
}

}  // namespace

int main(int argc, char** argv) try {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  const auto options = window::readOptions(arguments);
  if (!options) return complain(kWrongUse, options.error().message);
  if (options->help) return std::fputs(window::kUsage, stdout) < 0 ? kFailed : kDone;
  if (!hasDisplay())
    return complain(kFailed,
                    "there is no display: neither DISPLAY, WAYLAND_DISPLAY nor QT_QPA_PLATFORM is "
                    "set. \"quorvantis\" does the same without a window.");

  qtsOwn = qInstallMessageHandler(handleMessage);
  QGuiApplication application(argc, argv);
  QGuiApplication::setApplicationDisplayName("Settings");
  QGuiApplication::setDesktopFileName("quorvantis-settings");
  return run(*options);
} catch (const std::bad_alloc&) {
  return complain(kFailed, "out of memory");
} catch (const std::exception& failure) {
  return complain(kFailed, failure.what());
}
