#include "tests/platform_foundation/system_calls.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

namespace foundation::test {
namespace {

std::string shown(const std::string& name) {
  return name.starts_with('.') ? "*" : name;
}

bool shallFail(int& countdown) {
  return countdown > 0 && --countdown == 0;
}

}  // namespace

SystemCalls& systemCalls() {
  static SystemCalls calls;
  return calls;
}

}  // namespace foundation::test

using foundation::test::shallFail;
using foundation::test::shown;
using foundation::test::systemCalls;

extern "C" __attribute__((visibility("default"))) int fsync(int file) {
  const auto path = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file));
  systemCalls().log.push_back("fsync " + shown(path.filename()));
  if (const auto act = std::exchange(systemCalls().atNextFsync, {})) act();
  if (shallFail(systemCalls().failFsync)) return errno = EIO, -1;
  return static_cast<int>(syscall(SYS_fsync, file));
}

extern "C" __attribute__((visibility("default"))) int fstat(int file,
                                                            struct stat* status) noexcept {
  if (systemCalls().failFstat) return errno = EIO, -1;
  const int result = fstatat(file, "", status, AT_EMPTY_PATH);
  if (result == 0 && systemCalls().coarseClock) {
    status->st_mtim = {status->st_mtim.tv_sec & ~1, 0};
    status->st_ctim = {status->st_ctim.tv_sec & ~1, 0};
  }
  return result;
}

extern "C" __attribute__((visibility("default"))) int renameat2(int oldFolder, const char* oldName,
                                                                int newFolder, const char* newName,
                                                                unsigned flags) noexcept {
  systemCalls().log.push_back("rename " + shown(oldName) + " " + newName);
  if (shallFail(systemCalls().failRename)) return errno = EIO, -1;
  return static_cast<int>(syscall(SYS_renameat2, oldFolder, oldName, newFolder, newName, flags));
}

extern "C" __attribute__((visibility("default"))) int renameat(int oldFolder, const char* oldName,
                                                               int newFolder,
                                                               const char* newName) noexcept {
  return renameat2(oldFolder, oldName, newFolder, newName, 0);
}
