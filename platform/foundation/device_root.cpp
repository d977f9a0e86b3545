#include "platform/foundation/device_root.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/foundation/file_reading.h"

namespace foundation {
namespace {

using platform::Done;
using platform::Error;
using platform::Result;

constexpr mode_t kFolderMode = 0700;

struct Location {
  std::string folder, name;
};

Location locate(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) return {"/", std::string(path)};
  return {std::string(path.substr(0, slash + 1)), std::string(path.substr(slash + 1))};
}

bool namesAnEntry(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name.find('\0') == std::string::npos;
}

int makeFolderIn(int parent, const std::string& name) {
  if (mkdirat(parent, name.c_str(), kFolderMode) != 0) return errno == EEXIST ? 0 : errno;
  if (fsync(parent) == 0) return 0;
  // Left there it would be taken for durable by the next call.
  const int code = errno;
  unlinkat(parent, name.c_str(), AT_REMOVEDIR);
  return code;
}

// Outside any root, so links are whatever this machine makes of them.
int makeFolders(const std::string& directory) {
  const Location at = locate(directory);
  const std::string parent = directory.starts_with('/') ? at.folder : "./" + at.folder;
  Descriptor folder(open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder && errno == ENOENT && at.folder != "/") {
    if (const int code = makeFolders(at.folder)) return code;
    folder = Descriptor(open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
  return folder ? makeFolderIn(folder.number(), at.name) : errno;
}

}  // namespace

DeviceRoot::DeviceRoot(std::string directory) : directory_(std::move(directory)) {
  while (directory_.size() > 1 && directory_.back() == '/') directory_.pop_back();
}

Result<Descriptor> DeviceRoot::open(std::string_view path, int flags) const {
  const Descriptor root(::open(directory_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  // A missing root is not an error of its own: nothing is there yet.
  if (!root) return Error{std::string(path), errno, errno == ENOENT ? "" : "the device root"};
  Descriptor file = openBelow(root.number(), std::string(path), flags, Resolve::InRoot);
  if (!file) return Error{std::string(path), errno};
  return file;
}

Result<std::vector<std::uint8_t>> DeviceRoot::read(std::string_view path, Links links) const {
  const auto file = open(path, O_RDONLY | (links == Links::Refuse ? O_NOFOLLOW : 0));
  if (!file) return file.error();
  const auto status = statRegular(*file, std::string(path));
  if (!status) return status.error();
  std::vector<std::uint8_t> bytes;
  const auto length =
      readWhole(*file, static_cast<std::size_t>(status->st_size), bytes, std::string(path));
  if (!length) return length.error();
  bytes.resize(*length);
  return bytes;
}

bool DeviceRoot::exists(std::string_view path) const {
  return static_cast<bool>(open(path, O_PATH));
}

bool DeviceRoot::hasEntry(std::string_view path) const {
  return static_cast<bool>(open(path, O_PATH | O_NOFOLLOW));
}

Result<Directory> DeviceRoot::openDirectory(std::string_view path) const {
  auto folder = open(path, O_RDONLY | O_DIRECTORY);
  if (!folder) return folder.error();
  return Directory(std::move(*folder), std::string(path));
}

Result<std::vector<std::string>> DeviceRoot::contentsOfDirectory(std::string_view path) const {
  const auto folder = openDirectory(path);
  if (!folder) return folder.error();
  return folder->names();
}

Result<Done> DeviceRoot::createDirectory(std::string_view path) {
  if (auto found = open(path, O_PATH | O_DIRECTORY)) return Done{};
  if (access(directory_.c_str(), F_OK) != 0) {
    if (const int code = makeFolders(directory_)) return Error{directory_, code};
  }
  for (std::size_t end = 0; end < path.size();) {
    end = std::min(path.find('/', end + 1), path.size());
    const std::string_view prefix = path.substr(0, end);
    const auto found = open(prefix, O_PATH | O_DIRECTORY);
    if (found) continue;
    if (found.error().code != ENOENT) return found.error();
    const Location at = locate(prefix);
    const auto parent = open(at.folder, O_RDONLY | O_DIRECTORY);
    if (!parent) return parent.error();
    if (const int code = makeFolderIn(parent->number(), at.name)) {
      return Error{std::string(prefix), code};
    }
  }
  const auto made = open(path, O_PATH | O_DIRECTORY);
  if (!made) return made.error();
  return Done{};
}

Result<Directory> DeviceRoot::openOrCreateDirectory(std::string_view path) {
  auto folder = openDirectory(path);
  if (folder || folder.error().code != ENOENT) return folder;
  const auto made = createDirectory(path);
  if (!made) return made.error();
  return openDirectory(path);
}

// The folder, made if need be and free of leftovers, and the name in it.
struct DeviceRoot::Place {
  Directory folder;
  std::string name;
};

Result<DeviceRoot::Place> DeviceRoot::placeFor(std::string_view path) {
  Location at = locate(path);
  if (!namesAnEntry(at.name)) return Error{std::string(path), EINVAL};
  auto folder = openOrCreateDirectory(at.folder);
  if (!folder) return folder.error();
  removeLeftovers(*folder);
  return Place{std::move(*folder), std::move(at.name)};
}

Result<Done> DeviceRoot::writeDurably(std::string_view path, plist::Bytes bytes,
                                      Existing existing) {
  const auto place = placeFor(path);
  if (!place) return place.error();
  auto pending = PendingFile::write(place->folder, place->name, bytes);
  if (!pending) return pending.error();
  const auto placed = pending->place(existing);
  if (!placed) return placed.error();
  return flushFolder(place->folder);
}

Result<Done> DeviceRoot::remove(std::string_view path, Folders folders) {
  const Location at = locate(path);
  if (!namesAnEntry(at.name)) return Error{std::string(path), EINVAL};
  const auto folder = openDirectory(at.folder);
  if (!folder) return Error{std::string(path), folder.error().code};
  if (const int code = folder->remove(at.name, folders)) {
    return Error{std::string(path), code};
  }
  return flushFolder(*folder);
}

}  // namespace foundation
