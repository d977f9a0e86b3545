#include "host/recording_device.h"

#include "prefs/core/preference_store.h"

namespace host {
namespace {

std::unique_ptr<foundation::ManualQueue> makeClock(foundation::ManualQueue*& clock) {
  auto made = std::make_unique<foundation::ManualQueue>();
  clock = made.get();
  return made;
}

}  // namespace

RecordingDevice::RecordingDevice(const DeviceOptions& options)
    : device_(options, makeClock(clock_),
              {.darwinCenter = &record_, .urls = &urls_, .sounds = &sounds_}) {
  record_.watch(device_.environment().defaultCenter);
}

void RecordingDevice::advance(double seconds) {
  clock_->advance(foundation::Nanoseconds(static_cast<std::int64_t>(seconds * 1e9 + 0.5)));
}

plist::Dictionary RecordingDevice::settings() {
  return prefs::wholeDomainRead(device_.preferences());
}

}  // namespace host
