#include "tests/window/application.h"

#include <QAccessible>
#include <QFontInfo>
#include <QGuiApplication>

namespace {

void useFont(const QString& family) {
  QFont font = QGuiApplication::font();
  font.setFamilies({family});
  if (const int points = qEnvironmentVariableIntValue("WINDOW_TEST_POINTS"))
    font.setPointSize(points);
  QGuiApplication::setFont(font);
  if (const QString found = QFontInfo(font).family(); found != family)
    qFatal("The font is \"%s\" in place of \"%s\": scripts/install-packages test",
           qPrintable(found), qPrintable(family));
}

}  // namespace

void startApplication() {
  if (qApp) return;
  const QString family = qEnvironmentVariable("WINDOW_TEST_FONT", "DejaVu Sans");
  qputenv("FONTCONFIG_FILE", (TEST_FONTS "/" + family + ".conf").toLocal8Bit());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  static int count = 1;
  static char name[] = "window-test";
  static char* arguments[] = {name, nullptr};
  new QGuiApplication(count, arguments);
  useFont(family);
  QAccessible::setActive(true);
}
