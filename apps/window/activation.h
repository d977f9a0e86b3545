#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QVariant>
#include <functional>
#include <vector>

#include "apps/window/options.h"
#include "apps/window/settings_window.h"

namespace window {

// The name of the program on the session bus and of its desktop file.
extern const char* const kApplicationId;

// One window for each device root and display. The program that has kApplicationId on the session
// bus shows it; desktops and later starts ask it by org.freedesktop.Application. Without a bus, and
// where the window that has the name is of another root, contacts folder or display, or doesn't
// answer in two seconds, a start shows a window of its own.
//
// "show" is the one action, of three texts: which device and display (another is refused), page and
// row, of which both or either may be empty.
class Activation : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  // Takes the name if it is free. What is asked before `serve` waits until then.
  Activation(const QDBusConnection& bus, const Options& options);
  ~Activation() override;

  // Whether an open window now shows what the options name; refused as that window does.
  host::Outcome<bool> showInOther();
  void serve(SettingsWindow& settings);  // which outlives what the event loop runs

 public slots:
  void Activate(const QVariantMap& platformData);
  void Open(const QStringList& uris, const QVariantMap& platformData);  // not supported
  void ActivateAction(const QString& name, const QVariantList& parameters,
                      const QVariantMap& platformData);

 private:
  void answer(const std::function<void()>& task);
  void raise(const QVariantMap& platformData);

  QDBusConnection bus_;
  const QStringList wanted_;  // device and display, page, row
  bool isFirst_ = false;
  SettingsWindow* settings_ = nullptr;
  std::vector<std::function<void()>> waiting_;
};

}  // namespace window
