#include "apps/window/settings_window.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QSocketNotifier>

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
  bridge_.recovery()->setDevice(&device);
  bridge_.undo()->setDevice(&device);
  following_ = std::make_unique<host::Following>(device.environment(), application_);
  bridge_.refresh();
  if (following_->descriptor() < 0) return;
  auto* notifier = new QSocketNotifier(following_->descriptor(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this] { following_->look(); });
}

void SettingsWindow::report(const host::Problem& problem) {
  QMetaObject::invokeMethod(&bridge_, [this, problem] { application_.report(problem); });
}

void SettingsWindow::withdraw(const host::Problem& problem) {
  QMetaObject::invokeMethod(&bridge_, [this, problem] { application_.withdraw(problem); });
}

QQuickWindow* SettingsWindow::quickWindow() const {
  auto roots = engine_.rootObjects();
  return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.first());
}

}  // namespace window
