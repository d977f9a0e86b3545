#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/device_root.h"
#include "platform/plist/value.h"

namespace foundation {

// Reads a property list that isn't binary, or says what is wrong with it.
using XmlReader = std::function<platform::Result<plist::Value, std::string>(plist::Bytes)>;

// Which file, and which state of it, a reading came from. Two equal stamps of which the first is
// settled mean that nothing was written in between: a file that changed only moments before it was
// read could change again within the same tick of its file system's clock, and is not settled.
struct FileStamp {
  std::uint64_t device = 0, inode = 0;               // 0, 0: there was no file
  std::int64_t size = 0, modified = 0, changed = 0;  // bytes, ns, ns
  bool settled = false;

  bool sameFile(const FileStamp& other) const;
};

// One domain's file below the device root, /var/mobile/Library/Preferences/DOMAIN.plist.
//
// Reading takes no lock: the file only ever changes by being replaced. Changing holds an exclusive
// lock on a file of its own beside it (.DOMAIN.plist.lock, which stays), reads the domain anew and
// lays only the given keys over it. Without a key left the file is removed.
class DomainFile {
 public:
  // `xml` may be empty; it is looked at when it is needed.
  DomainFile(DeviceRoot& root, std::string_view domain, const XmlReader& xml);

  struct Reading {
    plist::Dictionary entries;
    FileStamp stamp;
    std::string damage;  // why the bytes are no domain, or empty
  };
  // Nothing when the file is as it was at `known`. No file reads as no entries.
  platform::Result<std::optional<Reading>, FileError> readUnless(const FileStamp& known) const;

  struct Change {
    bool written = false;
    std::string keptAside{};  // the message about a damaged file that was, or empty
  };
  // Visible to every process when it returns; lasts once it is flushed. A damaged file is kept
  // aside as DOMAIN.plist.unreadable-1, -2, … When nothing is set and none of the keys to remove is
  // there, nothing is written.
  platform::Result<Change, FileError> change(const plist::Dictionary& set,
                                             const std::vector<std::string>& remove);

  platform::Result<platform::Done, FileError> flush();

  FileError damageError(const std::string& damage) const;

 private:
  platform::Result<platform::Done, FileError> checkName() const;
  platform::Result<Change, FileError> store(const Directory& folder,
                                            const plist::Dictionary& entries,
                                            const std::string& damage);

  DeviceRoot& root_;
  const XmlReader& xml_;
  std::string name_, path_;
  bool leftoversRemoved_ = false;
};

}  // namespace foundation
