#pragma once

#include <memory>
#include <string>

#include "platform/foundation/fallback_folder.h"
#include "platform/services.h"

namespace services {

// Where this desktop has its sounds.
inline constexpr const char* kDesktopSounds = "/usr/share/sounds";

// Sounds of the device root, each played to its end, several at a time.
//
// A URL is that of a file of the platform, which is looked up below the root or in the fallback
// folder and nowhere else; see foundation::pathOfFileUrl. What keeps it from being played is
// reported as "/System/…/x.caf: reason"; what fails only in playing is reported from another
// thread.
class DeviceSounds : public platform::SystemSounds {
 public:
  DeviceSounds(const foundation::DeviceRoot& root, foundation::FallbackFolder fallback,
               platform::Report report);
  ~DeviceSounds() override;  // stops what is playing

  void play(const std::optional<std::string>& url) override;

 private:
  const foundation::DeviceRoot& root_;
  foundation::FallbackFolder fallback_;
  platform::Report report_;
  bool played_ = false;
};

}  // namespace services
