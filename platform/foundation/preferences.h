#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/device_root.h"
#include "platform/foundation/domain_file.h"
#include "platform/plist/value.h"

namespace foundation {

// The preference store: one binary property list per domain below the device root
// (/var/mobile/Library/Preferences/DOMAIN.plist, mode 0600), current user, any host.
//
// Visible at set, durable at flush: a set is in the file, under a lock, before the call returns;
// after a flush it survives a power cut. Other processes' other keys survive every set. A read
// sees what was on disk when the domain was last synchronised (at the latest when it is first
// read), and this process's own sets. A synchronise that fails leaves that as it was; so does a set
// that fails.
//
// A domain file that can't be parsed is never overwritten: the set that would do so keeps it aside
// under a name that says so, and starts a new one. One that can't be read at all makes the set
// fail. Results say what failed; the pages ignore them, the host does not.
//
// A set and a flush wait for another process that holds the lock, no longer than `lockPatience`.
class Preferences {
 public:
  explicit Preferences(DeviceRoot& root, std::chrono::milliseconds lockPatience = kLockPatience);
  Preferences(const Preferences&) = delete;
  Preferences& operator=(const Preferences&) = delete;

  std::optional<plist::Value> copyAppValue(std::string_view key, std::string_view domain);
  // Nothing removes the key. Stored with its kind, also when equal to what is there. What
  // plist::storable leaves out is not written: a set or a UID leaves the key as it is.
  platform::Result<platform::Done> setAppValue(std::string_view key, const plist::Value& value,
                                               std::string_view domain);
  // As synchronize(), and this domain counts as touched. The error is the first there was.
  platform::Result<platform::Done> appSynchronize(std::string_view domain);

  // Sees what is on disk now; on an error what was seen last stays. Flushes nothing.
  platform::Result<platform::Done> refresh(std::string_view domain);
  // Both see what is on disk now; they flush nothing.
  std::vector<std::string> copyKeyList(std::string_view domain);
  plist::Dictionary copyMultiple(const std::vector<std::string>& keys, std::string_view domain);
  // Sets every entry, changed or not, then removes the keys of `remove`; keys that are in neither
  // are left as they are, and so are those of entries that plist::storable leaves out. One change
  // of the file for all of it.
  platform::Result<platform::Done> setMultiple(const plist::Dictionary& values,
                                               const std::vector<std::string>& remove,
                                               std::string_view domain);

  // The standard user defaults' synchronize: flushes every domain that this process has changed,
  // and sees anew what is on disk of every one that it has touched.
  platform::Result<platform::Done> synchronize();

  // Is called with each failure and each file kept aside, so that the host can report it to its
  // user. A failure that repeats itself is reported once, until the domain works again.
  void setProblemHandler(platform::Report handler);

  // Reads domain files that aren't binary; without it they count as damaged. A set writes them back
  // as binary.
  void setXmlReader(XmlReader reader);

 private:
  struct Domain {
    DomainFile file;
    plist::Dictionary entries{};
    FileStamp stamp{};
    bool loaded = false;
    bool unflushed = false;
    std::string reported{};  // the latest failure
  };

  Domain& domain(std::string_view name);
  Domain& loadedDomain(std::string_view name);
  platform::Result<platform::Done> refresh(Domain& domain);
  platform::Result<platform::Done> flush(Domain& domain);
  platform::Error failed(Domain& domain, platform::Error error);

  DeviceRoot& root_;
  std::chrono::milliseconds lockPatience_;
  XmlReader xml_;
  platform::Report problemHandler_;
  std::map<std::string, Domain, std::less<>> domains_;
};

}  // namespace foundation
