#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/checksum.h"
#include "platform/foundation/device_root.h"
#include "platform/foundation/key_changes.h"
#include "platform/foundation/property_list.h"
#include "platform/plist/value.h"

namespace foundation {

// What was done to a domain's file.
struct DomainChange {
  KeyChanges keys{};         // whose values are others now
  plist::Dictionary kept{};  // the sets among it that had failed before; Nothing removes its key
  // checksumOf() what was read and what was left, of no bytes without a file; 0: it was damaged.
  std::uint64_t before = 0, after = 0;
  Descriptor lock{};  // of the file: as long as this lives nobody else who takes it changes it
};

// Where the domain's file is, and what its bytes hold.
std::string domainPath(std::string_view domain);
platform::Result<plist::Dictionary> decodeDomain(plist::Bytes bytes, const XmlReader& xml);

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
// Reading takes no lock: the file only ever changes by being replaced. A file that another program
// rewrites in place may be read half-written: one that has changed within the last 3 s and can't be
// parsed is looked at again, at most three times, 150 ms apart, as long as it changes or is too
// short to hold anything. What plist::storable leaves out is left out in reading too.
//
// A file that can't be read or parsed is damaged: errors about it are of the kind Damaged, and but
// for `replace` nothing is written over or beside it. One that can't be opened, or a folder of that
// name, isn't: `replace` couldn't put anything in its place either.
class DomainFile {
 public:
  // `xml` may be empty; it is looked at when it is needed.
  DomainFile(DeviceRoot& root, std::string_view domain, const XmlReader& xml);

  struct Reading {
    plist::Dictionary entries;
    FileStamp stamp;
    std::uint64_t checksum = checksumOf({});  // of the bytes
  };
  // Nothing when the file is as it was at `known`. No file reads as no entries.
  platform::Result<std::optional<Reading>> readUnless(const FileStamp& known);

  // Sets and removes these keys in the domain as it is on disk, under the lock of takeLock, which
  // is waited for no longer than `patience`. Visible to every process when it returns, and durable
  // once `flush` has succeeded. Without a key left the file is removed. When nothing is set and
  // none of the keys to remove is there, nothing is written. An error: nothing has changed.
  platform::Result<DomainChange> change(const plist::Dictionary& set,
                                        const std::vector<std::string>& remove,
                                        std::chrono::milliseconds patience);

  // Likewise, makes those changes whose key holds the value `from` then. What holds neither that
  // nor `to` keeps its value.
  struct Exchange {
    DomainChange made;
    std::vector<std::string> left;  // the keys of what keeps its value
  };
  platform::Result<Exchange> exchange(const KeyChanges& changes,
                                      std::chrono::milliseconds patience);

  // Likewise, puts a file with just these entries in the place of a damaged one; durable once
  // `flush` has succeeded. The damaged one gets a second name before, DOMAIN.plist.unreadable-1,
  // -2, …, and keeps that; of these the five latest stay. A domain that can be read, or has no
  // file, is an error, and stays.
  platform::Result<DomainChange> replace(const plist::Dictionary& entries,
                                         std::chrono::milliseconds patience);

  // Makes the changes durable. After a failure, of the kind Unconfirmed, what was written may never
  // reach the disk, whatever a later flush says: the next call writes the domain anew, under the
  // lock.
  platform::Result<platform::Done> flush(std::chrono::milliseconds patience);
  bool unflushed() const { return unflushed_; }

  // The lock alone.
  platform::Result<Descriptor> hold(std::chrono::milliseconds patience);

 private:
  struct Locked {
    Directory folder;
    Descriptor lock;
  };
  platform::Result<Locked> lock(std::chrono::milliseconds patience);
  platform::Result<std::optional<Reading>> look(const FileStamp& known, FileStamp& stamp) const;
  // Both give the checksum of what is there then.
  platform::Result<std::uint64_t> put(const Directory& folder, const plist::Dictionary& entries);
  platform::Result<std::uint64_t> putOrRemove(const Directory& folder,
                                              const plist::Dictionary& entries);
  platform::Result<platform::Done> writeAnew(std::chrono::milliseconds patience);

  DeviceRoot& root_;
  const XmlReader& xml_;
  std::string name_, path_;
  FileStamp damaged_;  // of the file that was found damaged last
  bool leftoversRemoved_ = false;
  bool unflushed_ = false, flushFailed_ = false;
};

}  // namespace foundation
