#include "apps/window/changes_tool.h"

#include <algorithm>
#include <utility>

#include "apps/window/tools.h"
#include "apps/window/values.h"

namespace window {
namespace {

bool hasDefault(const host::SettingView& setting) {
  return !setting.row.standard.isNothing();
}

}  // namespace

ChangesTool::ChangesTool(Tools& tools) : QObject(&tools), tools_(tools) {}

QVariantList ChangesTool::settings() const {
  QVariantList settings;
  for (std::size_t i = 0; i < found_.size(); ++i) {
    const auto& [pageClass, title, row] = found_[i];
    const bool first = i == 0 || found_[i - 1].pageClass != pageClass;
    const bool last = i + 1 == found_.size() || found_[i + 1].pageClass != pageClass;
    settings << QVariant::fromValue(
        ChangedSetting{toQString(pageClass + ' ' + row.id), toQString(title), toQString(pageClass),
                       toQString(row.label.empty() ? row.id : row.label), toQString(row.shown),
                       toQString(row.standardShown), hasDefault(found_[i]), first, last});
  }
  return settings;
}

int ChangesTool::resettable() const {
  return static_cast<int>(std::ranges::count_if(found_, hasDefault));
}

void ChangesTool::look(const QString& pageClass) {
  const auto all = tools_.settings().list();
  if (!all) tools_.report(all.error());
  QString page;
  std::vector<host::SettingView> found;
  if (all)
    for (const host::SettingView& setting : *all) {
      const bool inScope = pageClass.isEmpty() || toQString(setting.pageClass) == pageClass;
      if (inScope && !pageClass.isEmpty()) page = toQString(setting.pageTitle);
      if (inScope && setting.row.changed) found.push_back(setting);
    }
  const bool isSame =
      pageClass_ == pageClass && page_ == page && found_ == found && failed_ == !all;
  if (isSame) return;
  pageClass_ = pageClass;
  page_ = page;
  found_ = std::move(found);
  failed_ = !all;
  emit changed();
}

void ChangesTool::open(int setting) {
  if (setting >= 0 && setting < std::ssize(found_))
    tools_.open(found_[setting].pageClass, found_[setting].row.id);
}

void ChangesTool::reset(const host::Settings::Scope& scope, const QString& what) {
  tools_.change(
      what.toStdString(), [&] { return tools_.settings().reset(scope); }, Tools::Keeps::Snapshot);
}

void ChangesTool::reset() {
  const bool all = pageClass_.isEmpty();
  reset({.page = pageClass_.toStdString(), .all = all}, all ? "reset all" : "reset " + page_);
}

void ChangesTool::resetRow(const QString& key) {
  const host::Settings::Scope scope{.keys = {key.toStdString()}};
  tools_.change("reset " + key.toStdString(), [&] { return tools_.settings().reset(scope); });
}

}  // namespace window
