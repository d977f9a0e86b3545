#include "platform/foundation/directory_walk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/url.h"

namespace foundation {
namespace {

constexpr std::size_t kOpenFolders = 64;

Descriptor openFolder(const Descriptor& parent, const char* name) {
  return Descriptor(openat(parent.number(), name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

struct Identity {
  dev_t device;
  ino_t inode;
  bool operator==(const Identity&) const = default;
};

std::optional<Identity> identityOf(const Descriptor& folder) {
  struct stat status {};
  if (fstat(folder.number(), &status) != 0) return std::nullopt;
  return Identity{status.st_dev, status.st_ino};
}

constexpr std::size_t kBufferSize = 64 * 1024;

// The names of a folder, each after a character that is its d_type and before a zero byte.
std::string entriesOf(const Descriptor& folder, char* buffer) {
  std::string entries;
  for (;;) {
    const ssize_t length = getdents64(folder.number(), buffer, kBufferSize);
    if (length <= 0) return entries;
    for (ssize_t at = 0; at < length;) {
      const auto* entry = reinterpret_cast<const dirent64*>(buffer + at);
      at += entry->d_reclen;
      const char* name = entry->d_name;
      if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) continue;
      entries += static_cast<char>(entry->d_type);
      entries.append(name, std::strlen(name) + 1);
    }
  }
}

class Walk {
 public:
  Walk(std::string url, const Visit& visit) : url_(std::move(url)), visit_(visit) {}

  void run(Descriptor start) {
    enter(std::move(start));
    while (!levels_.empty()) {
      Level& level = levels_.back();
      if (level.next == level.entries.size())
        leave();
      else
        takeNext(level);
    }
  }

 private:
  struct Level {
    Descriptor folder;
    Identity identity;
    std::string entries;
    std::size_t next, urlLength;
  };

  void takeNext(Level& level) {
    const auto type = static_cast<unsigned char>(level.entries[level.next]);
    const char* name = level.entries.c_str() + level.next + 1;
    const std::size_t length = std::strlen(name);
    level.next += length + 2;
    const auto isDirectory = tellDirectory(level.folder, name, type);
    if (!isDirectory) return;
    url_.resize(level.urlLength);
    appendEscapedPath(url_, {name, length});
    if (*isDirectory) url_ += '/';
    visit_(url_, *isDirectory);
    if (*isDirectory) enter(openFolder(level.folder, name));
  }

  static std::optional<bool> tellDirectory(const Descriptor& folder, const char* name,
                                           unsigned char type) {
    if (type != DT_UNKNOWN) return type == DT_DIR;
    struct stat status {};
    if (fstatat(folder.number(), name, &status, AT_SYMLINK_NOFOLLOW) != 0) return std::nullopt;
    return S_ISDIR(status.st_mode);
  }

  void enter(Descriptor folder) {
    const auto identity = folder ? identityOf(folder) : std::nullopt;
    if (!identity) return;
    if (!levels_.empty() && identity->device != levels_.front().identity.device) return;
    std::string entries = entriesOf(folder, buffer_.get());
    levels_.push_back({std::move(folder), *identity, std::move(entries), 0, url_.size()});
    // However deep the tree is, few folders stay open; leave() comes back to the others.
    if (levels_.size() > kOpenFolders) levels_[levels_.size() - 1 - kOpenFolders].folder.close();
  }

  void leave() {
    const Descriptor left = std::move(levels_.back().folder);
    levels_.pop_back();
    if (levels_.empty() || levels_.back().folder) return;
    Descriptor parent = openFolder(left, "..");
    // The folder may have been moved meanwhile.
    if (parent && identityOf(parent) == levels_.back().identity)
      levels_.back().folder = std::move(parent);
  }

  // Aligned for any dirent64.
  std::unique_ptr<char[]> buffer_ = std::make_unique_for_overwrite<char[]>(kBufferSize);
  std::vector<Level> levels_;
  std::string url_;
  const Visit& visit_;
};

}  // namespace

void walkDirectory(const DeviceRoot& root, const FallbackFolder& fallback, std::string_view path,
                   const Visit& visit) {
  auto folder = openWithFallback(root, fallback, path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
  if (!folder) return;
  std::string url = "file://";
  appendEscapedPath(url, path);
  if (!url.ends_with('/')) url += '/';
  Walk(std::move(url), visit).run(std::move(*folder));
}

}  // namespace foundation
