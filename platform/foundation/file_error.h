#pragma once

#include <string>

namespace foundation {

// Why a file operation failed.
struct FileError {
  std::string path;      // the platform path it was about
  int code = 0;          // the system's error number (errno); 0 when `detail` says it all
  std::string detail{};  // the step that failed ("rename"), or what is wrong with the file

  // "/var/…/x: No such file or directory", "/var/…/x: rename: Disk quota exceeded",
  // "/var/…/x: not a regular file"
  std::string message() const;
};

}  // namespace foundation
