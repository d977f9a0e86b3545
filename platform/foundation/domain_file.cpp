#include "platform/foundation/domain_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <time.h>

#include <cerrno>
#include <thread>

#include "platform/foundation/damaged_file.h"
#include "platform/foundation/durable_file.h"
#include "platform/foundation/file_lock.h"
#include "platform/foundation/file_reading.h"

namespace foundation {
namespace {

using platform::Done;
using platform::Error;
using platform::ErrorKind;
using platform::Result;

constexpr std::string_view kFolder = "/var/mobile/Library/Preferences";
// The coarsest clock of a file system in use ticks every 2 s.
constexpr std::int64_t kStableAge = 3'000'000'000;
constexpr int kLooksAgain = 3;
constexpr std::chrono::milliseconds kPauseBetweenLooks{150};
constexpr std::string_view kHeld = "the settings";
constexpr std::int64_t kShortestPropertyList = 42;  // bytes, of a binary one

std::int64_t nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

FileStamp stampOf(const struct stat& status) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const std::int64_t changed = nanoseconds(status.st_ctim);
  return {status.st_dev,  status.st_ino,
          status.st_size, nanoseconds(status.st_mtim),
          changed,        nanoseconds(now) - changed > kStableAge};
}

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

const plist::Value* pointerTo(const std::optional<plist::Value>& value) {
  return value ? &*value : nullptr;
}

}  // namespace

std::string domainPath(std::string_view domain) {
  return std::string(kFolder) + "/" + std::string(domain) + ".plist";
}

Result<plist::Dictionary> decodeDomain(plist::Bytes bytes, const XmlReader& xml) {
  return readPropertyList(bytes, xml)
      .and_then([](plist::Value&& value) -> Result<plist::Dictionary> {
        auto kept = plist::storable(std::move(value));
        if (!kept || !kept->dictionary()) return Error{.what = "its top is not a dictionary"};
        return std::move(*kept->dictionary());
      });
}

bool FileStamp::sameFile(const FileStamp& other) const {
  return device == other.device && inode == other.inode && size == other.size &&
         modified == other.modified && changed == other.changed;
}

DomainFile::DomainFile(DeviceRoot& root, std::string_view domain, const XmlReader& xml)
    : root_(root), xml_(xml), name_(std::string(domain) + ".plist"), path_(domainPath(domain)) {}

Result<std::optional<DomainFile::Reading>> DomainFile::look(const FileStamp& known,
                                                            FileStamp& stamp) const {
  const auto file = root_.open(path_, O_RDONLY);
  if (!file && file.error().code == ENOENT) return std::optional<Reading>(Reading{});
  if (!file) return file.error();
  const auto status = statRegular(*file, path_);
  if (!status && status.error().code != 0 && status.error().code != EFBIG) return status.error();
  if (!status) return Error(status.error()).as(ErrorKind::Damaged);
  stamp = stampOf(*status);
  if (known.stable && known.sameFile(stamp)) return std::optional<Reading>();

  std::vector<std::uint8_t> bytes;
  const auto length = readWhole(*file, static_cast<std::size_t>(status->st_size), bytes, path_);
  if (!length) return Error(length.error()).as(ErrorKind::Damaged);
  const plist::Bytes read(bytes.data(), *length);
  auto entries = decodeDomain(read, xml_);
  if (entries) return std::optional(Reading{std::move(*entries), stamp, checksumOf(read)});
  return Error{.path = path_, .what = "not a readable property list"}
      .because(entries.error())
      .as(ErrorKind::Damaged);
}

Result<std::optional<DomainFile::Reading>> DomainFile::readUnless(const FileStamp& known) {
  if (const auto named = checkName(name_, path_); !named) return named.error();
  FileStamp last;
  for (int again = kLooksAgain;; --again) {
    FileStamp stamp;
    auto read = look(known, stamp);
    if (read || read.error().kind != ErrorKind::Damaged) return read;
    const bool first = again == kLooksAgain;
    const bool beingWritten =
        stamp.inode != 0 && !stamp.stable && !damaged_.sameFile(stamp) &&
        (first || !last.sameFile(stamp) || stamp.size < kShortestPropertyList);
    if (again == 0 || !beingWritten) {
      damaged_ = stamp;
      return read;
    }
    last = stamp;
    std::this_thread::sleep_for(kPauseBetweenLooks);
  }
}

Result<DomainFile::Locked> DomainFile::lock(std::chrono::milliseconds patience) {
  if (const auto named = checkName(name_, path_); !named) return named.error();
  const auto made = root_.createDirectory(kFolder);
  if (!made) return made.error();
  auto folder = root_.openDirectory(kFolder);
  if (!folder) return folder.error();
  auto lock = takeLock(*folder, name_, patience, kHeld);
  if (!lock) return lock.error();
  if (!std::exchange(leftoversRemoved_, true)) removeLeftovers(*folder, name_);
  return Locked{std::move(*folder), std::move(*lock)};
}

Result<Descriptor> DomainFile::hold(std::chrono::milliseconds patience) {
  auto locked = lock(patience);
  if (!locked) return locked.error();
  return std::move(locked->lock);
}

Result<DomainChange> DomainFile::change(const plist::Dictionary& set,
                                        const std::vector<std::string>& remove,
                                        std::chrono::milliseconds patience) {
  DomainChange change{.before = checksumOf({}), .after = checksumOf({})};
  // There is nothing to remove from a domain without a file, and so no folder to make.
  if (set.empty()) {
    const auto file = root_.open(path_, O_PATH);
    if (!file && file.error().code == ENOENT) return change;
  }
  auto locked = lock(patience);
  if (!locked) return locked.error();
  auto old = readUnless(FileStamp{});
  if (!old) return old.error();
  plist::Dictionary entries = std::move((*old)->entries);
  change.before = change.after = (*old)->checksum;
  change.lock = std::move(locked->lock);
  for (const auto& [key, value] : set) apply(key, &value, entries, change.keys);
  for (const std::string& key : remove) apply(key, nullptr, entries, change.keys);
  if (set.empty() && change.keys.empty()) return change;
  const auto stored = putOrRemove(locked->folder, entries);
  if (!stored) return stored.error();
  change.after = *stored;
  return change;
}

Result<DomainFile::Exchange> DomainFile::exchange(const KeyChanges& wanted,
                                                  std::chrono::milliseconds patience) {
  auto locked = lock(patience);
  if (!locked) return locked.error();
  auto old = readUnless(FileStamp{});
  if (!old) return old.error();
  plist::Dictionary entries = std::move((*old)->entries);
  Exchange exchange;
  DomainChange& made = exchange.made;
  made.before = made.after = (*old)->checksum;
  made.lock = std::move(locked->lock);
  for (const auto& [key, from, to] : wanted) {
    const plist::Value* now = entries.find(key);
    if (isSame(now, pointerTo(from)))
      apply(key, pointerTo(to), entries, made.keys);
    else if (!isSame(now, pointerTo(to)))
      exchange.left.push_back(key);
  }
  if (made.keys.empty()) return exchange;
  const auto stored = putOrRemove(locked->folder, entries);
  if (!stored) return stored.error();
  made.after = *stored;
  return exchange;
}

Result<std::uint64_t> DomainFile::putOrRemove(const Directory& folder,
                                              const plist::Dictionary& entries) {
  if (!entries.empty()) return put(folder, entries);
  if (unlinkat(folder.descriptor(), name_.c_str(), 0) != 0)
    return folder.error(name_, errno, "remove");
  unflushed_ = true;
  flushFailed_ = false;
  return checksumOf({});
}

Result<std::uint64_t> DomainFile::put(const Directory& folder, const plist::Dictionary& entries) {
  const auto bytes = plist::writeBinary(entries);
  if (!bytes)
    return Error{.path = path_, .what = "can't be stored"}
        .because(bytes.error())
        .as(ErrorKind::Invalid);
  auto pending = PendingFile::write(folder, name_, *bytes);
  if (!pending) return pending.error();
  const auto placed = pending->replaceTarget();
  if (!placed) return placed.error();
  unflushed_ = true;
  flushFailed_ = false;
  return checksumOf(*bytes);
}

Result<DomainChange> DomainFile::replace(const plist::Dictionary& entries,
                                         std::chrono::milliseconds patience) {
  auto locked = lock(patience);
  if (!locked) return locked.error();
  const auto old = readUnless(FileStamp{});
  if (old) return Error{.path = path_, .what = "can be read and is not replaced"};
  if (old.error().kind != ErrorKind::Damaged) return old.error();
  const auto aside = keepAside(locked->folder, name_);
  if (!aside) return aside.error();
  const auto stored = put(locked->folder, entries);
  if (!stored) {
    unlinkat(locked->folder.descriptor(), aside->c_str(), 0);
    return stored.error();
  }
  removeOldest(locked->folder, name_);
  return DomainChange{.after = *stored, .lock = std::move(locked->lock)};
}

Result<Done> DomainFile::writeAnew(std::chrono::milliseconds patience) {
  const auto locked = lock(patience);
  if (!locked) return locked.error();
  const auto now = readUnless(FileStamp{});
  if (!now) return now.error();
  if ((*now)->stamp.inode != 0) {
    if (const auto written = put(locked->folder, (*now)->entries); !written) return written.error();
  } else {
    // The folder itself is to be written anew; a file that comes and goes does that.
    auto passing = PendingFile::write(locked->folder, name_, {});
    if (!passing) return passing.error();
    if (const auto flushed = passing->flush(); !flushed) return flushed;
  }
  return flushFolder(locked->folder);
}

Result<Done> DomainFile::flush(std::chrono::milliseconds patience) {
  if (!unflushed_) return Done{};
  const auto flushed = flushFailed_
                           ? writeAnew(patience)
                           : root_.openDirectory(kFolder).and_then(
                                 [](const Directory& folder) { return flushFolder(folder); });
  unflushed_ = flushFailed_ = !flushed;
  if (flushed || flushed.error().kind == ErrorKind::Damaged) return flushed;
  return Error(flushed.error()).as(ErrorKind::Unconfirmed);
}

}  // namespace foundation
