#include "platform/foundation/preferences.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace foundation {
namespace {

using platform::Done;
using platform::Error;
using platform::ErrorKind;
using platform::Result;

Result<DomainChange> change(DomainFile& file, const plist::Dictionary& sets,
                            std::chrono::milliseconds patience) {
  plist::Dictionary values;
  std::vector<std::string> remove;
  for (const auto& [key, value] : sets) {
    if (value.isNothing())
      remove.push_back(key);
    else
      values.set(key, value);
  }
  return file.change(values, remove, patience);
}

void overlay(const plist::Dictionary& sets, plist::Dictionary& entries) {
  for (const auto& [key, value] : sets) {
    if (value.isNothing())
      entries.remove(key);
    else
      entries.set(key, value);
  }
}

}  // namespace

Preferences::Preferences(DeviceRoot& root, std::chrono::milliseconds lockPatience,
                         FailedSets failedSets)
    : files_(std::make_shared<Files>(Files{root})),
      lockPatience_(lockPatience),
      failedSets_(failedSets) {}

Preferences::Preferences(const Preferences& other, std::chrono::milliseconds lockPatience)
    : files_(other.files_), lockPatience_(lockPatience), failedSets_(FailedSets::Drop) {}

Preferences::Domain& Preferences::domain(std::string_view name) {
  const auto found = domains_.find(name);
  if (found != domains_.end()) return found->second;
  std::string owned(name);
  auto& file = files_->files.try_emplace(owned, files_->root, name, files_->xml).first->second;
  return domains_.emplace(owned, Domain{.name = owned, .file = file}).first->second;
}

Preferences::Domain& Preferences::loadedDomain(std::string_view name) {
  Domain& found = domain(name);
  if (!found.seen) static_cast<void>(refresh(found));
  return found;
}

const plist::Value* Preferences::find(const Domain& domain, std::string_view key) {
  const plist::Value* kept = domain.kept.find(key);
  if (!kept) return domain.seen->entries.find(key);
  return kept->isNothing() ? nullptr : kept;
}

void Preferences::willChange(const Domain& domain) {
  if (observer_) observer_->willChange(domain.name);
}

void Preferences::didChange(Domain& domain, const DomainChange& change) {
  if (change.before && domain.left == change.before->checksum) domain.left = change.after->checksum;
  if (observer_) observer_->didChange(domain.name, change);
}

Error Preferences::failed(Domain& domain, Error error, Repeated repeated) {
  const bool same = domain.reported && domain.reported->message() == error.message();
  if (same && repeated == Repeated::Once) return error;
  if (!same) recovered(domain);
  domain.reported = error;
  if (problemHandler_) problemHandler_(error);
  return error;
}

// A value that can't be stored stays so, even where the next set succeeds.
void Preferences::recovered(Domain& domain) {
  const auto gone = std::exchange(domain.reported, std::nullopt);
  if (gone && gone->kind != ErrorKind::Invalid && recoveryHandler_) recoveryHandler_(*gone);
}

Result<Done> Preferences::refresh(Domain& domain) {
  auto read = domain.file.read();
  if (!read && !domain.seen) domain.seen = std::make_shared<const DomainReading>();
  if (!read) return failed(domain, read.error());
  if (domain.kept.empty() && !domain.file.unflushed()) recovered(domain);
  domain.seen = std::move(*read);
  return Done{};
}

// What other processes had changed since the domain was seen stays unseen.
void Preferences::see(Domain& domain, const DomainChange& change, const plist::Dictionary& sets) {
  if (domain.seen == change.before) {
    domain.seen = change.after;
    return;
  }
  auto seen = std::make_shared<DomainReading>(*domain.seen);
  overlay(sets, seen->entries);
  domain.seen = std::move(seen);
}

Result<Done> Preferences::store(Domain& domain, const plist::Dictionary& before,
                                std::chrono::milliseconds patience) {
  if (!domain.kept.empty()) willChange(domain);
  auto changed = change(domain.file, domain.kept, patience);
  if (changed) changed->kept = before;
  if (changed && !domain.kept.empty()) didChange(domain, *changed);
  if (changed && domain.seen) see(domain, *changed, domain.kept);
  if (changed || changed.error().kind == ErrorKind::Damaged) domain.kept = {};
  if (!changed) return changed.error();
  return Done{};
}

Result<Done> Preferences::finish(Domain& domain, std::chrono::milliseconds patience) {
  if (held_ || (domain.kept.empty() && !domain.file.unflushed())) return Done{};
  if (!domain.kept.empty()) {
    const auto stored = store(domain, plist::Dictionary(domain.kept), patience);
    if (!stored) return failed(domain, stored.error());
    if (keptHandler_) keptHandler_();
  }
  const auto flushed = domain.file.flush(patience);
  if (!flushed) return failed(domain, flushed.error());
  if (domain.reported && domain.reported->kind != ErrorKind::Damaged) recovered(domain);
  return Done{};
}

std::optional<plist::Value> Preferences::copyAppValue(std::string_view key,
                                                      std::string_view domain) {
  const plist::Value* value = find(loadedDomain(domain), key);
  return value ? std::optional(*value) : std::nullopt;
}

Result<Done> Preferences::setAppValue(std::string_view key, const plist::Value& value,
                                      std::string_view domain) {
  if (value.isNothing()) return set({}, {std::string(key)}, domain, Kept::Sets);
  plist::Dictionary values;
  values.set(key, value);
  return set(values, {}, domain, Kept::Sets);
}

Result<Done> Preferences::appSynchronize(std::string_view domain) {
  this->domain(domain);
  return synchronize();
}

Result<Done> Preferences::refresh(std::string_view domain) {
  return refresh(this->domain(domain));
}

bool Preferences::changedByOthers(std::string_view domain) {
  Domain& target = this->domain(domain);
  const auto read = target.file.read();
  const auto now = read ? std::optional((*read)->checksum) : std::nullopt;
  return std::exchange(target.left, now) != now || !now;
}

std::vector<std::string> Preferences::copyKeyList(std::string_view domain) {
  Domain& source = this->domain(domain);
  static_cast<void>(refresh(source));
  std::vector<std::string> keys;
  keys.reserve(source.seen->entries.size());
  for (const auto& entry : source.seen->entries)
    if (find(source, entry.key)) keys.push_back(entry.key);
  for (const auto& [key, value] : source.kept)
    if (!value.isNothing() && !source.seen->entries.find(key)) keys.push_back(key);
  return keys;
}

plist::Dictionary Preferences::copyMultiple(const std::vector<std::string>& keys,
                                            std::string_view domain) {
  Domain& source = this->domain(domain);
  static_cast<void>(refresh(source));
  const plist::Dictionary& entries = source.seen->entries;
  const auto isKeyOf = [](const std::string& key, const auto& entry) { return key == entry.key; };
  const bool isWhole = source.kept.empty() && std::equal(keys.begin(), keys.end(), entries.begin(),
                                                         entries.end(), isKeyOf);
  if (isWhole) return entries;
  plist::Dictionary values;
  for (const std::string& key : keys) {
    if (const plist::Value* value = find(source, key)) values.set(key, *value);
  }
  return values;
}

// A whole-domain write sets keys to what they are; kept, these would undo what other processes set
// before it can be stored.
void Preferences::keepChangesOnly(Domain& domain, const plist::Dictionary& before) {
  if (!domain.seen) return;
  plist::Dictionary changes;
  for (const auto& [key, value] : domain.kept) {
    const plist::Value* known = domain.seen->entries.find(key);
    const bool same = known ? *known == value : value.isNothing();
    if (before.find(key) || !same) changes.set(key, value);
  }
  domain.kept = std::move(changes);
}

Result<Done> Preferences::setMultiple(const plist::Dictionary& values,
                                      const std::vector<std::string>& remove,
                                      std::string_view domain) {
  return set(values, remove, domain, Kept::Changes);
}

Result<Done> Preferences::set(const plist::Dictionary& values,
                              const std::vector<std::string>& remove, std::string_view domain,
                              Kept kept) {
  Domain& target = this->domain(domain);
  const plist::Value storable = *plist::storable(values);
  const plist::Dictionary before = target.kept;
  for (const auto& entry : *storable.dictionary()) target.kept.set(entry.key, entry.value);
  for (const std::string& key : remove) target.kept.set(key, plist::Value());
  if (held_) return Done{};
  // Whoever held the lock a moment ago isn't waited for again.
  const auto patience = before.empty() ? lockPatience_ : std::chrono::milliseconds(0);
  const auto stored = store(target, before, patience);
  if (stored && !before.empty() && keptHandler_) keptHandler_();
  if (!stored) {
    const Error error = failed(target, stored.error(), Repeated::Always);
    if (!failedSet_) failedSet_ = error;
    const bool keep = failedSets_ == FailedSets::Keep && error.kind == ErrorKind::Failed;
    if (!keep && error.kind != ErrorKind::Damaged) target.kept = before;
    if (keep && kept == Kept::Changes) keepChangesOnly(target, before);
    if (keep && observer_) observer_->didKeep(target.name, changesBetween(before, target.kept));
  }
  if (unfinishedHandler_ && unfinished()) unfinishedHandler_();
  return stored;
}

Result<std::vector<std::string>> Preferences::exchange(const KeyChanges& changes,
                                                       std::string_view domain) {
  Domain& target = this->domain(domain);
  willChange(target);
  const auto exchanged = target.file.exchange(changes, lockPatience_);
  if (!exchanged) return failed(target, exchanged.error());
  if (!exchanged->made.keys.empty()) didChange(target, exchanged->made);
  plist::Dictionary made;
  for (const auto& [key, from, to] : exchanged->made.keys)
    made.set(key, to.value_or(plist::Value()));
  if (target.seen) see(target, exchanged->made, made);
  if (unfinishedHandler_ && unfinished()) unfinishedHandler_();
  return exchanged->left;
}

Result<Done> Preferences::synchronize() {
  std::optional<Error> first;
  for (auto& [name, domain] : domains_) {
    const auto patience = domain.kept.empty() ? lockPatience_ : std::chrono::milliseconds(0);
    for (const auto& result : {finish(domain, patience), refresh(domain)}) {
      if (!result && !first) first = result.error();
    }
  }
  if (first) return *first;
  return Done{};
}

Result<Done> Preferences::finish(std::chrono::milliseconds patience) {
  std::optional<Error> first;
  for (auto& [name, domain] : domains_) {
    const auto finished = finish(domain, patience);
    if (!finished && !first) first = finished.error();
  }
  if (first) return *first;
  return Done{};
}

bool Preferences::unfinished() const {
  for (const auto& [name, domain] : domains_)
    if (!domain.kept.empty() || domain.file.unflushed()) return true;
  return false;
}

void Preferences::hold() {
  held_ = true;
  for (auto& [name, domain] : domains_) domain.keptBefore = domain.kept;
}

void Preferences::drop() {
  held_ = false;
  for (auto& [name, domain] : domains_) domain.kept = std::exchange(domain.keptBefore, {});
}

Result<Done> Preferences::release() {
  held_ = false;
  for (auto& [name, domain] : domains_) {
    const plist::Dictionary before = std::exchange(domain.keptBefore, {});
    if (plist::Value(domain.kept) == plist::Value(before)) continue;
    if (const auto stored = store(domain, before, lockPatience_); !stored) {
      const Error error = failed(domain, stored.error());
      drop();
      domain.kept = before;
      return error;
    }
    if (!before.empty() && keptHandler_) keptHandler_();
  }
  return finish(lockPatience_);
}

Result<DomainLock> Preferences::lock(std::string_view domain) {
  return this->domain(domain).file.lock(lockPatience_);
}

std::optional<Error> Preferences::damage(std::string_view domain) {
  const auto read = this->domain(domain).file.read();
  return read ? std::nullopt : std::optional(read.error());
}

Result<Done> Preferences::replaceDomain(const plist::Dictionary& entries, std::string_view domain) {
  Domain& target = this->domain(domain);
  const plist::Value storable = *plist::storable(entries);
  willChange(target);
  {
    const auto replaced = target.file.replace(*storable.dictionary(), lockPatience_);
    if (!replaced) return failed(target, replaced.error());
    didChange(target, *replaced);
    target.seen = replaced->after;
  }
  target.kept = {};
  if (const auto flushed = target.file.flush(lockPatience_); !flushed) {
    if (unfinishedHandler_) unfinishedHandler_();
    return failed(target, flushed.error());
  }
  recovered(target);
  return Done{};
}

std::optional<Error> Preferences::takeFailedSet() {
  return std::exchange(failedSet_, std::nullopt);
}

void Preferences::setProblemHandler(platform::Report handler) {
  problemHandler_ = std::move(handler);
}

void Preferences::setRecoveryHandler(platform::Report handler) {
  recoveryHandler_ = std::move(handler);
}

void Preferences::setKeptHandler(std::function<void()> handler) {
  keptHandler_ = std::move(handler);
}

void Preferences::setUnfinishedHandler(std::function<void()> handler) {
  unfinishedHandler_ = std::move(handler);
}

void Preferences::setXmlReader(XmlReader reader) {
  files_->xml = std::move(reader);
}

}  // namespace foundation
