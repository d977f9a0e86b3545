#include "platform/foundation/file_error.h"

#include <cerrno>
#include <system_error>

namespace foundation {
namespace {

// In words that fit what the code means to the callers here, else in the system's own.
std::string wordsFor(int code) {
  switch (code) {
    case ENOSYS:
      return "the kernel is too old (Linux 5.6 or later is needed)";
    case EXDEV:
      return "a link that leads out of its folder";
    case ENXIO:
      return "not a regular file";
  }
  return std::generic_category().message(code);
}

}  // namespace

std::string FileError::message() const {
  std::string message = path;
  if (!detail.empty()) message += ": " + detail;
  if (code != 0) message += ": " + wordsFor(code);
  return message;
}

}  // namespace foundation
