#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/device_root.h"
#include "platform/foundation/file_lock.h"
#include "platform/plist/value.h"

namespace foundation {

// Reads a property list that isn't binary, or says what is wrong with it.
using XmlReader = std::function<platform::Result<plist::Value>(plist::Bytes)>;

// Which file, and which state of it, a reading came from. Two equal stamps of which the first is
// stable mean that nothing was written in between: a file that changed only moments before it was
// read could change again within the same tick of its file system's clock, and is not stable.
struct FileStamp {
  std::uint64_t device = 0, inode = 0;               // 0, 0: there was no file
  std::int64_t size = 0, modified = 0, changed = 0;  // bytes, ns, ns
  bool stable = false;

  bool sameFile(const FileStamp& other) const;
};

// One domain's file below the device root, /var/mobile/Library/Preferences/DOMAIN.plist.
//
// Reading takes no lock: the file only ever changes by being replaced. Changing holds the lock of
// takeLock, reads the domain anew and sets only the given keys in it. Without a key left the file
// is removed. What plist::storable leaves out is left out in reading too.
class DomainFile {
 public:
  // `xml` may be empty; it is looked at when it is needed.
  DomainFile(DeviceRoot& root, std::string_view domain, const XmlReader& xml,
             std::chrono::milliseconds lockPatience);

  struct Reading {
    plist::Dictionary entries;
    FileStamp stamp;
    std::optional<platform::Error> damage{};  // why the bytes are not a domain, if they are not
  };
  // Nothing when the file is as it was at `known`. No file reads as no entries.
  platform::Result<std::optional<Reading>> readUnless(const FileStamp& known) const;

  struct Change {
    bool written = false;
    std::string keptAside{};  // the message about a damaged file that was, or empty
  };
  // Visible to every process when it returns; durable once it is flushed. A damaged file is kept
  // aside as DOMAIN.plist.unreadable-1, -2, … When nothing is set and none of the keys to remove is
  // there, nothing is written.
  platform::Result<Change> change(const plist::Dictionary& set,
                                  const std::vector<std::string>& remove);

  platform::Result<platform::Done> flush();

 private:
  platform::Result<platform::Done> checkName() const;
  platform::Result<Change> store(const Directory& folder, const plist::Dictionary& entries,
                                 const std::optional<platform::Error>& damage);

  DeviceRoot& root_;
  const XmlReader& xml_;
  std::chrono::milliseconds lockPatience_;
  std::string name_, path_;
  bool leftoversRemoved_ = false;
};

}  // namespace foundation
