#include "prefs/profiles/saved_profiles.h"

#include <algorithm>
#include <cerrno>
#include <future>
#include <iterator>
#include <span>

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

constexpr std::size_t kMostNames = 3;

// "profile_20.qvx, profile_30.qvx", "profile_1.qvx, profile_2.qvx, profile_3.qvx and 5 more".
std::string namesOf(const std::vector<platform::Error>& skipped) {
  std::string names;
  for (std::size_t i = 0; i < std::min(skipped.size(), kMostNames); ++i)
    names += (i == 0 ? "" : ", ") + skipped[i].path.substr(skipped[i].path.rfind('/') + 1);
  const std::size_t more = skipped.size() - std::min(skipped.size(), kMostNames);
  return more == 0 ? names : names + " and " + std::to_string(more) + " more";
}

// Each takes a few microseconds, so that a second thread is worth its cost for thousands only.
constexpr std::size_t kManyFiles = 2000;

ProfileFiles readFiles(const foundation::Directory& folder, std::span<const std::string> names,
                       platform::XmlPropertyLists& xml) {
  ProfileFiles profiles;
  std::vector<std::uint8_t> buffer;
  for (const std::string& name : names) {
    std::string path = std::string(kDocuments) + name;
    const auto bytes = folder.read(name, buffer);
    auto profile = bytes ? lookUpInArchive(*bytes, kKeys, xml) : bytes.error();
    if (!profile) {
      profiles.skipped.push_back(profile.error());
      profiles.skipped.back().path = std::move(path);
      continue;
    }
    auto& values = profile->values;
    profiles.files.push_back(
        {std::move(path), std::move(values[0]), std::move(values[1]), std::move(values[2])});
  }
  return profiles;
}

ProfileFiles readInTwoThreads(const foundation::Directory& folder,
                              std::span<const std::string> names, platform::XmlPropertyLists& xml) {
  const std::size_t half = names.size() / 2;
  auto second = std::async(std::launch::async | std::launch::deferred,
                           [&] { return readFiles(folder, names.subspan(half), xml); });
  ProfileFiles profiles = readFiles(folder, names.first(half), xml);
  ProfileFiles others = second.get();
  std::ranges::move(others.files, std::back_inserter(profiles.files));
  std::ranges::move(others.skipped, std::back_inserter(profiles.skipped));
  return profiles;
}

}  // namespace

platform::Error errorOfSkipped(const std::vector<platform::Error>& skipped) {
  platform::Error reason = skipped.front();
  if (skipped.size() == 1) reason.path.clear();
  return platform::Error{.path = std::string(kDocuments),
                         .what = std::string(kNoProfileIn) + namesOf(skipped)}
      .because(std::move(reason));
}

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
  const auto folder = environment.root.openDirectory(kDocuments);
  auto names = folder ? folder->names() : folder.error();
  if (!names) return {.failure = names.error().code == ENOENT ? "" : names.error().message()};
  std::erase_if(*names,
                [](auto& name) { return foundation::pathExtension(name) != kProfileExtension; });
  platform::sortLocalized(*names, environment.collator);
  return names->size() < kManyFiles ? readFiles(*folder, *names, environment.xml)
                                    : readInTwoThreads(*folder, *names, environment.xml);
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
