#include "platform/foundation/domain_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <time.h>

#include <cerrno>
#include <thread>
#include <utility>

#include "platform/foundation/damaged_file.h"
#include "platform/foundation/durable_file.h"
#include "platform/foundation/file_lock.h"

namespace foundation {
namespace {

using platform::Done;
using platform::Error;
using platform::ErrorKind;
using platform::Result;
using Clock = std::chrono::steady_clock;

constexpr std::string_view kHeld = "the settings";
constexpr std::chrono::milliseconds kSoon{100}, kOften{10}, kWayForOthers{2};

Result<Done> checkName(const std::string& name, const std::string& path) {
  const bool oneComponent = name.find('/') == std::string::npos &&
                            name.find('\0') == std::string::npos && name != ".plist";
  if (!oneComponent) return Error{.path = path, .what = "not a domain's name"};
  return Done{};
}

void apply(const std::string& key, const plist::Value* value, plist::Dictionary& entries,
           KeyChanges& changes) {
  const plist::Value* old = entries.find(key);
  if (isSame(old, value)) return;
  changes.push_back({key, old ? std::optional(*old) : std::nullopt,
                     value ? std::optional(*value) : std::nullopt});
  if (value)
    entries.set(key, *value);
  else
    entries.remove(key);
}

// Another program's writing gives the file the time of the kernel's last tick, so not this one:
// what has it still is what was written here.
timespec setPreciseTime(int file) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const timespec times[] = {{0, UTIME_OMIT}, now};
  return futimens(file, times) == 0 ? now : timespec{};
}

const plist::Value* pointerTo(const std::optional<plist::Value>& value) {
  return value ? &*value : nullptr;
}

}  // namespace

DomainFile::DomainFile(DeviceRoot& root, std::string_view domain, const XmlReader& xml)
    : root_(root),
      name_(std::string(domain) + ".plist"),
      path_(domainPath(domain)),
      reader_(root, domain, xml) {}

Result<DomainReadingPtr> DomainFile::read() {
  if (const auto named = checkName(name_, path_); !named) return named.error();
  return reader_.read();
}

// False where it is held, or another file has its name.
bool DomainFile::retakeLock() {
  if (!place_ || !held_.expired()) return false;
  // One process that changes the file again and again must not keep the others from it.
  const auto now = Clock::now();
  if (now - place_->released < kSoon && now - place_->looked > kOften) {
    if (isWaitedFor(place_->lock)) std::this_thread::sleep_for(kWayForOthers);
    place_->looked = Clock::now();
  }
  const int lock = place_->lock.number();
  if (flock(lock, LOCK_EX | LOCK_NB) != 0) return false;
  const std::string path = root_.directory() + place_->folder.path() + "/" + lockName(name_);
  struct stat status {};
  const bool named = stat(path.c_str(), &status) == 0 && status.st_dev == place_->status.st_dev &&
                     status.st_ino == place_->status.st_ino;
  if (!named) flock(lock, LOCK_UN);
  return named;
}

Result<Done> DomainFile::openAndLock(std::chrono::milliseconds patience) {
  auto folder = root_.openOrCreateDirectory(kDomainFolder);
  if (!folder) return folder.error();
  auto lock = takeLock(*folder, name_, patience, kHeld);
  if (!lock) return lock.error();
  struct stat status {};
  if (fstat(lock->number(), &status) != 0) return folder->error(lockName(name_), errno, "lock");
  if (!std::exchange(leftoversRemoved_, true)) removeLeftovers(*folder, name_);
  place_ = std::make_shared<Place>(Place{std::move(*folder), std::move(*lock), status});
  return Done{};
}

Result<DomainLock> DomainFile::lock(std::chrono::milliseconds patience) {
  if (const auto named = checkName(name_, path_); !named) return named.error();
  if (!retakeLock())
    if (const auto locked = openAndLock(patience); !locked) return locked.error();
  const DomainLock lock(place_.get(), [place = place_](void*) {
    place->released = Clock::now();
    flock(place->lock.number(), LOCK_UN);
  });
  held_ = lock;
  return lock;
}

Result<DomainChange> DomainFile::change(const plist::Dictionary& set,
                                        const std::vector<std::string>& remove,
                                        std::chrono::milliseconds patience) {
  // There is nothing to remove from a domain without a file, and so no folder to make.
  if (set.empty()) {
    const auto file = root_.open(path_, O_PATH);
    if (!file && file.error().code == ENOENT) {
      const auto none = std::make_shared<const DomainReading>();
      return DomainChange{.before = none, .after = none};
    }
  }
  auto locked = lock(patience);
  if (!locked) return locked.error();
  const auto old = read();
  if (!old) return old.error();
  DomainChange change{.before = *old, .after = *old, .lock = std::move(*locked)};
  plist::Dictionary entries = (*old)->entries;
  for (const auto& [key, value] : set) apply(key, &value, entries, change.keys);
  for (const std::string& key : remove) apply(key, nullptr, entries, change.keys);
  if (set.empty() && change.keys.empty()) return change;
  auto stored = putOrRemove(std::move(entries));
  if (!stored) return stored.error();
  change.after = std::move(*stored);
  return change;
}

Result<DomainFile::Exchange> DomainFile::exchange(const KeyChanges& wanted,
                                                  std::chrono::milliseconds patience) {
  auto locked = lock(patience);
  if (!locked) return locked.error();
  const auto old = read();
  if (!old) return old.error();
  Exchange exchange;
  DomainChange& made = exchange.made;
  made.before = made.after = *old;
  made.lock = std::move(*locked);
  plist::Dictionary entries = (*old)->entries;
  for (const auto& [key, from, to] : wanted) {
    const plist::Value* now = entries.find(key);
    if (isSame(now, pointerTo(from)))
      apply(key, pointerTo(to), entries, made.keys);
    else if (!isSame(now, pointerTo(to)))
      exchange.left.push_back(key);
  }
  if (made.keys.empty()) return exchange;
  auto stored = putOrRemove(std::move(entries));
  if (!stored) return stored.error();
  made.after = std::move(*stored);
  return exchange;
}

Result<DomainReadingPtr> DomainFile::putOrRemove(plist::Dictionary entries) {
  if (!entries.empty()) return put(std::move(entries));
  if (unlinkat(place_->folder.descriptor(), name_.c_str(), 0) != 0)
    return place_->folder.error(name_, errno, "remove");
  unflushed_ = true;
  flushFailed_ = false;
  return std::make_shared<const DomainReading>();
}

Result<DomainReadingPtr> DomainFile::put(plist::Dictionary entries) {
  plist::Value whole(std::move(entries));
  const auto bytes = plist::writeBinary(whole);
  if (!bytes)
    return Error{.path = path_, .what = "can't be stored"}
        .because(bytes.error())
        .as(ErrorKind::Invalid);
  auto pending = PendingFile::write(place_->folder, name_, *bytes);
  if (!pending) return pending.error();
  const timespec time = setPreciseTime(pending->descriptor());
  const auto placed = pending->replaceTarget();
  if (!placed) return placed.error();
  unflushed_ = true;
  flushFailed_ = false;
  struct stat status {};
  const bool precise = fstat(pending->descriptor(), &status) == 0 && time.tv_nsec != 0 &&
                       status.st_mtim.tv_sec == time.tv_sec &&
                       status.st_mtim.tv_nsec == time.tv_nsec;
  return reader_.wrote(std::move(*whole.dictionary()), checksumOf(*bytes), status, precise);
}

Result<DomainChange> DomainFile::replace(const plist::Dictionary& entries,
                                         std::chrono::milliseconds patience) {
  auto locked = lock(patience);
  if (!locked) return locked.error();
  const auto old = read();
  if (old) return Error{.path = path_, .what = "can be read and is not replaced"};
  if (old.error().kind != ErrorKind::Damaged) return old.error();
  const Directory& folder = place_->folder;
  const auto aside = keepAside(folder, name_);
  if (!aside) return aside.error();
  auto stored = put(entries);
  if (!stored) {
    unlinkat(folder.descriptor(), aside->c_str(), 0);
    return stored.error();
  }
  removeOldest(folder, name_);
  return DomainChange{.after = std::move(*stored), .lock = std::move(*locked)};
}

Result<Done> DomainFile::writeAnew(std::chrono::milliseconds patience) {
  const auto locked = lock(patience);
  if (!locked) return locked.error();
  const auto now = read();
  if (!now) return now.error();
  if ((*now)->stamp.inode != 0) {
    if (const auto written = put((*now)->entries); !written) return written.error();
  } else {
    // The folder itself is to be written anew; a file that comes and goes does that.
    auto passing = PendingFile::write(place_->folder, name_, {});
    if (!passing) return passing.error();
    if (const auto flushed = passing->flush(); !flushed) return flushed;
  }
  return flushFolder(place_->folder);
}

Result<Done> DomainFile::flush(std::chrono::milliseconds patience) {
  if (!unflushed_) return Done{};
  const auto flushed = flushFailed_ ? writeAnew(patience) : flushFolder(place_->folder);
  unflushed_ = flushFailed_ = !flushed;
  if (flushed || flushed.error().kind == ErrorKind::Damaged) return flushed;
  return Error(flushed.error()).as(ErrorKind::Unconfirmed);
}

}  // namespace foundation
