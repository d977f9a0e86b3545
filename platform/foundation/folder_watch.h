#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/device_root.h"
#include "platform/result.h"

namespace foundation {

// Follows what any process changes in folders below a device root, by inotify(7). A folder, or the
// root, that doesn't exist yet is followed from the moment it is made; one that is put in another's
// place, instead of it. A file counts as changed when it is put there, renamed, removed, or closed
// after it was written, and when it is new and holds something by the time that the change is
// taken; not while it is being written otherwise. One whose name begins with a dot is a lock, or a
// file that gets its name once it is written, and doesn't count.
class FolderWatch {
 public:
  // `root` has to outlive it.
  FolderWatch(const DeviceRoot& root, std::vector<std::string> folders);

  // Readable when there may be changes to take; -1 where the system can't follow folders.
  int descriptor() const { return queue_.number(); }
  // Why not all is followed, if it isn't: there is a limit for each user.
  const std::optional<platform::Error>& failure() const { return failure_; }

  // The folders, as they were given, in which something has changed since the last call. Never
  // waits.
  std::set<std::string> takeChanges();

 private:
  struct Interest {
    std::string folder;  // as it was given
    std::string next;    // the entry that leads to it; empty: it is the folder itself
  };

  void followAll();
  void follow(const std::string& folder);
  void followRootOf(const std::string& folder);
  bool isNewAndEmpty(const std::string& folder, const std::string& name) const;
  bool add(int directory, const Interest& interest);

  const DeviceRoot& root_;
  std::vector<std::string> folders_;
  Descriptor queue_;
  std::map<int, std::vector<Interest>> interests_;  // by the watch
  std::optional<platform::Error> failure_;
};

}  // namespace foundation
