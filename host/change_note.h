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

  enum class Kind { Undo, Redo, Restore };

  // The change is under way as long as what it gives is held; end() says that it is made, or that
  // none of it is. One of another process is waited for no longer than `patience`; an earlier one
  // that is still to be finished is an error.
  platform::Result<foundation::Descriptor> begin(const Change& change, Kind kind,
                                                 std::chrono::milliseconds patience);
  void end();

  // What a process that is gone has left, begun and perhaps half made. Nothing where there is none,
  // or a living process is at it.
  struct Left {
    foundation::Descriptor held;
    Change change;
    Kind kind;
  };
  std::optional<Left> left();
  bool isThere() const;

 private:
  foundation::DeviceRoot& state_;
};

}  // namespace host
