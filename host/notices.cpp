#include "host/notices.h"

#include <algorithm>

#include "host/battery_log.h"
#include "prefs/core/names.h"
#include "prefs/keys.h"
#include "prefs/profiles/saved_profiles.h"

namespace host {
namespace {

constexpr std::size_t kMostNames = 3;

std::string realPath(const preferences::Environment& environment, std::string_view path) {
  return onMachine({.source = Source::Settings, .file = std::string(path)}, environment.root).file;
}

// "profile_20.qvx, profile_30.qvx", "profile_1.qvx, profile_2.qvx, profile_3.qvx and 5 more".
std::string namesOf(const std::vector<platform::Error>& skipped) {
  std::string names;
  for (std::size_t i = 0; i < std::min(skipped.size(), kMostNames); ++i)
    names += (i == 0 ? "" : ", ") + skipped[i].path.substr(skipped[i].path.rfind('/') + 1);
  const std::size_t more = skipped.size() - std::min(skipped.size(), kMostNames);
  return more == 0 ? names : names + " and " + std::to_string(more) + " more";
}

std::string unreadableProfiles(const preferences::Environment& environment) {
  const auto profiles = prefs::profileFiles(environment);
  const std::string folder = realPath(environment, prefs::kDocuments);
  if (!profiles.failure.empty()) return "The profiles can't be read: " + folder;
  if (profiles.skipped.empty()) return {};
  return "No profile can be read from " + namesOf(profiles.skipped) + " in " + folder;
}

}  // namespace

std::string unreadableIn(const preferences::PSSpecifier& row,
                         const preferences::Environment& environment) {
  const std::string& id = row.identifier();
  if (id == prefs::kSavedProfilesRow || id == std::string_view(prefs::key::profile))
    return unreadableProfiles(environment);
  if (id != prefs::kBatteryLogRow || readBatteryLog(environment)) return {};
  return "The battery log can't be read: " + realPath(environment, prefs::kBatteryLog);
}

Problem changesNotAnnounced() {
  return {.source = Source::Bus,
          .severity = Severity::Warning,
          .words =
              "Changes are stored, but not announced: this session has no message bus. "
              "What is running sees them when it starts anew."};
}

}  // namespace host
