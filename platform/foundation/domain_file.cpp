#include "platform/foundation/domain_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <time.h>

#include <cerrno>

#include "platform/foundation/durable_file.h"
#include "platform/foundation/file_reading.h"
#include "platform/plist/binary.h"

namespace foundation {
namespace {

using platform::Done;
using platform::Error;
using platform::Result;

constexpr std::string_view kFolder = "/var/mobile/Library/Preferences";
// The coarsest clock of a file system in use ticks every 2 s.
constexpr std::int64_t kStableAge = 3'000'000'000;

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

Result<plist::Value> readAnyForm(plist::Bytes bytes, const XmlReader& xml) {
  constexpr std::string_view kBinary = "bplist";
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (!text.starts_with(kBinary))
    return xml ? xml(bytes) : Error{.what = "not a binary property list"};
  auto read = plist::readBinary(bytes);
  if (!read) return Error(read.error());
  return std::move(*read);
}

Result<plist::Dictionary> decode(plist::Bytes bytes, const XmlReader& xml) {
  return readAnyForm(bytes, xml).and_then([](plist::Value&& value) -> Result<plist::Dictionary> {
    auto kept = plist::storable(std::move(value));
    if (!kept || !kept->dictionary()) return Error{.what = "its top is not a dictionary"};
    return std::move(*kept->dictionary());
  });
}

// The name under which the file is kept now.
Result<std::string> keepAside(const Directory& folder, const std::string& name) {
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

DomainFile::DomainFile(DeviceRoot& root, std::string_view domain, const XmlReader& xml,
                       std::chrono::milliseconds lockPatience)
    : root_(root),
      xml_(xml),
      lockPatience_(lockPatience),
      name_(std::string(domain) + ".plist"),
      path_(std::string(kFolder) + "/" + name_) {}

Result<Done> DomainFile::checkName() const {
  const bool oneComponent = name_.find('/') == std::string::npos &&
                            name_.find('\0') == std::string::npos && name_ != ".plist";
  if (!oneComponent) return Error{.path = path_, .what = "not a domain's name"};
  return Done{};
}

Result<std::optional<DomainFile::Reading>> DomainFile::readUnless(const FileStamp& known) const {
  const auto named = checkName();
  if (!named) return named.error();
  const auto file = root_.open(path_, O_RDONLY);
  if (!file && file.error().code == ENOENT) return std::optional<Reading>(Reading{});
  if (!file) return file.error();
  const auto status = statRegular(*file, path_);
  if (!status) return status.error();

  Reading reading;
  reading.stamp = stampOf(*status);
  if (known.stable && known.sameFile(reading.stamp)) return std::optional<Reading>();
  std::vector<std::uint8_t> bytes;
  const auto length = readWhole(*file, static_cast<std::size_t>(status->st_size), bytes, path_);
  if (!length) return length.error();
  auto entries = decode(plist::Bytes(bytes.data(), *length), xml_);
  if (entries) {
    reading.entries = std::move(*entries);
  } else {
    Error damage{.path = path_, .what = "not a readable property list"};
    reading.damage = std::move(damage).because(entries.error());
  }
  return std::optional<Reading>(std::move(reading));
}

Result<DomainFile::Change> DomainFile::change(const plist::Dictionary& set,
                                              const std::vector<std::string>& remove) {
  const auto named = checkName();
  if (!named) return named.error();
  if (set.empty() && !root_.exists(path_)) return Change{};
  const auto made = root_.createDirectory(kFolder);
  if (!made) return made.error();
  const auto folder = root_.openDirectory(kFolder);
  if (!folder) return folder.error();
  const auto locked = takeLock(*folder, name_, lockPatience_);
  if (!locked) return locked.error();
  if (!std::exchange(leftoversRemoved_, true)) removeLeftovers(*folder, name_);

  auto old = readUnless(FileStamp{});
  if (!old) return old.error();
  plist::Dictionary entries = std::move((*old)->entries);
  if (!apply(set, remove, entries)) return Change{};
  return store(*folder, entries, (*old)->damage);
}

Result<DomainFile::Change> DomainFile::store(const Directory& folder,
                                             const plist::Dictionary& entries,
                                             const std::optional<Error>& damage) {
  if (entries.empty()) {
    if (unlinkat(folder.descriptor(), name_.c_str(), 0) == 0) return Change{.written = true};
    return folder.error(name_, errno, "remove");
  }
  const auto bytes = plist::writeBinary(entries);
  if (!bytes) return Error{.path = path_, .what = "can't be stored"}.because(bytes.error());
  auto pending = PendingFile::write(folder, name_, *bytes);
  if (!pending) return pending.error();

  Change change{.written = true};
  if (damage) {
    const auto aside = keepAside(folder, name_);
    if (!aside) return aside.error();
    change.keptAside = damage->message() + "; kept aside as " + *aside;
  }
  const auto placed = pending->replaceTarget();
  if (!placed) return placed.error();
  return change;
}

Result<Done> DomainFile::flush() {
  const auto folder = root_.openDirectory(kFolder);
  if (!folder) return folder.error();
  // Under the lock, or the folder could be flushed with a name in it whose file is not.
  const auto locked = takeLock(*folder, name_, lockPatience_);
  if (!locked) return locked.error();
  const auto flushed = flushFile(*folder, name_);
  if (!flushed) return flushed.error();
  return flushFolder(*folder);
}

}  // namespace foundation
