#include "platform/foundation/domain_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <time.h>

#include <cerrno>

#include "platform/foundation/durable_file.h"
#include "platform/foundation/file_reading.h"
#include "platform/plist/binary.h"

namespace foundation {
namespace {

using platform::Done;
using platform::Result;

constexpr std::string_view kFolder = "/var/mobile/Library/Preferences";
// The coarsest clock of a file system in use ticks every 2 s.
constexpr std::int64_t kSettlingTime = 3'000'000'000;

std::int64_t nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

FileStamp stampOf(const struct stat& status) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const std::int64_t changed = nanoseconds(status.st_ctim);
  return {status.st_dev,  status.st_ino,
          status.st_size, nanoseconds(status.st_mtim),
          changed,        nanoseconds(now) - changed > kSettlingTime};
}

Result<plist::Dictionary, std::string> decode(plist::Bytes bytes, const XmlReader& xml) {
  constexpr std::string_view kBinary = "bplist";
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  plist::Value value;
  if (text.starts_with(kBinary)) {
    auto read = plist::readBinary(bytes);
    if (!read) return read.error().message();
    value = std::move(*read);
  } else {
    if (!xml) return std::string("not a binary property list");
    auto read = xml(bytes);
    if (!read) return read.error();
    value = std::move(*read);
  }
  if (!value.dictionary()) return std::string("its top is not a dictionary");
  return std::move(*value.dictionary());
}

// Held until the descriptor goes.
Result<Descriptor, FileError> lock(const Directory& folder, const std::string& name) {
  for (;;) {
    Descriptor file(openat(folder.descriptor(), name.c_str(),
                           O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                           0600));
    if (!file) return folder.error(name, errno, "lock");
    while (flock(file.number(), LOCK_EX) != 0) {
      if (errno != EINTR) return folder.error(name, errno, "lock");
    }
    // Someone may have tidied the lock file away while this one waited for it.
    struct stat held {
    }, named{};
    const bool same =
        fstat(file.number(), &held) == 0 &&
        fstatat(folder.descriptor(), name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
        held.st_ino == named.st_ino && held.st_dev == named.st_dev;
    if (same) return file;
  }
}

// The name under which the file is kept now.
Result<std::string, FileError> keepAside(const Directory& folder, const std::string& name) {
  for (int number = 1;; ++number) {
    const std::string aside = name + ".unreadable-" + std::to_string(number);
    if (renameat2(folder.descriptor(), name.c_str(), folder.descriptor(), aside.c_str(),
                  RENAME_NOREPLACE) == 0) {
      return aside;
    }
    if (errno != EEXIST) return folder.error(name, errno, "keep aside");
  }
}

bool apply(const plist::Dictionary& set, const std::vector<std::string>& remove,
           plist::Dictionary& entries) {
  bool changed = !set.empty();
  for (const auto& entry : set) entries.set(entry.key, entry.value);
  for (const std::string& key : remove) changed |= entries.remove(key);
  return changed;
}

}  // namespace

bool FileStamp::sameFile(const FileStamp& other) const {
  return device == other.device && inode == other.inode && size == other.size &&
         modified == other.modified && changed == other.changed;
}

DomainFile::DomainFile(DeviceRoot& root, std::string_view domain, const XmlReader& xml)
    : root_(root),
      xml_(xml),
      name_(std::string(domain) + ".plist"),
      path_(std::string(kFolder) + "/" + name_) {}

Result<Done, FileError> DomainFile::checkName() const {
  const bool oneComponent = name_.find('/') == std::string::npos &&
                            name_.find('\0') == std::string::npos && name_ != ".plist";
  if (!oneComponent) return FileError{path_, 0, "not a domain's name"};
  return Done{};
}

FileError DomainFile::damageError(const std::string& damage) const {
  return {path_, 0, "no readable property list: " + damage};
}

Result<std::optional<DomainFile::Reading>, FileError> DomainFile::readUnless(
    const FileStamp& known) const {
  const auto named = checkName();
  if (!named) return named.error();
  const auto file = root_.open(path_, O_RDONLY);
  if (!file && file.error().code == ENOENT) return std::optional<Reading>(Reading{});
  if (!file) return file.error();
  const auto status = statRegular(*file, path_);
  if (!status) return status.error();

  Reading reading;
  reading.stamp = stampOf(*status);
  if (known.settled && known.sameFile(reading.stamp)) return std::optional<Reading>();
  std::vector<std::uint8_t> bytes;
  const auto length = readWhole(*file, static_cast<std::size_t>(status->st_size), bytes, path_);
  if (!length) return length.error();
  auto entries = decode(plist::Bytes(bytes.data(), *length), xml_);
  if (entries) {
    reading.entries = std::move(*entries);
  } else {
    reading.damage = entries.error();
  }
  return std::optional<Reading>(std::move(reading));
}

Result<DomainFile::Change, FileError> DomainFile::change(const plist::Dictionary& set,
                                                         const std::vector<std::string>& remove) {
  const auto named = checkName();
  if (!named) return named.error();
  if (set.empty() && !root_.exists(path_)) return Change{};
  const auto made = root_.createDirectory(kFolder);
  if (!made) return made.error();
  const auto folder = root_.openDirectory(kFolder);
  if (!folder) return folder.error();
  const auto locked = lock(*folder, "." + name_ + ".lock");
  if (!locked) return locked.error();
  if (!std::exchange(leftoversRemoved_, true)) removeLeftovers(*folder, name_);

  auto old = readUnless(FileStamp{});
  if (!old) return old.error();
  plist::Dictionary entries = std::move((*old)->entries);
  if (!apply(set, remove, entries)) return Change{};
  return store(*folder, entries, (*old)->damage);
}

Result<DomainFile::Change, FileError> DomainFile::store(const Directory& folder,
                                                        const plist::Dictionary& entries,
                                                        const std::string& damage) {
  if (entries.empty()) {
    if (unlinkat(folder.descriptor(), name_.c_str(), 0) == 0) return Change{.written = true};
    return folder.error(name_, errno, "remove");
  }
  const auto bytes = plist::writeBinary(entries);
  if (!bytes) return FileError{path_, 0, "can't be stored: " + bytes.error().message()};
  auto pending = PendingFile::write(folder, name_, *bytes);
  if (!pending) return pending.error();

  Change change{.written = true};
  if (!damage.empty()) {
    const auto aside = keepAside(folder, name_);
    if (!aside) return aside.error();
    change.keptAside = damageError(damage).message() + "; kept aside as " + *aside;
  }
  const auto placed = pending->replaceTarget();
  if (!placed) return placed.error();
  return change;
}

Result<Done, FileError> DomainFile::flush() {
  const auto folder = root_.openDirectory(kFolder);
  if (!folder) return folder.error();
  // Under the lock, or the folder could be flushed with a name in it whose file is not.
  const auto locked = lock(*folder, "." + name_ + ".lock");
  if (!locked) return locked.error();
  const auto flushed = flushFile(*folder, name_);
  if (!flushed) return flushed.error();
  return flushFolder(*folder);
}

}  // namespace foundation
