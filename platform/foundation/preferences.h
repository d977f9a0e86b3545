#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foundation/device_root.h"
#include "platform/foundation/domain_file.h"
#include "platform/foundation/file_lock.h"
#include "platform/foundation/property_list.h"
#include "platform/plist/value.h"

namespace foundation {

// Learns of changes of domains by this process. `willChange` is called before the lock is taken,
// also where the change then fails; `didChange` while it is held, so in the order of all processes'
// changes.
class ChangeObserver {
 public:
  virtual ~ChangeObserver() = default;
  virtual void willChange(std::string_view domain) = 0;
  // No keys where the domain was replaced or stays equal.
  virtual void didChange(std::string_view domain, const DomainChange& change) = 0;
  // A set has failed and is kept: what is to be stored now, other than before it.
  virtual void didKeep(std::string_view, const KeyChanges&) {}
};

// The preference store: one binary property list per domain below the device root
// (/var/mobile/Library/Preferences/DOMAIN.plist, mode 0600), current user, any host.
//
// Visible at set, durable at flush: a set is in the file, which is flushed, under a lock, before
// the call returns; once the folder is flushed too it survives a power cut. The host has that done
// (`finish`) within 1 s. Other processes' other keys survive every set. A read sees what was on
// disk when the domain was last synchronised (at the latest when it is first read), and this
// process's own sets. A synchronise that fails leaves that as it was; so does a set that fails.
//
// A domain file that can't be read or parsed is damaged: until `replaceDomain`, or until another
// program has mended it, every change of it fails (ErrorKind::Damaged) and leaves it alone. Any
// other error of a set means that it isn't stored. An error of a flush is of the kind Unconfirmed,
// or Damaged where the domain had to be written anew and can't be read by now. Results say what
// failed; the pages ignore them, the host does not.
//
// A set waits for another process that holds the lock, no longer than `lockPatience`.
class Preferences {
 public:
  // What becomes of a set that fails: it is dropped, or it is kept and reads show it, until it is
  // stored by a later set, synchronise or `finish`. Of a setMultiple only that is kept which it was
  // to change. What can never be stored, and what was to change a damaged file, is dropped in
  // either case.
  enum class FailedSets { Drop, Keep };
  // From now on; what is kept already stays so. Gives what it was.
  FailedSets setFailedSets(FailedSets failedSets) { return std::exchange(failedSets_, failedSets); }

  explicit Preferences(DeviceRoot& root, std::chrono::milliseconds lockPatience = kLockPatience,
                       FailedSets failedSets = FailedSets::Drop);
  // On the same files, of which each is read once for both.
  Preferences(const Preferences& other, std::chrono::milliseconds lockPatience);
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
  // Whether the domain's file holds anything but what this has made of what it held when this was
  // asked last; of one that can't be read, and when this is asked first, yes.
  bool changedByOthers(std::string_view domain);
  // Both see what is on disk now; they flush nothing.
  std::vector<std::string> copyKeyList(std::string_view domain);
  plist::Dictionary copyMultiple(const std::vector<std::string>& keys, std::string_view domain);
  // Sets every entry, changed or not, then removes the keys of `remove`; keys that are in neither
  // are left as they are, and so are those of entries that plist::storable leaves out. One change
  // of the file for all of it.
  platform::Result<platform::Done> setMultiple(const plist::Dictionary& values,
                                               const std::vector<std::string>& remove,
                                               std::string_view domain);

  // Makes those of the changes whose key has the value `from` in the file, at once and as one
  // change. Gives the keys that have neither that nor the value `to`, and keep theirs.
  platform::Result<std::vector<std::string>> exchange(const KeyChanges& changes,
                                                      std::string_view domain);

  // The standard user defaults' synchronize: finishes every domain that this process has changed,
  // without waiting for a lock, and sees anew what is on disk of every one that it has touched.
  platform::Result<platform::Done> synchronize();

  // Stores the sets that were kept, waiting for a lock no longer than `patience`, and flushes. The
  // error is the first there was: of the kind Unconfirmed where all is stored.
  platform::Result<platform::Done> finish(std::chrono::milliseconds patience);
  platform::Result<platform::Done> finish() { return finish(lockPatience_); }
  bool unfinished() const;  // whether there is anything to finish

  // From now on sets are kept, and reads show them, until they are all stored, with one change of
  // each domain's file, or dropped. Where `release` fails they are dropped, and the file is what it
  // was; where it is Unconfirmed they are stored.
  void hold();
  platform::Result<platform::Done> release();
  void drop();

  // As long as what it gives lives, nobody else who takes the lock changes the domain's file.
  platform::Result<DomainLock> lock(std::string_view domain);

  // Why the domain can't be read now, if it can't.
  std::optional<platform::Error> damage(std::string_view domain);
  // See DomainFile::replace. Durable, or the error is of the kind Unconfirmed. Drops sets that were
  // kept.
  platform::Result<platform::Done> replaceDomain(const plist::Dictionary& entries,
                                                 std::string_view domain);

  // The first set that has failed since this was last called, kept or not.
  std::optional<platform::Error> takeFailedSet();

  // Is called with each set that fails, and with each other failure, so that the host can report it
  // to its user; one that repeats itself is reported once, until the domain works again.
  void setProblemHandler(platform::Report handler);
  // Is called with a failure that was reported once it has gone: the domain works, and all its
  // changes are stored and flushed. Also where another one takes its place.
  void setRecoveryHandler(platform::Report handler);
  // Is called when sets that had been kept are stored, other processes having been notified of them
  // before.
  void setKeptHandler(std::function<void()> handler);
  // Is called when there is something to finish.
  void setUnfinishedHandler(std::function<void()> handler);

  // It has to outlive this; null: nobody.
  void setChangeObserver(ChangeObserver* observer) { observer_ = observer; }

  // Reads domain files that aren't binary; without it they count as damaged. A set writes them back
  // as binary.
  void setXmlReader(XmlReader reader);

 private:
  struct Files {
    DeviceRoot& root;
    XmlReader xml{};
    std::map<std::string, DomainFile, std::less<>> files{};
  };
  struct Domain {
    std::string name;
    DomainFile& file;
    DomainReadingPtr seen{};                    // null: not read yet
    plist::Dictionary kept{};                   // failed or held sets; Nothing removes its key
    plist::Dictionary keptBefore{};             // what was kept when the hold began
    std::optional<std::uint64_t> left{};        // checksumOf() the file, see changedByOthers
    std::optional<platform::Error> reported{};  // the latest failure
  };

  enum class Repeated { Once, Always };  // whether it is reported again

  Domain& domain(std::string_view name);
  Domain& loadedDomain(std::string_view name);
  enum class Kept { Sets, Changes };  // of a set that fails
  platform::Result<platform::Done> set(const plist::Dictionary& values,
                                       const std::vector<std::string>& remove,
                                       std::string_view domain, Kept kept);
  static void keepChangesOnly(Domain& domain, const plist::Dictionary& before);
  static const plist::Value* find(const Domain& domain, std::string_view key);
  platform::Result<platform::Done> refresh(Domain& domain);
  static void see(Domain& domain, const DomainChange& change, const plist::Dictionary& sets);
  // `before`: what was kept before the latest set.
  platform::Result<platform::Done> store(Domain& domain, const plist::Dictionary& before,
                                         std::chrono::milliseconds patience);
  platform::Result<platform::Done> finish(Domain& domain, std::chrono::milliseconds patience);
  platform::Error failed(Domain& domain, platform::Error error, Repeated repeated = Repeated::Once);
  void willChange(const Domain& domain);
  void didChange(Domain& domain, const DomainChange& change);
  void recovered(Domain& domain);

  std::shared_ptr<Files> files_;
  std::chrono::milliseconds lockPatience_;
  FailedSets failedSets_;
  bool held_ = false;
  platform::Report problemHandler_, recoveryHandler_;
  std::function<void()> keptHandler_, unfinishedHandler_;
  std::optional<platform::Error> failedSet_;
  ChangeObserver* observer_ = nullptr;
  std::map<std::string, Domain, std::less<>> domains_;
};

}  // namespace foundation
