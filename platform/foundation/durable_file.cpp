#include "platform/foundation/durable_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <string_view>

#include "platform/foundation/file_reading.h"
#include "platform/plist/hexadecimal.h"

namespace foundation {
namespace {

using platform::Done;
using platform::Error;
using platform::Result;

constexpr std::size_t kSuffixDigits = 16;
constexpr int kAttempts = 16;

std::string temporaryPrefix(const std::string& name) {
  return "." + name + ".";
}

// Different in every process and at every call. Should the system have no randomness to give, the
// exclusive creation still keeps it safe.
std::string nextSuffix() {
  static std::atomic<std::uint64_t> next = [] {
    std::uint64_t random = 0;
    [[maybe_unused]] const ssize_t given = getrandom(&random, sizeof random, GRND_NONBLOCK);
    return random;
  }();
  std::string suffix;
  const std::uint64_t number = next++;
  for (int shift = 56; shift >= 0; shift -= 8)
    plist::appendHex(suffix, static_cast<std::uint8_t>(number >> shift));
  return suffix;
}

bool isTemporary(std::string_view candidate) {
  if (candidate.size() <= temporaryPrefix("").size() + kSuffixDigits) return false;
  const std::size_t end = candidate.size() - kSuffixDigits;
  return candidate.starts_with('.') && candidate[end - 1] == '.' &&
         candidate.find_first_not_of(plist::kHexDigits, end) == std::string_view::npos;
}

// Its writer's lock ends with the writer.
void removeUnlessLocked(const Directory& folder, const std::string& temporary) {
  const Descriptor file(openat(folder.descriptor(), temporary.c_str(),
                               O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (file && flock(file.number(), LOCK_EX | LOCK_NB) == 0)
    unlinkat(folder.descriptor(), temporary.c_str(), 0);
}

}  // namespace

PendingFile::PendingFile(const Directory& folder, std::string name)
    : folder_(&folder), name_(std::move(name)) {}

PendingFile::PendingFile(PendingFile&& other) noexcept
    : folder_(other.folder_),
      name_(std::move(other.name_)),
      temporary_(std::exchange(other.temporary_, {})),
      file_(std::move(other.file_)),
      flushed_(other.flushed_) {}

PendingFile::~PendingFile() {
  if (!temporary_.empty()) unlinkat(folder_->descriptor(), temporary_.c_str(), 0);
}

Result<PendingFile> PendingFile::write(const Directory& folder, const std::string& name,
                                       plist::Bytes bytes, unsigned mode) {
  PendingFile pending(folder, name);
  const auto created = pending.create(mode);
  if (!created) return created.error();
  const auto filled = pending.fill(bytes);
  if (!filled) return filled.error();
  return pending;
}

Result<Done> PendingFile::create(unsigned mode) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const std::string candidate = temporaryPrefix(name_) + nextSuffix();
    file_ = Descriptor(openat(folder_->descriptor(), candidate.c_str(),
                              O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (!file_ && errno != EEXIST) break;
    if (!file_ || !lock()) continue;
    temporary_ = candidate;
    return Done{};
  }
  return folder_->error(name_, errno, "create");
}

// False when another process takes the new file for a leftover and removes it. A file system
// without locks lets nobody remove anything.
bool PendingFile::lock() {
  if (flock(file_.number(), LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
  struct stat status {};
  return fstat(file_.number(), &status) != 0 || status.st_nlink > 0;
}

Result<Done> PendingFile::fill(plist::Bytes bytes) {
  if (!writeWhole(file_.number(), bytes)) return folder_->error(name_, errno, "write");
  return Done{};
}

Result<Done> PendingFile::flush() {
  if (fsync(file_.number()) != 0) return folder_->error(name_, errno, "flush");
  flushed_ = true;
  return Done{};
}

Result<Done> PendingFile::replaceTarget() {
  if (!flushed_)
    if (const auto flushed = flush(); !flushed) return flushed;
  const int folder = folder_->descriptor();
  if (renameat(folder, temporary_.c_str(), folder, name_.c_str()) != 0)
    return folder_->error(name_, errno, "rename");
  temporary_.clear();
  return Done{};
}

Result<Done> PendingFile::takeName() {
  if (!flushed_)
    if (const auto flushed = flush(); !flushed) return flushed;
  return takeNameUnflushed();
}

Result<Done> PendingFile::takeNameUnflushed() {
  const int folder = folder_->descriptor();
  int code = 0;
  if (renameat2(folder, temporary_.c_str(), folder, name_.c_str(), RENAME_NOREPLACE) != 0)
    code = errno;
  if (code == 0) temporary_.clear();
  // Not every file system can do it; a second name of the same file does as well.
  if (code == EINVAL || code == ENOSYS)
    code = linkat(folder, temporary_.c_str(), folder, name_.c_str(), 0) == 0 ? 0 : errno;
  if (code != 0) return folder_->error(name_, code, "rename");
  return Done{};
}

Result<Done> PendingFile::place(Existing existing) {
  return existing == Existing::Overwrite ? replaceTarget() : takeName();
}

Result<Done> flushFolder(const Directory& folder) {
  if (fsync(folder.descriptor()) != 0)
    return Error{folder.path(), errno, "flush"}.as(platform::ErrorKind::Unconfirmed);
  return Done{};
}

void removeLeftovers(const Directory& folder, const std::string& name) {
  auto names = folder.names();
  if (!names) return;
  const std::string prefix = temporaryPrefix(name);
  std::erase_if(*names, [&](const std::string& other) {
    return other.size() != prefix.size() + kSuffixDigits || !other.starts_with(prefix);
  });
  removeLeftovers(folder, *names);
}

void removeLeftovers(const Directory& folder) {
  if (const auto names = folder.names()) removeLeftovers(folder, *names);
}

void removeLeftovers(const Directory& folder, const std::vector<std::string>& names) {
  for (const std::string& name : names)
    if (isTemporary(name)) removeUnlessLocked(folder, name);
}

}  // namespace foundation
