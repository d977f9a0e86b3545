#include "platform/foundation/domain_reader.h"

#include <fcntl.h>
#include <time.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/foundation/file_reading.h"

namespace foundation {
namespace {

using platform::Error;
using platform::ErrorKind;
using platform::Result;

constexpr std::int64_t kSecond = 1'000'000'000;
// A clock that counts parts of a second ticks every 10 ms at least, one that doesn't every 2 s.
constexpr std::int64_t kFineTick = kSecond / 20, kCoarseTick = 3 * kSecond;
constexpr std::int64_t kBeingWritten = 3 * kSecond;
constexpr int kLooksAgain = 3, kEqualLooks = 2;
constexpr std::chrono::milliseconds kPauseBetweenLooks{150};
constexpr std::int64_t kShortestPropertyList = 42;  // bytes, of a binary one

std::int64_t nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * kSecond + time.tv_nsec;
}

std::int64_t now() {
  timespec time{};
  clock_gettime(CLOCK_REALTIME, &time);
  return nanoseconds(time);
}

}  // namespace

std::string domainPath(std::string_view domain) {
  std::string path(kDomainFolder);
  return path.append("/").append(domain).append(".plist");
}

Result<plist::Dictionary> decodeDomain(plist::Bytes bytes, const XmlReader& xml) {
  return readPropertyList(bytes, xml)
      .and_then([](plist::Value&& value) -> Result<plist::Dictionary> {
        auto kept = plist::storable(std::move(value));
        if (!kept || !kept->dictionary()) return Error{.what = "its top is not a dictionary"};
        return std::move(*kept->dictionary());
      });
}

FileStamp::FileStamp(const struct stat& status)
    : device(status.st_dev),
      inode(status.st_ino),
      size(status.st_size),
      modified(nanoseconds(status.st_mtim)),
      changed(nanoseconds(status.st_ctim)),
      stable(now() - changed > (status.st_ctim.tv_nsec != 0 ? kFineTick : kCoarseTick)) {}

bool FileStamp::isOf(const struct stat& status) const {
  return device == status.st_dev && inode == status.st_ino && size == status.st_size &&
         modified == nanoseconds(status.st_mtim) && changed == nanoseconds(status.st_ctim);
}

bool FileStamp::sameFile(const FileStamp& other) const {
  return device == other.device && inode == other.inode && size == other.size &&
         modified == other.modified && changed == other.changed;
}

DomainReader::DomainReader(const DeviceRoot& root, std::string_view domain, const XmlReader& xml)
    : root_(root), xml_(xml), path_(domainPath(domain)), machinePath_(root.directory() + path_) {}

// A link that leads elsewhere on this machine than below the root has another file, and is looked
// at again.
bool DomainReader::isUnchanged() const {
  struct stat status {};
  return last_ && last_->stamp.stable && stat(machinePath_.c_str(), &status) == 0 &&
         last_->stamp.isOf(status);
}

Result<DomainReadingPtr> DomainReader::look(FileStamp& stamp) const {
  const auto file = root_.open(path_, O_RDONLY);
  if (!file && file.error().code == ENOENT) return std::make_shared<const DomainReading>();
  if (!file) return file.error();
  const auto status = statRegular(*file, path_);
  if (!status && status.error().code != 0 && status.error().code != EFBIG) return status.error();
  if (!status) return Error(status.error()).as(ErrorKind::Damaged);
  stamp = FileStamp(*status);
  if (last_ && last_->stamp.stable && last_->stamp.sameFile(stamp)) return last_;

  std::vector<std::uint8_t> bytes;
  const auto length = readWhole(*file, static_cast<std::size_t>(status->st_size), bytes, path_);
  if (!length) return Error(length.error()).as(ErrorKind::Damaged);
  const plist::Bytes read(bytes.data(), *length);
  auto entries = decodeDomain(read, xml_);
  if (entries)
    return std::make_shared<const DomainReading>(
        DomainReading{std::move(*entries), stamp, checksumOf(read)});
  return Error{.path = path_, .what = "not a readable property list"}
      .because(entries.error())
      .as(ErrorKind::Damaged);
}

Result<DomainReadingPtr> DomainReader::read() {
  if (isUnchanged()) return last_;
  FileStamp before;
  int unchanged = 0;
  for (int again = kLooksAgain;; --again) {
    FileStamp stamp;
    const auto read = look(stamp);
    if (read) last_ = *read;
    if (read || read.error().kind != ErrorKind::Damaged) return read;
    unchanged = before.sameFile(stamp) && stamp.size >= kShortestPropertyList ? unchanged + 1 : 0;
    const bool beingWritten = stamp.inode != 0 && now() - stamp.changed <= kBeingWritten &&
                              !damaged_.sameFile(stamp) && unchanged < kEqualLooks;
    if (again == 0 || !beingWritten) {
      damaged_ = stamp;
      return read;
    }
    before = stamp;
    std::this_thread::sleep_for(kPauseBetweenLooks);
  }
}

DomainReadingPtr DomainReader::wrote(plist::Dictionary entries, std::uint64_t checksum,
                                     const struct stat& status, bool precise) {
  FileStamp stamp(status);
  stamp.stable |= precise;
  return last_ = std::make_shared<const DomainReading>(
             DomainReading{std::move(entries), stamp, checksum});
}

}  // namespace foundation
