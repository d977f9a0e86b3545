#include "host/profiles.h"

#include <algorithm>
#include <cerrno>

#include "host/history.h"
#include "host/plain_words.h"
#include "host/profile_import.h"
#include "platform/archive/keyed_archive.h"
#include "platform/foundation/text.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"
#include "prefs/keys.h"
#include "prefs/profiles/ProfilesListController.h"
#include "prefs/profiles/profile_settings.h"
#include "prefs/profiles/saved_profiles.h"
#include "prefs/profiles/triggers.h"

namespace host {
namespace {

using platform::Done;

// The message without the path that it begins with, if it does.
Failure failure(Failure::Reason reason, const std::string& path, std::string message) {
  if (message.starts_with(path + ": ")) message.erase(0, path.size() + 2);
  return {reason, {.source = Source::Profiles, .path = path, .words = std::move(message)}};
}

Failure failed(std::string message) {
  return failure(Failure::Failed, "", std::move(message));
}

Failure noProfile(const Trigger& trigger) {
  const std::string name = trigger.title.empty() ? "" : "for \"" + trigger.title + "\", ";
  return failure(Failure::NotFound, "",
                 "no profile " + name + trigger.path + "; quorvantis profile list lists them");
}

Failure exists(const Trigger& trigger) {
  return failure(Failure::Exists, trigger.path, "exists");
}

Failure failureOf(const Trigger& trigger, const platform::Error& error) {
  if (error.code == ENOENT) return noProfile(trigger);
  Failure failed = failure(Failure::Failed, trigger.path, error.message());
  failed.problem.plain = plainWords(Source::Profiles, error);
  failed.problem.file = trigger.path;
  return failed;
}

// About the settings, or a profile that was being written.
Failure notDone(const std::string& what, const platform::Error& error) {
  return failureOf(Source::Profiles, error, what);
}

Attempt<Done> outcomeOf(const platform::Result<Done>& written, const Trigger& trigger) {
  if (written) return Done{};
  if (written.error().kind == platform::ErrorKind::Unconfirmed)
    return host::failureOf(Source::Profiles, written.error());
  return failure(Failure::Failed, trigger.path, written.error().message());
}

Failure halfDone(std::string message) {
  return failure(Failure::PartlyDone, "", std::move(message));
}

// What is reported as not done must not be done later.
class FailedSetsDropped {
 public:
  explicit FailedSetsDropped(foundation::Preferences& preferences)
      : preferences_(preferences), before_(preferences.setFailedSets(Policy::Drop)) {}
  ~FailedSetsDropped() { preferences_.setFailedSets(before_); }
  FailedSetsDropped(const FailedSetsDropped&) = delete;
  FailedSetsDropped& operator=(const FailedSetsDropped&) = delete;

 private:
  using Policy = foundation::Preferences::FailedSets;
  foundation::Preferences& preferences_;
  Policy before_;
};

SavedProfile savedProfile(const prefs::ProfileFile& file) {
  const auto orDefault = [](const plist::Value& value, std::string_view key) {
    return value.isNothing() ? prefs::profileDefault(key).value_or(plist::Value()) : value;
  };
  SavedProfile saved;
  saved.path = file.path;
  const plist::Value trigger = orDefault(file.trigger, prefs::kProfilePercentage);
  if (!trigger.isNothing()) saved.trigger = foundation::descriptionOf(trigger);
  saved.title = prefs::triggerTitle(foundation::descriptionOf(trigger));
  const plist::Value description = orDefault(file.description, prefs::kProfileDescription);
  if (description.text()) saved.description = *description.text();
  saved.active = foundation::boolValue(orDefault(file.active, prefs::key::profileactive));
  return saved;
}

}  // namespace

std::string SavedProfile::longTitle() const {
  return description.empty() ? title : title + " - " + description;
}

SavedProfile Profiles::saved(const std::string& path, const plist::Dictionary& profile) {
  const auto valueOf = [&](std::string_view key) {
    const plist::Value* value = profile.find(key);
    return value ? *value : plist::Value();
  };
  return savedProfile({path, valueOf(prefs::kProfilePercentage),
                       valueOf(prefs::kProfileDescription), valueOf(prefs::key::profileactive)});
}

Attempt<Profiles::Listing> Profiles::listing() {
  auto saved = prefs::profileFiles(environment_);
  if (!saved.failure.empty()) return failed(saved.failure);
  Listing listing{{}, std::move(saved.skipped)};
  for (const prefs::ProfileFile& file : saved.files) listing.profiles.push_back(savedProfile(file));
  return listing;
}

Attempt<std::vector<SavedProfile>> Profiles::list() {
  auto found = listing();
  if (!found) return found.error();
  if (environment_.problemHandler)
    for (const platform::Error& error : found->skipped) environment_.problemHandler(error);
  return std::move(found->profiles);
}

Attempt<plist::Dictionary> Profiles::read(const Trigger& trigger) {
  auto profile = prefs::readProfile(environment_, trigger.path);
  if (!profile) return failureOf(trigger, profile.error());
  return std::move(*profile);
}

Attempt<Done> Profiles::checkFree(const Trigger& trigger, Existing existing) const {
  if (existing == Existing::Keep && environment_.root.hasEntry(trigger.path))
    return exists(trigger);
  return Done{};
}

bool Profiles::restore(const Trigger& trigger,
                       const platform::Result<std::vector<std::uint8_t>>& before) {
  if (!before && before.error().code != ENOENT) return false;
  const auto restored = putBytes(environment_.root, trigger.path,
                                 before ? FileChange::Bytes(*before) : FileChange::Bytes());
  return restored || isUnconfirmed(restored);
}

bool Profiles::takeBack(const plist::Dictionary& profile, const plist::Dictionary& before) {
  const auto changes =
      foundation::changesBetween(prefs::domainAfterFirstChange(profile, before), before);
  return static_cast<bool>(environment_.preferences.exchange(changes, prefs::kDomain));
}

platform::Result<Done> Profiles::checkWritable() {
  return environment_.preferences.setMultiple({}, {}, prefs::kDomain);
}

Attempt<Done> Profiles::checkReadable(const std::string& what) {
  const auto readable = prefs::readableSettings(environment_.preferences);
  if (!readable) return notDone(what, readable.error());
  return Done{};
}

Attempt<Done> Profiles::finish() {
  const auto finished = environment_.preferences.finish();
  if (!finished) return host::failureOf(Source::Settings, finished.error());
  return Done{};
}

Attempt<Done> Profiles::save(const Trigger& trigger, Existing existing) {
  if (const auto free = checkFree(trigger, existing); !free) return free;
  const FailedSetsDropped dropped(environment_.preferences);
  // The file is written before the domain is, and what it replaces can't always be brought back.
  if (const auto writable = checkWritable(); !writable)
    return notDone("not saved", writable.error());

  const auto before = environment_.root.read(trigger.path, foundation::Links::Refuse);
  const auto saved = prefs::saveProfile(environment_, trigger.profileID, trigger.path, existing,
                                        prefs::AfterFailure::Stop);
  switch (saved.outcome) {
    case prefs::SaveOutcome::Saved:
    case prefs::SaveOutcome::Overwritten:
      if (saved.failure) return notDone("", *saved.failure);
      return finish();
    case prefs::SaveOutcome::Exists:
      return exists(trigger);
    case prefs::SaveOutcome::NotRemembered:
      if (restore(trigger, before)) return notDone("not saved", *saved.failure);
      return halfDone("not remembered: " + problemOf(Source::Settings, *saved.failure).message() +
                      "; the new profile stays at " + trigger.path);
    case prefs::SaveOutcome::Unreadable:
    case prefs::SaveOutcome::NotWritten:
      return notDone("not saved", *saved.failure);
  }
  return Done{};
}

Attempt<Done> Profiles::load(const Trigger& trigger) {
  foundation::Preferences& preferences = environment_.preferences;
  const FailedSetsDropped dropped(preferences);
  const auto profile = read(trigger);
  if (!profile) return profile.error();
  if (const auto writable = checkWritable(); !writable)
    return notDone("not loaded", writable.error());
  if (const auto readable = preferences.refresh(prefs::kDomain); !readable)
    return notDone("not loaded", readable.error());
  const plist::Dictionary before = prefs::wholeDomainRead(preferences);
  const auto page = std::make_shared<prefs::ProfilesListController>(environment_);
  page->viewDidLoad();
  (void)preferences.takeFailedSet();
  const auto loaded = page->loadProfileAtPath(trigger.path, prefs::AfterFailure::Stop);
  if (!loaded) return failureOf(trigger, loaded.error());
  if (loaded->unstored) return notDone("not loaded", *loaded->unstored);
  if (const auto failed = preferences.takeFailedSet()) {
    if (!takeBack(*profile, before))
      return halfDone("loaded, but Profile Active isn't stored: " +
                      problemOf(Source::Settings, *failed).message());
    environment_.darwinCenter.post(prefs::kPrefsNotification);
    return notDone("not loaded", *failed);
  }
  return finish();
}

Attempt<Done> Profiles::remove(const Trigger& trigger, Folders folders) {
  if (const auto readable = checkReadable("not deleted"); !readable) return readable;
  const auto removed = prefs::deleteProfile(environment_, trigger.path, folders);
  if (removed) return Done{};
  const int code = removed.error().code;
  if (removed.error().kind == platform::ErrorKind::Unconfirmed)
    return failure(Failure::Unconfirmed, trigger.path,
                   "deleted, but not confirmed on disk: " + removed.error().message());
  if (code == ENOENT) return noProfile(trigger);
  return failure(code == EISDIR ? Failure::IsFolder : Failure::Failed, trigger.path,
                 removed.error().message());
}

Attempt<Done> Profiles::copy(const Trigger& from, const Trigger& to, Existing existing) {
  const auto profile = read(from);
  if (!profile) return profile.error();
  if (const auto free = checkFree(to, existing); !free) return free;
  plist::Dictionary copy = *plist::storable(*profile)->dictionary();
  copy.set(prefs::kProfilePercentage, to.profileID);
  return write(to, copy, existing, preferences::ProfileStep::Save);
}

Attempt<Done> Profiles::describe(const Trigger& trigger, const std::string& description) {
  const auto before = environment_.root.read(trigger.path);
  const auto profile = read(trigger);
  if (!profile) return profile.error();
  if (const auto readable = checkReadable("not saved"); !readable) return readable;
  plist::Dictionary described = *plist::storable(*profile)->dictionary();
  described.set(prefs::kProfileDescription, description);
  const auto bytes = archive::archive(described, archive::Mutability::Mutable);
  if (!bytes) return failure(Failure::Failed, trigger.path, bytes.error().message());
  // The guard takes a snapshot of all profiles, which may take long.
  const auto guarded = environment_.guard({preferences::ProfileStep::Save, trigger.path, *bytes});
  const auto now = environment_.root.read(trigger.path);
  if (!before || !now || *before != *now)
    return failure(Failure::Failed, trigger.path, "another program has changed it meanwhile");
  return outcomeOf(environment_.root.writeDurably(trigger.path, *bytes), trigger);
}

Attempt<Done> Profiles::write(const Trigger& trigger, const plist::Dictionary& profile,
                              Existing existing, preferences::ProfileStep::What what) {
  if (const auto readable = checkReadable("not saved"); !readable) return readable;
  const auto written = prefs::writeProfile(environment_, trigger.path, profile, existing, what);
  if (existing == Existing::Keep && !written && written.error().code == EEXIST)
    return exists(trigger);
  return outcomeOf(written, trigger);
}

Attempt<std::vector<prefs::Difference>> Profiles::changesOfLoad(const Trigger& trigger) {
  const auto profile = read(trigger);
  if (!profile) return profile.error();
  if (const auto readable = environment_.preferences.refresh(prefs::kDomain); !readable)
    return host::failureOf(Source::Settings, readable.error());
  const plist::Dictionary domain = prefs::wholeDomainRead(environment_.preferences);
  return prefs::differences(domain, prefs::domainAfterLoad(*profile, domain));
}

Attempt<std::vector<prefs::Difference>> Profiles::differences(const Trigger& one,
                                                              const Trigger& other) {
  const auto from = read(one);
  if (!from) return from.error();
  const auto to = read(other);
  if (!to) return to.error();
  return prefs::differences(*from, *to);
}

Attempt<std::vector<std::uint8_t>> Profiles::exportXml(const Trigger& trigger) {
  const auto profile = read(trigger);
  if (!profile) return profile.error();
  auto xml = environment_.xml.write(*plist::storable(*profile));
  if (!xml) return failed(xml.error().message());
  return std::move(*xml);
}

Attempt<Trigger> Profiles::import(plist::Bytes bytes, Existing existing) {
  const auto imported = readImport(bytes, environment_.xml);
  if (!imported) return imported.error();
  const auto& [trigger, values] = *imported;
  if (const auto free = checkFree(trigger, existing); !free) return free.error();
  const auto written = write(trigger, values, existing, preferences::ProfileStep::Import);
  if (!written) return written.error();
  return trigger;
}

}  // namespace host
