#include "apps/window/profile_tool.h"

#include <cerrno>

#include "apps/window/tools.h"
#include "apps/window/values.h"
#include "host/user_file.h"

namespace window {
namespace {

QVariant shown(const host::SeenDifference& difference) {
  return QVariant::fromValue(ProfileValue{toQString(difference.label), toQString(difference.from),
                                          toQString(difference.to)});
}

std::string orPath(const host::Trigger& trigger) {
  return trigger.title.empty() ? trigger.path : trigger.title;
}

}  // namespace

QString ProfileTool::path() const {
  return toQString(trigger_.path);
}

QString ProfileTool::title() const {
  return toQString(orPath(trigger_));
}

QString ProfileTool::other() const {
  return toQString(orPath(other_));
}

bool ProfileTool::open(const QString& path) {
  const auto trigger = host::profileNamed(path.toStdString());
  if (!trigger) {
    tools_.report(trigger.error());
    return false;
  }
  trigger_ = *trigger;
  other_ = {};
  return show(tools_.savedProfiles().read(trigger_));
}

bool ProfileTool::show(const host::Attempt<plist::Dictionary>& profile) {
  if (!profile) {
    tools_.report(profile.error());
    return false;
  }
  std::vector<host::Profiles::Difference> all;
  for (const auto& [key, value] : *profile) all.push_back({key, std::nullopt, value});
  values_.clear();
  for (const host::SeenDifference& value : host::seenDifferences(tools_.settings(), all))
    values_ << shown(value);
  description_ = toQString(host::Profiles::saved(trigger_.path, *profile).description);
  compare();
  return true;
}

void ProfileTool::compare() {
  host::Profiles profiles = tools_.savedProfiles();
  const auto found = other_.path.empty() ? profiles.changesOfLoad(trigger_)
                                         : profiles.differences(trigger_, other_);
  differences_.clear();
  alike_ = 0;
  failed_ = !found;
  if (!found) tools_.report(found.error());
  if (found)
    for (const host::SeenDifference& each : host::seenDifferences(tools_.settings(), *found)) {
      if (each.seen)
        differences_ << shown(each);
      else
        ++alike_;
    }
  emit changed();
}

void ProfileTool::compareWith(const QString& path) {
  const auto other = host::profileNamed(path.toStdString());
  other_ = !path.isEmpty() && other ? *other : host::Trigger{};
  compare();
}

bool ProfileTool::load() {
  return tools_.change("load " + trigger_.title,
                       [&] { return tools_.savedProfiles().load(trigger_); });
}

bool ProfileTool::remove() {
  return tools_.change("delete " + trigger_.title, [&] {
    return tools_.savedProfiles().remove(trigger_, host::Profiles::Folders::Refuse);
  });
}

bool ProfileTool::describe(const QString& description) {
  return tools_.change("describe " + trigger_.title, [&] {
    return tools_.savedProfiles().describe(trigger_, description.toStdString());
  });
}

bool ProfileTool::look() {
  const auto profile = tools_.savedProfiles().read(trigger_);
  const bool isGone = !profile && profile.error().reason == host::Failure::NotFound;
  return !isGone && show(profile);
}

bool ProfileTool::exportTo(const QString& file, bool replace) {
  const std::string path = file.toStdString();
  const auto bytes = tools_.savedProfiles().exportXml(trigger_);
  if (!bytes) {
    tools_.report(bytes.error());
    return false;
  }
  const auto existing = replace ? host::Existing::Overwrite : host::Existing::Keep;
  const auto written = host::writeUserFile(path, *bytes, existing);
  const bool isThere = written || written.error().kind == platform::ErrorKind::Unconfirmed;
  if (!written && written.error().code == EEXIST)
    emit replaceWanted(file);
  else if (!written)
    tools_.report(host::failureOf(host::Source::Request, written.error()));
  if (isThere) emit exported(file);
  return isThere;
}

}  // namespace window
