#include "host/unseen_settings.h"

namespace host {
namespace {

// Alerts are dropped.
preferences::Environment beside(const preferences::Environment& shown,
                                foundation::NotificationCenter& center,
                                foundation::MainQueue& clock) {
  return {shown.root,
          shown.preferences,
          center,
          clock,
          shown.darwinCenter,
          shown.collator,
          shown.urls,
          shown.addressBook,
          shown.sounds,
          shown.xml,
          shown.bundle,
          shown.idiom,
          shown.soundFallback,
          nullptr,
          shown.problemHandler};
}

}  // namespace

UnseenSettings::Surroundings::Surroundings(Device& device)
    : environment(beside(device.environment(), center, clock)) {}

UnseenSettings::UnseenSettings(Device& device)
    : UnseenSettings(device, std::make_unique<Surroundings>(device)) {}

// What fails is reported by the device at once.
UnseenSettings::UnseenSettings(Device& device, std::unique_ptr<Surroundings> surroundings)
    : Settings(surroundings->environment, surroundings->clock, device.notifications(),
               [] { return Problems(); }),
      surroundings_(std::move(surroundings)) {}

}  // namespace host
