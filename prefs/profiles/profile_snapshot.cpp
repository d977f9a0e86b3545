#include "prefs/profiles/profile_snapshot.h"

#include <cerrno>

#include "platform/foundation/text.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"
#include "prefs/keys.h"
#include "prefs/profiles/profile_settings.h"

namespace prefs {
namespace {

using platform::Error;
using platform::Result;

std::optional<plist::Value> valueIn(const plist::Dictionary& values, std::string_view key) {
  const plist::Value* value = values.find(key);
  return value ? plist::storable(*value) : std::nullopt;
}

std::optional<plist::Value> valueOrDefault(const plist::Dictionary& values, std::string_view key) {
  auto value = valueIn(values, key);
  return value ? value : profileDefault(key);
}

plist::Dictionary profileOf(const plist::Dictionary& domain, const std::string& profileID) {
  plist::Dictionary profile{{std::string(kProfilePercentage), profileID}};
  for (std::string_view key : profileKeys())
    if (auto value = valueOrDefault(domain, key)) profile.set(key, std::move(*value));
  return profile;
}

void setOrRemove(std::optional<plist::Value> value, std::string_view key,
                 plist::Dictionary& values) {
  if (value)
    values.set(key, std::move(*value));
  else
    values.remove(key);
}

void overlayProfile(const plist::Dictionary& profile, plist::Dictionary& domain) {
  setOrRemove(valueIn(profile, kProfilePercentage), kProfilePercentage, domain);
  for (std::string_view key : profileKeys()) setOrRemove(valueOrDefault(profile, key), key, domain);
}

bool isActive(const plist::Dictionary& domain) {
  const plist::Value* active = domain.find(key::profileactive);
  return active && foundation::boolValue(*active);
}

}  // namespace

SaveResult saveProfile(const preferences::Environment& environment, const std::string& profileID,
                       const std::string& path, Existing existing, AfterFailure afterFailure) {
  const bool exists = environment.root.hasEntry(path);
  if (exists && existing == Existing::Keep) return {SaveOutcome::Exists};

  // Defaults in place of settings that can't be read are not a profile of them.
  if (const auto readable = readableSettings(environment.preferences); !readable)
    return {SaveOutcome::Unreadable, readable.error()};
  if (!environment.root.exists(kDocuments)) (void)environment.root.createDirectory(kDocuments);
  plist::Dictionary domain = wholeDomainRead(environment.preferences);
  std::optional<Error> failure;
  const auto written = writeProfile(environment, path, profileOf(domain, profileID), existing);
  // By another program, meanwhile.
  if (!written && existing == Existing::Keep && written.error().code == EEXIST)
    return {SaveOutcome::Exists};
  if (!written) failure = written.error();
  const bool inPlace = !failure || failure->kind == platform::ErrorKind::Unconfirmed;
  if (!inPlace && afterFailure == AfterFailure::Stop) return {SaveOutcome::NotWritten, failure};

  domain.set(kProfilePercentage, profileID);
  const auto remembered = wholeDomainWrite(environment.preferences, domain);
  if (!inPlace) return {SaveOutcome::NotWritten, failure};
  if (!remembered) return {SaveOutcome::NotRemembered, remembered.error()};
  return {exists ? SaveOutcome::Overwritten : SaveOutcome::Saved, failure};
}

Result<LoadedProfile> loadProfile(const preferences::Environment& environment,
                                  const std::string& path) {
  plist::Dictionary domain = wholeDomainRead(environment.preferences);
  const auto profile = readProfile(environment, path);
  if (!profile && profile.error().code != ENOENT) return profile.error();
  overlayProfile(profile ? *profile : plist::Dictionary(), domain);
  const auto stored = wholeDomainWrite(environment.preferences, domain);
  LoadedProfile loaded{isActive(domain)};
  if (!profile) loaded.missing = profile.error().message();
  if (!stored) loaded.unstored = stored.error();
  return loaded;
}

std::vector<Difference> differences(const plist::Dictionary& from, const plist::Dictionary& to) {
  std::vector<Difference> found;
  const auto compare = [&](const std::string& key) {
    auto before = valueIn(from, key), after = valueIn(to, key);
    const bool same = before && after ? plist::equalByValue(*before, *after) : before == after;
    if (!same) found.push_back({key, std::move(before), std::move(after)});
  };
  for (const auto& entry : from) compare(entry.key);
  for (const auto& entry : to)
    if (!from.find(entry.key)) compare(entry.key);
  return found;
}

plist::Dictionary domainAfterFirstChange(const plist::Dictionary& profile,
                                         plist::Dictionary domain) {
  plist::Dictionary snapshot = domain;
  overlayProfile(profile, snapshot);
  // Nothing is ever removed from the store.
  for (const auto& [key, value] : snapshot) domain.set(key, value);
  return domain;
}

plist::Dictionary domainAfterLoad(const plist::Dictionary& profile, plist::Dictionary domain) {
  domain = domainAfterFirstChange(profile, std::move(domain));
  domain.set(key::profileactive, isActive(domain) ? 1.0f : 0.0f);
  return domain;
}

}  // namespace prefs
