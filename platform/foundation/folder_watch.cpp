#include "platform/foundation/folder_watch.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <utility>

namespace foundation {
namespace {

constexpr std::uint32_t kEvents = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM |
                                  IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
constexpr std::uint32_t kOfTheFolderItself = IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED;

// "/a/b/" is "/", "a", "b".
std::vector<std::string> partsOf(const std::string& path) {
  std::vector<std::string> parts;
  for (const auto& part : std::filesystem::path(path))
    if (!part.empty() && part != "/") parts.push_back(part);
  return parts;
}

}  // namespace

FolderWatch::FolderWatch(const DeviceRoot& root, std::vector<std::string> folders)
    : root_(root), folders_(std::move(folders)), queue_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (!queue_) failure_ = platform::Error{.code = errno, .what = "inotify_init1"};
  followAll();
}

// What doesn't lead to a folder any more is not watched any more.
void FolderWatch::followAll() {
  const auto before = std::exchange(interests_, {});
  for (const std::string& folder : folders_) follow(folder);
  for (const auto& [watch, interests] : before)
    if (!interests_.contains(watch)) inotify_rm_watch(queue_.number(), watch);
}

// By its descriptor, so that links count as DeviceRoot takes them.
bool FolderWatch::add(int directory, const Interest& interest) {
  const std::string path = "/proc/self/fd/" + std::to_string(directory);
  const int watch = inotify_add_watch(queue_.number(), path.c_str(), kEvents);
  if (watch < 0 && errno == ENOENT) return false;  // it has gone since it was opened
  if (watch < 0) {
    failure_ = platform::Error{interest.folder, errno, "inotify_add_watch"};
    return false;
  }
  interests_[watch].push_back(interest);
  return true;
}

// Each folder is watched before the next one is looked for: one that is made in between is seen.
void FolderWatch::follow(const std::string& folder) {
  if (!queue_) return;
  if (!root_.exists("/")) return followRootOf(folder);
  const auto parts = partsOf(folder);
  std::string path = "/";
  for (std::size_t i = 0; i <= parts.size(); ++i) {
    const auto directory = root_.open(path, O_PATH | O_DIRECTORY);
    if (!directory) return;
    const std::string next = i < parts.size() ? parts[i] : "";
    if (!add(directory->number(), {folder, next})) return;
    path += next + "/";
  }
}

// The nearest folder of this machine in which the root may be made.
void FolderWatch::followRootOf(const std::string& folder) {
  std::error_code unknown;
  auto path = std::filesystem::absolute(root_.directory(), unknown);
  while (path.has_relative_path()) {
    const std::string next = path.filename();
    path = path.parent_path();
    const Descriptor directory(::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!directory) continue;
    if (add(directory.number(), {folder, next}) && root_.exists("/")) follow(folder);
    return;
  }
}

// A link, and what gets a second name, is there at once.
bool FolderWatch::isNewAndEmpty(const std::string& folder, const std::string& name) const {
  const auto file = root_.open(folder + "/" + name, O_PATH | O_NOFOLLOW);
  struct stat status {};
  return file && fstat(file->number(), &status) == 0 && S_ISREG(status.st_mode) &&
         status.st_size == 0;
}

std::set<std::string> FolderWatch::takeChanges() {
  std::set<std::string> changed;
  bool moved = false;
  alignas(inotify_event) char events[4096];
  for (;;) {
    const ssize_t size = ::read(queue_.number(), events, sizeof events);
    if (size <= 0) break;
    for (const char* at = events; at < events + size;) {
      const auto* event = reinterpret_cast<const inotify_event*>(at);
      at += sizeof(inotify_event) + event->len;
      if (event->mask & IN_Q_OVERFLOW) {
        changed.insert(folders_.begin(), folders_.end());
        moved = true;
      }
      const auto found = interests_.find(event->wd);
      if (found == interests_.end()) continue;
      const std::string name = event->len > 0 ? event->name : "";
      for (const auto& [folder, next] : found->second) {
        const bool itself = event->mask & kOfTheFolderItself;
        const bool within = !itself && next.empty();
        if (!itself && !next.empty() && next != name) continue;
        if (within && name.starts_with('.')) continue;
        if (within && event->mask & IN_CREATE && isNewAndEmpty(folder, name)) continue;
        changed.insert(folder);
        moved = moved || !within;
      }
      if (event->mask & IN_IGNORED) interests_.erase(found);
    }
  }
  if (moved) followAll();
  return changed;
}

}  // namespace foundation
