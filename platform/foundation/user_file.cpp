#include "platform/foundation/user_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

#include "platform/foundation/file_reading.h"
#include "platform/foundation/text.h"

namespace foundation {
namespace {

using platform::Done;
using platform::Error;
using platform::Result;

constexpr std::size_t kFirstBlock = 1 << 16;

Result<Done> overwrite(const std::string& path, plist::Bytes bytes) {
  // Without O_NONBLOCK a FIFO would wait for its reader; what is written then may be more than it
  // takes at once.
  Descriptor file(open(path.c_str(), O_WRONLY | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file && errno == ENXIO) return Error{.path = path, .what = "nobody reads it"};
  if (!file || fcntl(file.number(), F_SETFL, 0) != 0 || !writeWhole(file.number(), bytes) ||
      !file.close())
    return Error{path, errno};
  return Done{};
}

Result<Done> place(const std::filesystem::path& target, plist::Bytes bytes, Existing existing) {
  const std::string parent = target.parent_path();
  Descriptor opened(open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  const bool canFlush = static_cast<bool>(opened);
  if (!opened) opened = Descriptor(open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!opened) return Error{parent, errno};
  const Directory folder(std::move(opened), parent);
  removeLeftovers(folder, target.filename());
  auto pending = PendingFile::write(folder, target.filename(), bytes, 0666);
  if (!pending) return pending.error();
  if (const auto placed = pending->place(existing); !placed) return placed;
  return canFlush ? flushFolder(folder) : Result<Done>(Done{});
}

Result<std::vector<std::uint8_t>> read(const Descriptor& file, const std::string& name) {
  std::vector<std::uint8_t> bytes(kFirstBlock);
  const auto length = readWhole(file, kUnknownSize, bytes, name);
  if (!length) return length.error();
  bytes.resize(*length);
  return bytes;
}

}  // namespace

Result<std::vector<std::uint8_t>> readUserFile(const std::string& path) {
  if (path == kStandardStream)
    return read(Descriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)), "standard input");
  // Without O_NONBLOCK a FIFO would wait for its writer.
  const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file) return Error{path, errno};
  if (const auto regular = statRegular(file, path); !regular) return regular.error();
  return read(file, path);
}

Result<Done> writeUserFile(const std::string& path, plist::Bytes bytes, Existing existing) {
  struct stat status {};
  const bool exists = stat(path.c_str(), &status) == 0;
  if (!exists && errno != ENOENT) return Error{path, errno};
  if (exists && !S_ISREG(status.st_mode)) return overwrite(path, bytes);
  if (exists && existing == Existing::Keep) return Error{path, EEXIST};
  std::error_code unresolved;
  const auto absolute = std::filesystem::absolute(path, unresolved);
  if (unresolved) return Error{path, unresolved.value()};
  const auto target = std::filesystem::weakly_canonical(absolute, unresolved);  // through links
  if (unresolved) return Error{path, unresolved.value()};
  const auto placed = place(target, bytes, existing);
  if (!placed) return Error{path, placed.error().code, placed.error().what}.as(placed.error().kind);
  return Done{};
}

void occupyStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(stream, F_GETFD) < 0) static_cast<void>(open("/", O_PATH));
}

std::string absolutePath(const std::string& path) {
  std::error_code unresolved;
  std::string absolute = std::filesystem::absolute(path, unresolved).lexically_normal();
  if (unresolved) return path;
  if (absolute.size() > 1 && absolute.ends_with('/')) absolute.pop_back();
  return absolute;
}

Result<Done> writeStream(Stream stream, std::string_view text, Controls controls) {
  std::string visible;
  if (controls == Controls::Escaped && isatty(static_cast<int>(stream)))
    text = visible = visibleText(text);
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  if (writeWhole(static_cast<int>(stream), {bytes, text.size()})) return Done{};
  return Error{stream == Stream::Output ? "standard output" : "standard error", errno};
}

}  // namespace foundation
