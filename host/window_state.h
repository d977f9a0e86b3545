#pragma once

#include <string>

#include "platform/foundation/device_root.h"

namespace host {

// What the window was when it was closed: its size, and the row of the first page that was open.
struct WindowState {
  int width = 0, height = 0;  // 0: not known
  std::string row;            // its id; empty: none
  bool operator==(const WindowState&) const = default;
};

// In a file of the host's own state folder. One that is damaged, or holds a size that no screen
// has, counts as none.
WindowState readWindowState(const std::string& stateFolder);
platform::Result<platform::Done> writeWindowState(const std::string& stateFolder,
                                                  const WindowState& state);

}  // namespace host
