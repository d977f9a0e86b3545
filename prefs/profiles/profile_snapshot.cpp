#include "prefs/profiles/profile_snapshot.h"

#include "platform/foundation/text.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"
#include "prefs/profiles/profile_settings.h"

namespace prefs {
namespace {

using platform::Result;

std::optional<plist::Value> valueIn(const plist::Dictionary& values, std::string_view key) {
  const plist::Value* value = values.find(key);
  return value && !value->isNothing() ? std::optional(*value) : std::nullopt;
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

void put(std::optional<plist::Value> value, std::string_view key, plist::Dictionary& values) {
  if (value)
    values.set(key, std::move(*value));
  else
    values.remove(key);
}

void lay(const plist::Dictionary& profile, plist::Dictionary& domain) {
  put(valueIn(profile, kProfilePercentage), kProfilePercentage, domain);
  for (std::string_view key : profileKeys()) put(valueOrDefault(profile, key), key, domain);
}

bool isActive(const plist::Dictionary& domain) {
  const plist::Value* active = domain.find(kProfileActive);
  return active && foundation::boolValue(*active);
}

}  // namespace

SaveResult saveProfile(const preferences::Environment& environment, const std::string& profileID,
                       const std::string& path, Existing existing, AfterFailure afterFailure) {
  if (!environment.root.exists(kDocuments)) (void)environment.root.createDirectory(kDocuments);
  const bool exists = environment.root.hasEntry(path);
  if (exists && existing == Existing::Keep) return {SaveOutcome::Exists};

  plist::Dictionary domain = wholeDomainRead(environment.preferences);
  SaveResult result{exists ? SaveOutcome::Overwritten : SaveOutcome::Saved};
  const auto written = writeProfile(environment, path, profileOf(domain, profileID));
  if (!written) result.failure = written.error();
  if (!written && afterFailure == AfterFailure::Stop) return result;

  domain.set(kProfilePercentage, profileID);
  wholeDomainWrite(environment.preferences, domain);
  return result;
}

Result<LoadedProfile, ProfileError> loadProfile(const preferences::Environment& environment,
                                                const std::string& path) {
  plist::Dictionary domain = wholeDomainRead(environment.preferences);
  const auto profile = readProfile(environment, path);
  if (!profile && !profile.error().missing) return profile.error();
  lay(profile ? *profile : plist::Dictionary(), domain);
  wholeDomainWrite(environment.preferences, domain);
  return LoadedProfile{isActive(domain), profile ? "" : profile.error().message};
}

std::vector<Difference> differences(const plist::Dictionary& from, const plist::Dictionary& to) {
  std::vector<Difference> found;
  for (const auto& [key, value] : from) {
    auto other = valueIn(to, key);
    if (!other || !plist::equalByValue(value, *other)) found.push_back({key, value, other});
  }
  for (const auto& [key, value] : to)
    if (!from.find(key)) found.push_back({key, std::nullopt, value});
  return found;
}

plist::Dictionary domainAfterLoad(const plist::Dictionary& profile, plist::Dictionary domain) {
  plist::Dictionary laid = domain;
  lay(profile, laid);
  laid.set(kProfileActive, isActive(laid) ? 1.0f : 0.0f);
  // Nothing is ever removed from the store.
  for (const auto& [key, value] : laid) domain.set(key, value);
  return domain;
}

}  // namespace prefs
