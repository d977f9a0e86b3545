#include "apps/window/display.h"

#include <QString>
#include <cstdio>
#include <cstdlib>

namespace window {
namespace {

QtMessageHandler otherwise = nullptr;

void handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type != QtFatalMsg) return otherwise(type, context, message);
  QString line = message.simplified();
  std::fprintf(stderr, "quorvantis-settings: %s\n", qPrintable(line));
  std::_Exit(1);
}

}  // namespace

bool hasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (!qEnvironmentVariableIsEmpty(name)) return true;
  return false;
}

void failPlainly() {
  otherwise = qInstallMessageHandler(handle);
}

}  // namespace window
