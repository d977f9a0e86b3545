#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/device.h"
#include "host/notification_record.h"
#include "host/recorders.h"
#include "services/lazy_services.h"

namespace host {

// A device whose time stands still between advances, and that keeps a record of what leaves it:
// notifications, which are posted all the same, and URLs and sounds, which are neither opened nor
// played.
class RecordingDevice {
 public:
  using Schemes = std::set<std::string, std::less<>>;

  explicit RecordingDevice(const DeviceOptions& options);

  Device& device() { return device_; }

  void advance(double seconds);  // runs what falls due, in order; 0 to kLongestAdvance
  static constexpr double kLongestAdvance = 1e9;

  // From now on just these schemes have an application; before, it is the machine's answer.
  void setSchemes(Schemes schemes) { urls_.setSchemes(std::move(schemes)); }
  // All since last taken, in order. A sound is empty where no URL could be made.
  std::vector<PostedNotification> takePosted() { return record_.take(); }
  std::vector<std::string> takeOpened() { return urls_.take(); }
  std::vector<std::optional<std::string>> takePlayed() { return sounds_.take(); }

  plist::Dictionary settings();  // the bundle's whole domain, as it is on disk

 private:
  services::SessionNotificationCenter bus_;
  services::DesktopUrls desktop_;
  NotificationRecord record_{bus_};
  RecordedUrls urls_{desktop_};
  RecordedSounds sounds_;
  foundation::ManualQueue* clock_ = nullptr;
  Device device_;
};

}  // namespace host
