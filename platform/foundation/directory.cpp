#include "platform/foundation/directory.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string_view>

#include "platform/foundation/file_reading.h"

namespace foundation {

Directory::Directory(Descriptor descriptor, std::string path)
    : descriptor_(std::move(descriptor)), path_(std::move(path)) {
  while (path_.size() > 1 && path_.back() == '/') path_.pop_back();
}

platform::Error Directory::error(const std::string& name, int code, std::string what) const {
  return {path_ == "/" ? path_ + name : path_ + "/" + name, code, std::move(what), {}};
}

platform::Result<std::vector<std::string>> Directory::names() const {
  const int own = openat(descriptor(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (own < 0) return platform::Error{path_, errno};
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(fdopendir(own), closedir);
  if (!stream) {
    const platform::Error failure{path_, errno};
    close(own);
    return failure;
  }

  std::vector<std::string> names;
  for (;;) {
    errno = 0;
    const dirent* entry = readdir(stream.get());
    if (!entry && errno != 0) return platform::Error{path_, errno};
    if (!entry) return names;
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
}

platform::Result<plist::Bytes> Directory::read(const std::string& name,
                                               std::vector<std::uint8_t>& buffer) const {
  const Descriptor file = openBelow(descriptor(), name, O_RDONLY, Resolve::Beneath);
  if (!file) return error(name, errno);
  const auto status = statRegular(file, name);
  if (!status) return error(name, status.error().code, status.error().what);
  const auto length = readWhole(file, static_cast<std::size_t>(status->st_size), buffer, name);
  if (!length) return error(name, length.error().code, length.error().what);
  return plist::Bytes(buffer.data(), *length);
}

std::optional<std::uint64_t> Directory::size(const std::string& name) const {
  struct stat status {};
  if (fstatat(descriptor(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return std::nullopt;
  return static_cast<std::uint64_t>(status.st_size);
}

int Directory::remove(const std::string& name, Folders folders) const {
  if (unlinkat(descriptor(), name.c_str(), 0) == 0) return 0;
  if (errno != EISDIR || folders == Folders::Refuse) return errno;
  Descriptor opened(
      openat(descriptor(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!opened) return errno;
  const Directory inner(std::move(opened), name);
  const auto entries = inner.names();
  if (!entries) return entries.error().code;
  for (const std::string& entry : *entries)
    if (const int code = inner.remove(entry, folders)) return code;
  return unlinkat(descriptor(), name.c_str(), AT_REMOVEDIR) == 0 ? 0 : errno;
}

}  // namespace foundation
