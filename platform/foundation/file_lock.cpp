#include "platform/foundation/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <thread>

namespace foundation {
namespace {

using platform::Result;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::microseconds kFirstPause{50}, kLongestPause{5000};

// As /proc/locks names a file.
std::string placeOf(const Descriptor& file) {
  struct stat status {};
  if (fstat(file.number(), &status) != 0) return {};
  char place[64];
  std::snprintf(place, sizeof place, "%02x:%02x:%ju", major(status.st_dev), minor(status.st_dev),
                static_cast<std::uintmax_t>(status.st_ino));
  return place;
}

// " (NAME, process ID)" of the process that has locked the file, or empty.
std::string holderOf(const Descriptor& file) {
  const std::string wanted = placeOf(file);
  std::ifstream locks("/proc/locks");
  for (std::string line; std::getline(locks, line);) {
    std::istringstream fields(line);
    std::string number, type, mode, access, place;
    long process = 0;
    if (!(fields >> number >> type >> mode >> access >> process >> place)) continue;
    if (type != "FLOCK" || place != wanted || process <= 0) continue;
    const std::string id = std::to_string(process);
    std::string name;
    std::getline(std::ifstream("/proc/" + id + "/comm"), name);
    return " (" + (name.empty() ? "" : name + ", ") + "process " + id + ")";
  }
  return {};
}

// Whether the file is still the one of that name: another program may have removed it.
Result<bool> isNamed(const Directory& folder, const std::string& name, const Descriptor& file) {
  struct stat held {
  }, named{};
  if (fstat(file.number(), &held) != 0) return folder.error(name, errno, "lock");
  if (fstatat(folder.descriptor(), name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0)
    return held.st_ino == named.st_ino && held.st_dev == named.st_dev;
  if (errno == ENOENT) return false;
  return folder.error(name, errno, "lock");
}

// A process that waits has a read lock of its own kind on the file, which the flock knows nothing
// of; closing the file ends it.
struct flock wholeFile(short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  return lock;
}

void showWaiting(const Descriptor& file) {
  struct flock lock = wholeFile(F_RDLCK);
  fcntl(file.number(), F_OFD_SETLK, &lock);
}

}  // namespace

bool isWaitedFor(const Descriptor& lock) {
  struct flock other = wholeFile(F_WRLCK);
  return fcntl(lock.number(), F_OFD_GETLK, &other) == 0 && other.l_type != F_UNLCK;
}

std::string lockName(const std::string& name) {
  return "." + name + ".lock";
}

Result<Descriptor> takeLock(const Directory& folder, const std::string& name,
                            std::chrono::milliseconds patience, std::string_view what) {
  const std::string lock = lockName(name);
  const auto deadline = Clock::now() + patience;
  for (Clock::duration pause = kFirstPause;;
       pause = std::min<Clock::duration>(2 * pause, kLongestPause)) {
    Descriptor file(openat(folder.descriptor(), lock.c_str(),
                           O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                           0600));
    if (!file) return folder.error(lock, errno, "lock");
    if (flock(file.number(), LOCK_EX | LOCK_NB) == 0) {
      const auto named = isNamed(folder, lock, file);
      if (!named) return named.error();
      if (*named) return file;
    } else if (errno != EWOULDBLOCK && errno != EINTR) {
      return folder.error(lock, errno, "lock");
    }
    const auto left = deadline - Clock::now();
    if (left <= Clock::duration::zero())
      return folder.error(name, 0, "another program holds " + std::string(what) + holderOf(file));
    showWaiting(file);
    std::this_thread::sleep_for(std::min(pause, left));
  }
}

}  // namespace foundation
