#include "host/recovery.h"

#include <algorithm>
#include <cerrno>

#include "host/change_making.h"
#include "prefs/core/archive_file.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"

namespace host {
namespace {

using platform::Done;
using platform::Error;

Failure failed(const Error& error) {
  return failureOf(Source::Backups, error);
}

Recovery::Entry entryOf(int number, const Snapshot& snapshot) {
  return {number, snapshot.time, snapshot.before, snapshot.profiles.has_value()};
}

std::vector<FileChange> fileDifferences(const Files& from, const Files& to) {
  std::vector<FileChange> changes;
  const std::string folder(prefs::kDocuments);
  for (const auto& [name, bytes] : from) {
    const auto now = to.find(name);
    if (now == to.end()) changes.push_back({folder + name, bytes, std::nullopt});
    if (now != to.end() && now->second != bytes)
      changes.push_back({folder + name, bytes, now->second});
  }
  for (const auto& [name, bytes] : to)
    if (!from.contains(name)) changes.push_back({folder + name, std::nullopt, bytes});
  return changes;
}

}  // namespace

Recovery::State Recovery::state() {
  State state;
  if (const auto read = backups_.store().refresh(prefs::kDomain); !read)
    state.damage = read.error();
  state.settings = prefs::wholeDomainRead(backups_.store()).size();
  const auto compare = [&] {
    state.seen = backups_.lastSeen().read();
    state.changedOutside = state.seen && state.seen->checksum != backups_.domainChecksum();
  };
  compare();
  // Another process of this program may just have changed the file, and not noted that yet.
  if (state.changedOutside && environment_.root.hasEntry(foundation::domainPath(prefs::kDomain)))
    if (const auto locked = backups_.store().lock(prefs::kDomain)) compare();
  state.profilesOutside = backups_.seenProfiles().changedOutside(environment_.root);
  return state;
}

Attempt<Recovery::List> Recovery::snapshots() {
  const auto numbers = backups_.snapshots().numbers();
  if (!numbers) return failed(numbers.error());
  List list;
  for (const int number : *numbers) {
    const auto snapshot = backups_.snapshots().read(number);
    if (snapshot)
      list.entries.push_back(entryOf(number, *snapshot));
    else if (snapshot.error().code != ENOENT)
      list.unreadable.push_back(problemOf(Source::Backups, snapshot.error()));
  }
  return list;
}

Attempt<std::optional<Recovery::Entry>> Recovery::lastGood() {
  const auto good = newestGood();
  if (!good) return good.error();
  return *good ? std::optional((*good)->entry) : std::nullopt;
}

Attempt<std::optional<Recovery::Good>> Recovery::newestGood() {
  const auto numbers = backups_.snapshots().numbers();
  if (!numbers) return failed(numbers.error());
  for (auto number = numbers->rbegin(); number != numbers->rend(); ++number) {
    const auto snapshot = backups_.snapshots().read(*number);
    if (!snapshot && !isLost(snapshot.error()))
      return failure(
          Source::Backups, Failure::Failed,
          snapshot.error().message() + "; once this file is gone, an earlier one can be restored");
    if (!snapshot) continue;
    if (auto settings = settingsIn(*snapshot))
      return std::optional(Good{entryOf(*number, *snapshot), std::move(*settings)});
  }
  return std::optional<Good>();
}

Attempt<Snapshot> Recovery::read(int number) {
  const auto numbers = backups_.snapshots().numbers();
  if (!numbers) return failed(numbers.error());
  if (std::ranges::find(*numbers, number) == numbers->end())
    return failure(
        Source::Backups, Failure::NotFound,
        "no snapshot " + std::to_string(number) + "; quorvantis snapshot list lists them");
  auto snapshot = backups_.snapshots().read(number);
  if (!snapshot) return failed(snapshot.error());
  return std::move(*snapshot);
}

Attempt<plist::Dictionary> Recovery::settingsIn(const Snapshot& snapshot) {
  if (!snapshot.domain) return plist::Dictionary();
  auto settings = foundation::decodeDomain(*snapshot.domain, prefs::readerOf(environment_.xml));
  if (!settings) return failed(settings.error());
  return std::move(*settings);
}

Attempt<plist::Dictionary> Recovery::settingsOf(int number) {
  const auto snapshot = read(number);
  if (!snapshot) return snapshot.error();
  return settingsIn(*snapshot);
}

Attempt<Done> Recovery::damaged() {
  if (backups_.store().damage(prefs::kDomain)) return Done{};
  return failure(
      Source::Backups, Failure::Refused,
      "the settings can be read, there is nothing to repair; quorvantis snapshot restore "
      "N returns to earlier ones, quorvantis reset --all to the defaults");
}

Attempt<Done> Recovery::replace(const plist::Dictionary& settings) {
  const auto replaced = backups_.store().replaceDomain(settings, prefs::kDomain);
  if (replaced || replaced.error().kind == platform::ErrorKind::Unconfirmed)
    environment_.darwinCenter.post(prefs::kPrefsNotification);
  if (!replaced) return failed(replaced.error());
  return Done{};
}

Attempt<Recovery::Entry> Recovery::restoreLast() {
  if (const auto needed = damaged(); !needed) return needed.error();
  const auto last = newestGood();
  if (!last) return last.error();
  if (!*last)
    return failure(Source::Backups, Failure::Failed,
                   "there is no snapshot to restore; quorvantis repair --start-anew begins without "
                   "settings");
  const auto replaced = replace((*last)->settings);
  if (!replaced) return replaced.error();
  return (*last)->entry;
}

Attempt<Done> Recovery::startAnew() {
  if (const auto needed = damaged(); !needed) return needed;
  return replace({});
}

Attempt<Change> Recovery::changeTo(const Snapshot& snapshot) {
  const auto settings = settingsIn(snapshot);
  if (!settings) return settings.error();
  if (const auto read = backups_.store().refresh(prefs::kDomain); !read)
    return failed(read.error());
  const plist::Dictionary domain = prefs::wholeDomainRead(backups_.store());
  Change change{.settings = foundation::changesBetween(domain, *settings)};
  if (!snapshot.profiles) return change;
  const auto files = readProfileFiles(environment_.root);
  if (!files) return failed(files.error());
  change.files = fileDifferences(*files, *snapshot.profiles);
  return change;
}

Attempt<std::vector<prefs::Difference>> Recovery::changesOfRestore(int number) {
  const auto snapshot = read(number);
  if (!snapshot) return snapshot.error();
  auto change = changeTo(*snapshot);
  if (!change) return change.error();
  std::vector<prefs::Difference> differences;
  for (auto& [key, from, to] : change->settings)
    if (!from || !to || !plist::equalByValue(*from, *to))
      differences.push_back({key, std::move(from), std::move(to)});
  const auto content = [this](const FileChange::Bytes& bytes) -> std::optional<plist::Value> {
    if (!bytes) return std::nullopt;
    auto profile = prefs::unarchive(*bytes, environment_.xml);
    return profile && profile->dictionary() ? plist::storable(std::move(*profile))
                                            : plist::Value(plist::Data{*bytes});
  };
  for (const auto& [path, from, to] : change->files)
    differences.push_back({path, content(from), content(to)});
  return differences;
}

Attempt<Recovery::Restored> Recovery::restore(int number) {
  const auto snapshot = read(number);
  if (!snapshot) return snapshot.error();
  backups_.prepare();
  auto change = changeTo(*snapshot);
  if (!change) return change.error();
  backups_.keepOrWarn("restore");
  change->what = "restore " + std::to_string(number);
  Restored restored{.hadProfiles = snapshot->profiles.has_value()};
  for (const FileChange& file : change->files)
    if (!file.to) restored.deleted.push_back(file.path);
  auto left = apply(environment_, backups_, *change, ChangeNote::Kind::Restore);
  if (left) backups_.remember(std::move(*change), *left);
  if (!left && left.error().reason == Failure::Unconfirmed)
    backups_.remember(std::move(*change), {});
  if (!left) return left.error();
  restored.left = std::move(*left);
  std::erase_if(restored.deleted, [&](const std::string& path) {
    return std::ranges::find(restored.left, path) != restored.left.end();
  });
  return restored;
}

}  // namespace host
