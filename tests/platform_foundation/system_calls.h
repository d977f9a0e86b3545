#pragma once

#include <functional>
#include <string>
#include <vector>

// The library's fsync, renameat, renameat2 and fstat pass through here: the first two are noted in
// order, by file name, and all fail on request.
namespace foundation::test {

struct SystemCalls {
  std::vector<std::string> log;  // "fsync file", "rename old new"; temporary names as "*"
  int failFsync = 0;             // which one from now fails with EIO: 1 the next, 0 none
  int failRename = 0;
  std::function<void()> atNextFsync;  // what another process does just before it
  bool failFstat = false;             // each of them, with EIO
  bool coarseClock = false;           // as if the file system's clock ticked every 2 s
};

SystemCalls& systemCalls();

}  // namespace foundation::test
