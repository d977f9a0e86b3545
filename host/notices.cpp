#include "host/notices.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

#include "host/battery_log.h"
#include "host/text.h"
#include "prefs/core/names.h"
#include "prefs/keys.h"
#include "prefs/profiles/saved_profiles.h"

namespace host {
namespace {

std::string realPath(const foundation::DeviceRoot& root, std::string_view path) {
  return onMachine({.source = Source::Settings, .file = std::string(path)}, root).file;
}

std::string profilesNotice(const preferences::Environment& environment) {
  const auto profiles = prefs::profileFiles(environment);
  const std::string folder = realPath(environment.root, prefs::kDocuments);
  if (!profiles.failure.empty()) return "The profiles can't be read: " + folder;
  if (profiles.skipped.empty()) return {};
  return capital(prefs::errorOfSkipped(profiles.skipped).what) + " in " + folder;
}

// What would fill a list, by the row that leads to it.
constexpr std::pair<std::string_view, std::string_view> kWaysToFill[] = {
    {prefs::kSavedProfilesRow, "The profile manager, below Manage Profiles, saves profiles."},
    {prefs::key::profile, "The profile manager, below Manage Profiles, saves profiles."},
    {prefs::kBatteryLogRow, "Entries are written while Keep Battery Log, below Extras, is on."},
    {prefs::key::adressbook,
     "Contacts are read from vCard files (.vcf) in the folder of contacts, and from the desktop's "
     "address book while that is running."}};

// What the window says as long as a list is read, by the row that leads to it.
constexpr std::pair<std::string_view, std::string_view> kReading[] = {
    {prefs::kSavedProfilesRow, "Reading profiles…"},
    {prefs::key::profile, "Reading profiles…"},
    {prefs::kBatteryLogRow, "Reading the battery log…"},
    {prefs::key::playsound, "Reading sounds…"},
    {prefs::key::adressbook, "Reading contacts…"}};

std::string wordsFor(std::span<const std::pair<std::string_view, std::string_view>> table,
                     const preferences::PSSpecifier& row) {
  const auto found =
      std::ranges::find(table, row.identifier(), [](auto& each) { return each.first; });
  return found == table.end() ? std::string() : std::string(found->second);
}

}  // namespace

std::optional<Problem> unreadableProfiles(const std::vector<platform::Error>& skipped) {
  if (skipped.empty()) return std::nullopt;
  return problemOf(Source::Profiles, prefs::errorOfSkipped(skipped));
}

std::string unreadableIn(const preferences::PSSpecifier& row,
                         const preferences::Environment& environment) {
  const std::string& id = row.identifier();
  if (id == prefs::kSavedProfilesRow || id == std::string_view(prefs::key::profile))
    return profilesNotice(environment);
  if (id != prefs::kBatteryLogRow || readBatteryLog(environment)) return {};
  return "The battery log can't be read: " + realPath(environment.root, prefs::kBatteryLog);
}

std::string wayToFill(const preferences::PSSpecifier& row) {
  return wordsFor(kWaysToFill, row);
}

std::string readingWords(const preferences::PSSpecifier& row) {
  return wordsFor(kReading, row);
}

Problem changesNotAnnounced() {
  return {.source = Source::Bus,
          .severity = Severity::Warning,
          .words =
              "Changes are stored, but not announced: this session has no message bus. "
              "What is running sees them when it starts anew."};
}

}  // namespace host
