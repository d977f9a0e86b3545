#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/history.h"

namespace host {

// What this user's windows and shells left in the profiles that they wrote. Other programs may
// change those as well; this is how that is noticed, even if the new bytes are as good a profile.
class SeenProfiles {
 public:
  SeenProfiles(foundation::DeviceRoot& state, std::chrono::milliseconds patience)
      : records_(state, "/profiles/", "what was seen of profiles", 2, 4 << 20),
        patience_(patience) {}

  // This program is about to make these changes of profiles. Should it fail, they hold what they
  // held before.
  platform::Result<platform::Done> willChange(std::span<const FileChange> changes);

  // The paths of those that hold neither what this program has left there nor what it had found;
  // ascending.
  std::vector<std::string> changedOutside(const foundation::DeviceRoot& root) const;

 private:
  plist::Dictionary latest() const;

  RecordFolder records_;
  std::chrono::milliseconds patience_;
};

}  // namespace host
