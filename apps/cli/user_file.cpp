#include "apps/cli/user_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

namespace cli {
namespace {

struct Close {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

Failure failed(const std::string& path) {
  return {ExitCode::Failed, path + ": " + std::strerror(errno)};
}

// Closed too, as a full disk may only then be reported.
bool writeAndClose(File file, Bytes bytes, bool durable) {
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
                       std::fflush(file.get()) == 0 && (!durable || fsync(fileno(file.get())) == 0);
  const int code = errno;
  const bool closed = std::fclose(file.release()) == 0;
  if (!written) errno = code;
  return written && closed;
}

// Written in full under another name beside it, so that nobody sees half of it.
Outcome<Done> replace(const std::string& path, Bytes bytes) {
  const std::string temporary = path + ".new-" + std::to_string(getpid());
  File file(std::fopen(temporary.c_str(), "wxe"));
  if (!file) return failed(path);
  if (writeAndClose(std::move(file), bytes, true) &&
      std::rename(temporary.c_str(), path.c_str()) == 0)
    return Done{};
  const Failure failure = failed(path);
  unlink(temporary.c_str());
  return failure;
}

}  // namespace

Outcome<std::vector<std::uint8_t>> readUserFile(const std::string& path) {
  const File file(std::fopen(path.c_str(), "re"));
  if (!file) return failed(path);
  std::vector<std::uint8_t> bytes;
  std::uint8_t block[1 << 16];
  while (const std::size_t count = std::fread(block, 1, sizeof block, file.get()))
    bytes.insert(bytes.end(), block, block + count);
  if (std::ferror(file.get())) return failed(path);
  return bytes;
}

Outcome<Done> writeUserFile(const std::string& path, Bytes bytes) {
  struct stat status {};
  const bool exists = stat(path.c_str(), &status) == 0;
  if (!exists && errno != ENOENT) return failed(path);
  if (exists && !S_ISREG(status.st_mode)) {
    File file(std::fopen(path.c_str(), "we"));
    if (!file || !writeAndClose(std::move(file), bytes, false)) return failed(path);
    return Done{};
  }
  std::error_code error;
  const auto target = std::filesystem::weakly_canonical(path, error);  // through links
  return replace(error ? path : target.string(), bytes);
}

}  // namespace cli
