#include "apps/cli/user_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/file_reading.h"

namespace cli {
namespace {

using foundation::Descriptor;

constexpr mode_t kNewFile = 0666;  // less the user's mask

Failure failed(const std::string& path) {
  return {ExitCode::Failed, path + ": " + std::strerror(errno)};
}

bool writeAll(int file, plist::Bytes bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

// Written in full under another name beside it, so that nobody sees half of it.
Outcome<Done> replace(const std::string& path, plist::Bytes bytes) {
  const std::string temporary = path + ".new-" + std::to_string(getpid());
  Descriptor file(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFile));
  if (!file) return failed(path);
  if (writeAll(file.number(), bytes) && fsync(file.number()) == 0 && file.close() &&
      rename(temporary.c_str(), path.c_str()) == 0)
    return Done{};
  const Failure failure = failed(path);
  unlink(temporary.c_str());
  return failure;
}

}  // namespace

Outcome<std::vector<std::uint8_t>> readUserFile(const std::string& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file) return failed(path);
  std::vector<std::uint8_t> bytes;
  const auto count = foundation::readWhole(file, 0, bytes, path);
  if (!count) return Failure{ExitCode::Failed, count.error().message()};
  bytes.resize(*count);
  return bytes;
}

Outcome<Done> writeUserFile(const std::string& path, plist::Bytes bytes) {
  struct stat status {};
  const bool exists = stat(path.c_str(), &status) == 0;
  if (!exists && errno != ENOENT) return failed(path);
  if (exists && !S_ISREG(status.st_mode)) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file || !writeAll(file.number(), bytes)) return failed(path);
    return Done{};
  }
  std::error_code error;
  const auto target = std::filesystem::weakly_canonical(path, error);  // through links
  return replace(error ? path : target.string(), bytes);
}

}  // namespace cli
