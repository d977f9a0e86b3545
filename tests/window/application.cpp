#include "tests/window/application.h"

#include <QAccessible>
#include <QGuiApplication>

void startApplication() {
  if (qApp) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  static int count = 1;
  static char name[] = "window-test";
  static char* arguments[] = {name, nullptr};
  new QGuiApplication(count, arguments);
  QAccessible::setActive(true);
}
