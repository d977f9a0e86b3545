#include "apps/window/profiles_tool.h"

#include <QDir>
#include <QStandardPaths>
#include <algorithm>

#include "apps/window/tools.h"
#include "apps/window/values.h"
#include "host/user_file.h"

namespace window {

using host::Profiles;

QVariantList ProfilesTool::saved() const {
  QVariantList entries;
  for (const host::SavedProfile& profile : saved_)
    entries << QVariant::fromValue(ProfileEntry{toQString(profile.title),
                                                toQString(profile.description),
                                                toQString(profile.path), profile.active});
  return entries;
}

QStringList ProfilesTool::triggers() const {
  QStringList titles;
  for (const host::Trigger& trigger : host::triggers()) titles << toQString(trigger.title);
  return titles;
}

int ProfilesTool::levels() const {
  return host::batteryLevels();
}

QStringList ProfilesTool::triggerPaths() const {
  QStringList paths;
  for (const host::Trigger& trigger : host::triggers()) {
    const bool has =
        std::ranges::find(saved_, trigger.path, &host::SavedProfile::path) != saved_.end();
    paths << (has ? toQString(trigger.path) : QString());
  }
  return paths;
}

void ProfilesTool::look() {
  auto found = tools_.listProfiles();
  if (!found) tools_.report(found.error());
  auto saved = found ? std::move(*found) : std::vector<host::SavedProfile>();
  if (saved == saved_ && failed_ == !found) return;
  failed_ = !found;
  saved_ = std::move(saved);
  emit changed();
}

void ProfilesTool::importFile(const QString& file, bool replace) {
  const auto bytes = host::readUserFile(file.toStdString());
  if (!bytes) return tools_.report(host::failureOf(host::Source::Request, bytes.error()));
  const auto existing = replace ? Profiles::Existing::Overwrite : Profiles::Existing::Keep;
  host::Attempt<host::Trigger> imported = host::Failure{};
  const auto import = [&] { return imported = tools_.savedProfiles().import(*bytes, existing); };
  if (tools_.change("import", import)) {
    emit tools_.profileWanted(toQString(imported->path));
    return;
  }
  const auto& [reason, problem] = imported.error();
  if (reason != host::Failure::Exists) return;
  const auto trigger = host::profileNamed(problem.path);
  emit replaceWanted(file, trigger ? toQString(trigger->title) : QString());
}

void ProfilesTool::importUrls(const QList<QUrl>& urls) {
  if (urls.isEmpty() || !urls.first().isLocalFile()) return;
  if (urls.size() > 1)
    tools_.report(host::failure(
        host::Source::Request, host::Failure::Refused,
        tr("One file is imported at a time: %1.").arg(urls.first().fileName()).toStdString()));
  importFile(urls.first().toLocalFile(), false);
}

QString ProfilesTool::suggestedFolder() const {
  const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  return (QDir(downloads).exists() ? downloads : QDir::homePath()) + '/';
}

}  // namespace window
