#include "apps/window/tools.h"

#include <QClipboard>
#include <QGuiApplication>

#include "apps/window/settings_bridge.h"
#include "apps/window/values.h"
#include "host/go_to.h"
#include "host/notices.h"

namespace window {

Tools::Tools(SettingsBridge& bridge, host::Application& application, host::Device& device)
    : QObject(&bridge), bridge_(bridge), application_(application), device_(device) {
  connect(this, &Tools::storedChanged, this, &Tools::lookAgain);
}

host::Settings& Tools::settings() {
  if (!settings_)
    settings_ =
        std::make_unique<host::UnseenSettings>(device_.environment(), device_.notifications());
  return *settings_;
}

host::Attempt<std::vector<host::SavedProfile>> Tools::listProfiles() {
  auto found = savedProfiles().listing();
  if (!found) return found.error();
  auto now = host::unreadableProfiles(found->skipped);
  if (now != unreadable_) {
    if (unreadable_) application_.withdraw(*unreadable_);
    if (now) application_.report(*now);
    unreadable_ = std::move(now);
  }
  return std::move(found->profiles);
}

void Tools::lookAgain() {
  if (unreadable_) static_cast<void>(listProfiles());
}

void Tools::report(const host::Failure& failure) {
  application_.report(failure.problem);
}

host::Outcome<host::Done> Tools::show(const std::string& pageClass, const std::string& row) {
  const auto index = host::goTo(application_, pageClass, row);
  if (!index) return index.error();
  emit pageOpened();
  if (*index >= 0) bridge_.shown()->mark(*index);
  return host::Done{};
}

void Tools::open(const std::string& pageClass, const std::string& row) {
  if (const auto shown = show(pageClass, row); !shown) report(host::failureOf(shown.error()));
}

// As when the application comes to the foreground.
void Tools::showStored() {
  bridge_.activate();
}

void Tools::copy(const QString& text) {
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace window
