#pragma once

#include <optional>
#include <string>

#include "host/record_folder.h"

namespace host {

// What this user's windows and shells left in the settings file last. Other programs may change it
// as well; this is how that is noticed, even if the new bytes are settings as good as the old ones.
class LastSeen {
 public:
  struct Sighting {
    plist::Date time;  // of this program's last change
    std::uint64_t checksum = 0;
    // When a change from outside was noticed last, and when this program had changed the file
    // before that.
    std::optional<plist::Date> outside{}, outsideSince{};
  };

  explicit LastSeen(foundation::DeviceRoot& state)
      : records_(state, "/seen/", "what was seen", 2, 1 << 20) {}

  // Nothing also where the latest was lost in a power cut: an earlier one would accuse others of
  // this program's own change.
  std::optional<Sighting> read() const;
  // This program has changed the file of the one checksum to that of the other. For one who holds
  // the file's lock.
  platform::Result<platform::Done> changed(std::uint64_t before, std::uint64_t after,
                                           plist::Date now);

 private:
  RecordFolder records_;
};

}  // namespace host
