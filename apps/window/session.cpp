#include "apps/window/session.h"

#include <QQuickWindow>

#include "host/named.h"
#include "host/window_state.h"

namespace window {

Session::Session(const Options& options, std::unique_ptr<QtMainQueue> queue)
    : folder_(options.device.state.value_or(std::string())),
      queue_(*queue),
      device_(options.device, std::move(queue)),
      application_(device_.environment(), kGuessedEntries, kAllRows),
      lists_(application_, sourcesBeside(device_), postTo(pages_)) {
  if (device_.backups()) device_.backups()->prepare();
  application_.record(device_.backups());
}

Session::~Session() {
  device_.setProblemHandler({});
}

host::Outcome<std::unique_ptr<Session>> Session::open(const Options& options,
                                                      const QDBusConnection& desktop) {
  std::unique_ptr<Session> session(new Session(options, std::make_unique<QtMainQueue>()));
  host::Application& application = session->application_;
  std::string page;
  if (!options.page.empty()) {
    auto named = host::pageNamed(application.environment().bundle, options.page);
    if (!named) return named.error();
    page = std::move(*named);
  }
  if (auto launched = application.perform(host::Launch{page}); !launched) return launched.error();
  if (!options.row.empty())
    if (auto row = host::rowNamed(application, options.row); !row) return row.error();

  const auto before = host::readWindowState(session->folder_);
  const Start start{QSize(before.width, before.height),
                    options.page.empty() ? before.row : std::string(), desktop};
  SettingsWindow& settings = session->settings_.emplace(application, session->queue_, start);
  if (!settings.quickWindow()) return session;
  session->device_.setProblemHandler(
      [&](const host::Problem& problem) { settings.report(problem); },
      [&](const host::Problem& problem) { settings.withdraw(problem); });
  settings.attach(session->device_, &session->lists_);
  if (!options.row.empty()) settings.showRow(options.row);
  return session;
}

host::Attempt<platform::Done> Session::finish() {
  const QQuickWindow& shown = *settings_->quickWindow();
  static_cast<void>(host::writeWindowState(
      folder_, {shown.width(), shown.height(), settings_->bridge().openedId()}));
  device_.setProblemHandler({});
  return device_.finish();
}

}  // namespace window
