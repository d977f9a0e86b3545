#include "apps/window/settings_window.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include "apps/window/text.h"

void qml_register_types_Quorvantis_Settings();

namespace window {

SettingsWindow::SettingsWindow(host::SettingsApplication& host, QtMainQueue& queue)
    : bridge_(host) {
  connect(&queue, &QtMainQueue::ran, &bridge_, [&host] { host.buildVisibleRows(); });
  connect(qApp, &QGuiApplication::applicationStateChanged, &bridge_,
          [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive) bridge_.activate();
          });
  qml_register_types_Quorvantis_Settings();
  engine_.addImportPath("qrc:/qt/qml");
  engine_.setInitialProperties({{"settings", QVariant::fromValue(&bridge_)}});
  engine_.load("qrc:/qt/qml/Quorvantis/Settings/Main.qml");
}

void SettingsWindow::report(const std::string& problem) {
  const QString text = toQString(problem);
  QMetaObject::invokeMethod(&bridge_, [this, text] { bridge_.report(text); });
}

QQuickWindow* SettingsWindow::quickWindow() const {
  auto roots = engine_.rootObjects();
  return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.first());
}

}  // namespace window
