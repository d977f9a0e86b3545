#include "platform/foundation/removal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/foundation/directory.h"

namespace foundation {

int removeEntry(int folder, const std::string& name, Folders folders) {
  if (unlinkat(folder, name.c_str(), 0) == 0) return 0;
  if (errno != EISDIR || folders == Folders::Refuse) return errno;
  Descriptor descriptor(
      openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!descriptor) return errno;
  const Directory inner(std::move(descriptor), name);
  const auto entries = inner.names();
  if (!entries) return entries.error().code;
  for (const std::string& entry : *entries)
    if (const int code = removeEntry(inner.descriptor(), entry, folders)) return code;
  return unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0 ? 0 : errno;
}

}  // namespace foundation
