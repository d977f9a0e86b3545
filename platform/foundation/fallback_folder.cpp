#include "platform/foundation/fallback_folder.h"

#include <fcntl.h>

#include <cerrno>

#include "platform/foundation/file_reading.h"

namespace foundation {
namespace {

bool isAtOrBelow(std::string_view path, std::string_view folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

}  // namespace

platform::Result<Descriptor> openWithFallback(const DeviceRoot& root,
                                              const FallbackFolder& fallback, std::string_view path,
                                              int flags) {
  auto opened = root.open(path, flags);
  if (opened || fallback.path.empty() || !isAtOrBelow(path, fallback.path)) return opened;
  const auto own = root.open(fallback.path, O_PATH);
  if (own || own.error().code != ENOENT) return opened;

  const Descriptor folder(
      ::open(fallback.machineDirectory.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder) return platform::Error{std::string(path), errno};
  std::string below = ".";
  below += path.substr(fallback.path.size());
  Descriptor found = openBelow(folder.number(), below, flags, Resolve::InRoot);
  if (!found) return platform::Error{std::string(path), errno};
  return found;
}

}  // namespace foundation
