#include "platform/foundation/durable_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/random.h>

#include <algorithm>
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

std::string randomSuffix() {
  std::uint8_t random[kSuffixDigits] = {};
  // Should the system have no randomness to give, the exclusive creation still keeps it safe.
  [[maybe_unused]] const ssize_t given = getrandom(random, sizeof random, GRND_NONBLOCK);
  std::string suffix;
  for (const std::uint8_t byte : random)
    suffix += plist::kHexDigits[byte % plist::kHexDigits.size()];
  return suffix;
}

bool isTemporaryOf(std::string_view candidate, std::string_view prefix) {
  if (!candidate.starts_with(prefix)) return false;
  const std::string_view suffix = candidate.substr(prefix.size());
  return suffix.size() == kSuffixDigits &&
         suffix.find_first_not_of(plist::kHexDigits) == std::string_view::npos;
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
    const std::string candidate = temporaryPrefix(name_) + randomSuffix();
    file_ = Descriptor(openat(folder_->descriptor(), candidate.c_str(),
                              O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (file_) {
      temporary_ = candidate;
      return Done{};
    }
    if (errno != EEXIST) break;
  }
  return folder_->error(name_, errno, "create");
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
  if (!file_.close()) return folder_->error(name_, errno, "close");
  const int folder = folder_->descriptor();
  if (renameat(folder, temporary_.c_str(), folder, name_.c_str()) != 0)
    return folder_->error(name_, errno, "rename");
  temporary_.clear();
  return Done{};
}

Result<Done> flushFolder(const Directory& folder) {
  if (fsync(folder.descriptor()) != 0)
    return Error{folder.path(), errno, "flush"}.as(platform::ErrorKind::Unconfirmed);
  return Done{};
}

void removeLeftovers(const Directory& folder, const std::string& name) {
  const auto names = folder.names();
  if (!names) return;
  const std::string prefix = temporaryPrefix(name);
  for (const std::string& candidate : *names) {
    if (isTemporaryOf(candidate, prefix)) unlinkat(folder.descriptor(), candidate.c_str(), 0);
  }
}

}  // namespace foundation
