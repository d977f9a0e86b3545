#include "apps/window/settings_window.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include "apps/window/tools.h"
#include "host/go_to.h"

void qml_register_types_Quorvantis_Settings();

namespace window {

SettingsWindow::SettingsWindow(host::Application& application, QtMainQueue& queue)
    : application_(application), bridge_(application) {
  connect(&queue, &QtMainQueue::ran, &bridge_, [&application] { application.buildVisibleRows(); });
  connect(qApp, &QGuiApplication::applicationStateChanged, &bridge_,
          [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive) bridge_.activate();
          });
  qml_register_types_Quorvantis_Settings();
  engine_.addImportPath("qrc:/qt/qml");
  engine_.setInitialProperties({{"settings", QVariant::fromValue(&bridge_)}});
  engine_.load("qrc:/qt/qml/Quorvantis/Settings/Main.qml");
}

void SettingsWindow::attach(host::Device& device) {
  bridge_.setTools(new Tools(bridge_, application_, device));
}

void SettingsWindow::showRow(const std::string& id) {
  const std::string page(application_.shownPage()->className());
  if (const auto row = host::goTo(application_, page, id)) bridge_.shown()->mark(*row);
}

void SettingsWindow::report(const host::Problem& problem) {
  QMetaObject::invokeMethod(&bridge_, [this, problem] { application_.report(problem); });
}

void SettingsWindow::withdraw(const host::Problem& problem) {
  QMetaObject::invokeMethod(&bridge_, [this, problem] { application_.dismiss(problem); });
}

QQuickWindow* SettingsWindow::quickWindow() const {
  auto roots = engine_.rootObjects();
  return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.first());
}

}  // namespace window
