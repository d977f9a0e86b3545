#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/directory.h"
#include "platform/foundation/durable_file.h"
#include "platform/plist/binary.h"
#include "platform/result.h"

namespace foundation {

// How a path is opened whose last component is a symbolic link: those before it are followed in
// any case.
enum class Links { Follow, Refuse };

// The folder below which every absolute platform path ("/var/mobile/...") is looked up, and never
// outside it: "..", and symbolic links, absolute or relative, are resolved as if the root were "/"
// (openat2 with RESOLVE_IN_ROOT; a kernel without it is an error, ENOSYS). A missing root is not
// an error for reading; it is made, mode 0700, by the first write.
class DeviceRoot {
 public:
  explicit DeviceRoot(std::string directory);

  const std::string& directory() const { return directory_; }  // on this machine

  // A regular file, whole. FIFOs, devices, folders are errors, none of which blocks the call; so
  // is a file of more than 64 MB (EFBIG), and with Links::Refuse a symbolic link (ELOOP).
  platform::Result<std::vector<std::uint8_t>> read(std::string_view path,
                                                   Links links = Links::Follow) const;
  // Whatever it is; a link that leads nowhere doesn't exist.
  bool exists(std::string_view path) const;
  // Whether the name is taken, if only by a link that leads nowhere.
  bool hasEntry(std::string_view path) const;

  platform::Result<Directory> openDirectory(std::string_view path) const;
  // Names in a folder, without "." and "..", in directory order.
  platform::Result<std::vector<std::string>> contentsOfDirectory(std::string_view path) const;

  // With intermediates, all 0700, durable; done already where the folder is there.
  platform::Result<platform::Done> createDirectory(std::string_view path);
  platform::Result<Directory> openOrCreateDirectory(std::string_view path);

  // A new file, mode 0600, in missing folders if need be, in place of the file or link that is
  // there; a folder of that name is an error (EISDIR) and stays. After a crash there is the old one
  // or the new one, whole, and once this says done it is the new one. On an error the old one is
  // there still, unless the error is of the kind Unconfirmed: the new one is there then.
  // With Existing::Keep a name that is taken, by whatever and whoever took it meanwhile, is an
  // error (EEXIST). Leftovers of killed writers of the folder are removed.
  platform::Result<platform::Done> writeDurably(std::string_view path, plist::Bytes bytes,
                                                Existing existing = Existing::Overwrite);

  // A file or a link (not what it leads to), durably; a folder with all that it holds, or EISDIR.
  // An error of the kind Unconfirmed: it is gone.
  platform::Result<platform::Done> remove(std::string_view path, Folders folders = Folders::Refuse);

  // An open file or folder; `flags` are those of open(2), without O_CREAT.
  platform::Result<Descriptor> open(std::string_view path, int flags) const;

 private:
  struct Place;
  platform::Result<Place> placeFor(std::string_view path);  // of a new entry

  std::string directory_;
};

}  // namespace foundation
