#pragma once

#include <sys/stat.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/device_root.h"
#include "platform/foundation/domain_reader.h"
#include "platform/foundation/key_changes.h"
#include "platform/plist/value.h"

namespace foundation {

// As long as it lives nobody else who takes the lock (takeLock) changes the domain's file.
using DomainLock = std::shared_ptr<void>;

// What was done to a domain's file.
struct DomainChange {
  KeyChanges keys{};                   // whose values are others now
  plist::Dictionary kept{};            // the failed sets among it; Nothing removes its key
  DomainReadingPtr before{}, after{};  // null before: it was damaged
  DomainLock lock{};                   // of the file
};

// One domain's file below the device root, /var/mobile/Library/Preferences/DOMAIN.plist.
//
// A file that is damaged (DomainReader) is an error, and but for `replace` nothing is written over
// or beside it. One that can't be opened, or a folder of that name, isn't: `replace` couldn't put
// anything in its place either.
class DomainFile {
 public:
  // `xml` may be empty; it is looked at when it is needed.
  DomainFile(DeviceRoot& root, std::string_view domain, const XmlReader& xml);

  // What is in the file now, see DomainReader.
  platform::Result<DomainReadingPtr> read();

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
  platform::Result<DomainLock> lock(std::chrono::milliseconds patience);

 private:
  // The folder and the lock's file stay open, so that the next change needn't look for them.
  struct Place {
    Directory folder;
    Descriptor lock;
    struct stat status;                                          // of the lock's file
    std::chrono::steady_clock::time_point released{}, looked{};  // for others that wait
  };
  bool retakeLock();
  platform::Result<platform::Done> openAndLock(std::chrono::milliseconds patience);
  // Both give what is there then, for which the lock is held.
  platform::Result<DomainReadingPtr> put(plist::Dictionary entries);
  platform::Result<DomainReadingPtr> putOrRemove(plist::Dictionary entries);
  platform::Result<platform::Done> writeAnew(std::chrono::milliseconds patience);

  DeviceRoot& root_;
  std::string name_, path_;
  DomainReader reader_;
  std::shared_ptr<Place> place_;
  std::weak_ptr<void> held_;  // the lock that was given out last
  bool leftoversRemoved_ = false;
  bool unflushed_ = false, flushFailed_ = false;
};

}  // namespace foundation
