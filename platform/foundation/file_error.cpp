#include "platform/foundation/file_error.h"

#include <cerrno>
#include <system_error>

namespace foundation {

std::string FileError::message() const {
  std::string message = path;
  if (!detail.empty()) message += ": " + detail;
  if (code == ENOSYS) return message + ": the kernel is too old (Linux 5.6 or later is needed)";
  if (code != 0) message += ": " + std::generic_category().message(code);
  return message;
}

}  // namespace foundation
