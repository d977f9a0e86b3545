#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>

#include "apps/window/activation.h"
#include "apps/window/options.h"
#include "apps/window/session.h"
#include "host/user_file.h"

namespace {

enum ExitCode { kDone = 0, kFailed = 1, kWrongUse = 2, kNotFound = 3 };

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

int refused(const host::Refusal& refusal) {
  const bool isModal = refusal.code == host::RefusalCode::Modal;
  return complain(isModal ? kFailed : kNotFound, refusal.message);
}

int run(const window::Options& options) {
  const QDBusConnection desktop = window::DesktopPortal::sessionBus();
  window::Activation activation(desktop, options);
  const auto shown = activation.showInOther();
  if (!shown) return refused(shown.error());
  if (*shown) return kDone;

  const auto session = window::Session::open(options, desktop);
  if (!session) return refused(session.error());
  if (!(*session)->settings().quickWindow()) return complain(kFailed, "the window can't be made.");
  activation.serve((*session)->settings());
  const int code = QGuiApplication::exec();
  if (const auto finished = (*session)->finish(); !finished)
    return complain(kFailed, "at the end: " + finished.error().problem.message());
  return code;
}

}  // namespace

int main(int argc, char** argv) try {
  host::occupyStandardStreams();
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  const auto options = window::readOptions(arguments);
  if (!options) return complain(kWrongUse, options.error().message);
  if (options->help) return std::fputs(window::kUsage, stdout) < 0 ? kFailed : kDone;
  if (options->version)
    return std::puts("quorvantis-settings " QUORVANTIS_VERSION) < 0 ? kFailed : kDone;
  if (!hasDisplay())
    return complain(kFailed,
                    "there is no display: neither DISPLAY, WAYLAND_DISPLAY nor QT_QPA_PLATFORM is "
                    "set. \"quorvantis\" does the same without a window.");

  qtsOwn = qInstallMessageHandler(handleMessage);
  QGuiApplication application(argc, argv);
  QGuiApplication::setApplicationDisplayName("Settings");
  QGuiApplication::setDesktopFileName(window::kApplicationId);
  return run(*options);
} catch (const std::bad_alloc&) {
  return complain(kFailed, "out of memory");
} catch (const std::exception& failure) {
  return complain(kFailed, failure.what());
}
