#include "apps/window/settings_bridge.h"

namespace window {

SettingsBridge::SettingsBridge(host::SettingsApplication& host, QObject* parent)
    : QObject(parent), host_(host) {
  host_.setObserver([this] { refresh(); });
  refresh();
}

SettingsBridge::~SettingsBridge() {
  host_.setObserver({});
}

void SettingsBridge::refresh() {
  if (!refused_.isEmpty()) dismiss(static_cast<int>(problems_.indexOf(refused_)));
  dropLeftPages();
  addNewPages();
  if (!pages_.isEmpty()) pages_.last()->refresh();
  refreshAlerts();
}

void SettingsBridge::dropLeftPages() {
  auto& now = host_.pages();
  qsizetype kept = 0;
  while (kept < pages_.size() && kept < static_cast<qsizetype>(now.size()) &&
         pages_[kept]->shows(now[kept]))
    ++kept;
  if (kept == pages_.size()) return;
  for (PageModel* left : pages_.mid(kept)) left->leave();
  pages_.resize(kept);
  emit shownChanged();
  emit popped(pages_.isEmpty() ? nullptr : pages_.last());
}

void SettingsBridge::addNewPages() {
  auto& now = host_.pages();
  while (pages_.size() < static_cast<qsizetype>(now.size())) {
    const PageModel* previous = pages_.isEmpty() ? nullptr : pages_.last();
    auto* page = new PageModel(
        host_, now[pages_.size()], previous, [this](const QString& problem) { refuse(problem); },
        this);
    pages_.append(page);
    emit shownChanged();
    emit pushed(page);
  }
}

void SettingsBridge::refreshAlerts() {
  const auto now = host_.alerts();
  qsizetype kept = 0;
  while (kept < alerts_.size() && kept < std::ssize(now) && alerts_[kept]->shows(now[kept])) ++kept;
  const auto gone = alerts_.mid(kept);
  alerts_.resize(kept);
  while (alerts_.size() < std::ssize(now)) {
    alerts_.append(new AlertModel(
        host_, now[alerts_.size()], [this](const QString& problem) { refuse(problem); }, this));
  }
  for (AlertModel* alert : gone) alert->leave();
  for (AlertModel* alert : alerts_.mid(kept)) emit alertShown(alert);
  if (!gone.isEmpty() || alerts_.size() > kept) emit alertChanged();
  if (!alerts_.isEmpty()) alerts_.last()->refresh();
}

void SettingsBridge::announce() {
  for (PageModel* page : pages_) emit pushed(page);
  for (AlertModel* alert : alerts_) emit alertShown(alert);
}

void SettingsBridge::report(const QString& problem) {
  if (problems_.contains(problem)) return;
  problems_.append(problem);
  emit problemsChanged();
}

void SettingsBridge::refuse(const QString& problem) {
  if (problems_.contains(problem)) return;
  if (!refused_.isEmpty()) dismiss(static_cast<int>(problems_.indexOf(refused_)));
  report(problem);
  refused_ = problem;
}

void SettingsBridge::back() {
  if (pages_.size() < 2) return;
  if (auto done = host_.back(); !done) refuse(QString::fromStdString(done.error().message));
}

void SettingsBridge::activate() {
  host_.activate();
  // Other programs may have stored what cells show as they are laid out.
  host_.layout();
}

void SettingsBridge::dismiss(int problem) {
  if (problem < 0 || problem >= problems_.size()) return;
  if (problems_[problem] == refused_) refused_.clear();
  problems_.removeAt(problem);
  emit problemsChanged();
}

}  // namespace window
