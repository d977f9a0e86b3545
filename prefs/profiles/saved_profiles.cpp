#include "prefs/profiles/saved_profiles.h"

#include <algorithm>
#include <cerrno>

#include "platform/foundation/text.h"
#include "platform/localized_sort.h"
#include "prefs/core/archive_file.h"
#include "prefs/core/names.h"
#include "prefs/keys.h"
#include "prefs/profiles/triggers.h"

namespace prefs {
namespace {

using platform::Result;

const std::string_view kKeys[] = {kProfilePercentage, kProfileDescription, key::profileactive};

std::string titleOf(const ProfileFile& profile, TitleForm form) {
  std::string title = triggerTitle(foundation::descriptionOf(profile.trigger));
  const std::string* description = profile.description.text();
  if (form == TitleForm::WithDescription && description && !description->empty())
    title += " - " + *description;
  return title;
}

Result<archive::Lookup> readProfile(foundation::Directory& folder, const std::string& name,
                                    platform::XmlPropertyLists& xml) {
  auto bytes = folder.read(name);
  if (!bytes) return bytes.error();
  return lookUpInArchive(*bytes, kKeys, xml);
}

}  // namespace

void sortTitles(std::vector<std::string>& titles, platform::Collator& collator) {
  platform::sortLocalized(titles, collator);
  std::vector<std::string> events;
  for (const std::string& title : titles)
    if (eventOfTitle(title)) events.push_back(title);
  std::ranges::stable_sort(events, {}, [](const auto& title) { return *eventOfTitle(title); });
  auto next = events.begin();
  for (std::string& title : titles)
    if (eventOfTitle(title)) title = std::move(*next++);
}

ProfileFiles profileFiles(const preferences::Environment& environment) {
  ProfileFiles profiles;
  auto folder = environment.root.openDirectory(kDocuments);
  if (!folder) {
    if (folder.error().code != ENOENT) profiles.failure = folder.error().message();
    return profiles;
  }
  auto names = folder->names();
  if (!names) {
    profiles.failure = names.error().message();
    return profiles;
  }
  for (const std::string& name : *names) {
    if (foundation::pathExtension(name) != kProfileExtension) continue;
    std::string path = std::string(kDocuments) + name;
    auto profile = readProfile(*folder, name, environment.xml);
    if (!profile) {
      profiles.skipped.push_back(profile.error());
      profiles.skipped.back().path = std::move(path);
      continue;
    }
    auto& values = profile->values;
    profiles.files.push_back(
        {std::move(path), std::move(values[0]), std::move(values[1]), std::move(values[2])});
  }
  platform::sortLocalized(profiles.files, environment.collator, &ProfileFile::path);
  platform::sortLocalized(profiles.skipped, environment.collator, &platform::Error::path);
  return profiles;
}

SavedProfiles savedProfiles(const preferences::Environment& environment, TitleForm form) {
  SavedProfiles profiles;
  ProfileFiles found = profileFiles(environment);
  profiles.skipped = std::move(found.skipped);
  for (ProfileFile& file : found.files) {
    profiles.titles.push_back(titleOf(file, form));
    profiles.paths.push_back(std::move(file.path));
  }
  sortTitles(profiles.titles, environment.collator);
  return profiles;
}

plist::Array asArray(const std::vector<std::string>& texts) {
  return {texts.begin(), texts.end()};
}

}  // namespace prefs
