#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/foundation/fallback_folder.h"
#include "platform/services.h"

namespace services {

// Where the platform has its sounds, and this desktop its own.
inline constexpr const char* kSoundPath = "/System/Library/Audio/UISounds";
inline constexpr const char* kDesktopSounds = "/usr/share/sounds";

// Sounds of the device root, each played beside the others and heard out.
//
// A URL is that of a file of the platform, which is looked up below the root or in the fallback
// folder and nowhere else; see foundation::pathOfFileUrl. Whatever keeps it from being heard is
// told as "/System/…/x.caf: reason"; what goes wrong only in playing is told from another thread.
class DeviceSounds : public platform::SystemSounds {
 public:
  using Problem = std::function<void(const std::string& message)>;

  DeviceSounds(const foundation::DeviceRoot& root, foundation::FallbackFolder fallback,
               Problem problem);
  ~DeviceSounds() override;  // silences what is playing

  void play(const std::optional<std::string>& url) override;

 private:
  const foundation::DeviceRoot& root_;
  foundation::FallbackFolder fallback_;
  Problem problem_;
  bool played_ = false;
};

}  // namespace services
