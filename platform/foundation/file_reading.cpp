#include "platform/foundation/file_reading.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>

namespace foundation {
namespace {

platform::Error tooLarge(const std::string& path, const std::string& size) {
  return {path, EFBIG, size + " bytes, at most " + std::to_string(kLargestFile) + " are read"};
}

}  // namespace

Descriptor openBelow(int folder, const std::string& path, int flags, Resolve resolve) {
  if (path.find('\0') != std::string::npos) return errno = EINVAL, Descriptor();
  open_how how{};
  how.flags = static_cast<std::uint64_t>(flags | O_CLOEXEC);
  if (!(flags & O_PATH)) how.flags |= O_NONBLOCK | O_NOCTTY;
  how.resolve = RESOLVE_NO_MAGICLINKS;
  how.resolve |= resolve == Resolve::InRoot ? RESOLVE_IN_ROOT : RESOLVE_BENEATH;
  // EAGAIN: something on the way of a ".." was renamed meanwhile, so the kernel doesn't know.
  for (int attempt = 0; attempt < 100; ++attempt) {
    const long opened = syscall(SYS_openat2, folder, path.c_str(), &how, sizeof how);
    if (opened >= 0) return Descriptor(static_cast<int>(opened));
    if (errno != EAGAIN && errno != EINTR) break;
  }
  return Descriptor();
}

platform::Result<struct stat> statRegular(const Descriptor& file, const std::string& path) {
  struct stat status {};
  if (fstat(file.number(), &status) != 0) return platform::Error{path, errno};
  if (S_ISDIR(status.st_mode)) return platform::Error{path, EISDIR};
  if (!S_ISREG(status.st_mode)) return platform::Error{path, 0, "not a regular file"};
  if (static_cast<std::uint64_t>(status.st_size) > kLargestFile)
    return tooLarge(path, std::to_string(status.st_size));
  return status;
}

platform::Result<std::size_t> readWhole(const Descriptor& file, std::size_t size,
                                        std::vector<std::uint8_t>& buffer,
                                        const std::string& path) {
  std::size_t length = 0;
  // One byte more than the file should have: a short read is then its end, without a second one.
  if (buffer.size() < size + 1) buffer.resize(size + 1);
  for (;;) {
    const std::size_t space = buffer.size() - length;
    const ssize_t count = read(file.number(), buffer.data() + length, space);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return platform::Error{path, errno};
    length += static_cast<std::size_t>(count);
    if (length > kLargestFile) return tooLarge(path, "more than " + std::to_string(kLargestFile));
    const bool mayEnd = size != kUnknownSize && length >= size;
    if (count == 0 || (mayEnd && static_cast<std::size_t>(count) < space)) return length;
    if (length == buffer.size()) buffer.resize(std::min<std::size_t>(2 * length, kLargestFile + 1));
  }
}

bool writeWhole(int file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(file, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace foundation
