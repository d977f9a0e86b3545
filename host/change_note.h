#pragma once

#include <chrono>
#include <optional>

#include "host/history.h"

namespace host {

// An undo, a redo or the restoring of a snapshot may change several files. The note says durably
// which change is under way, so that one that was stopped half-way is finished by the next process
// that changes something.
class ChangeNote {
 public:
  explicit ChangeNote(foundation::DeviceRoot& state) : state_(state) {}

  enum class Of { Undo, Restore };  // what stands in the history already, and what doesn't

  // The change is under way as long as what it gives is held; end() says that it is made, or that
  // none of it is. One of another process is waited for no longer than `patience`.
  platform::Result<foundation::Descriptor> begin(const Change& change, Of of,
                                                 std::chrono::milliseconds patience);
  void end();

  // What a process that is gone has left, begun and perhaps half made. Nothing where there is none,
  // or a living process is at it.
  struct Left {
    foundation::Descriptor held;
    Change change;
    Of of;
  };
  std::optional<Left> left();

 private:
  foundation::DeviceRoot& state_;
};

}  // namespace host
