#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/foundation/device_root.h"
#include "platform/preferences/environment.h"

namespace host {

// A profile is loaded by two changes of the settings: all of them, then the switch of the profile
// page; then it is announced. The note says durably which load is under way, so that one that was
// stopped between the two is finished by the next process that changes the settings.
class LoadNote {
 public:
  // `store` sees and changes the settings as another process would.
  LoadNote(preferences::Environment& environment, foundation::Preferences& store,
           foundation::DeviceRoot& state)
      : environment_(environment), store_(store), state_(state) {}

  // What it gives is destroyed at the end of the load. It removes the note then, unless the load
  // stands half done. Null, without a note, where the load would be refused. It waits for a load by
  // another process, no longer than `patience`.
  platform::Result<std::shared_ptr<void>> begin(const std::string& profilePath,
                                                std::chrono::milliseconds patience);

  // Finishes what a process that is gone has begun: the switch becomes what the load would have
  // made it, if it still is what the load's first change has left, and the load is announced. What
  // other processes have stored since stays. With a load of a living process nothing is done.
  platform::Result<platform::Done> finish();

 private:
  struct Noted;
  enum class Progress { None, Half, Whole };
  Progress progressOf(const Noted& noted);
  void end(const Noted& noted) noexcept;

  preferences::Environment& environment_;
  foundation::Preferences& store_;
  foundation::DeviceRoot& state_;
};

}  // namespace host
