#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform/foundation/file_lock.h"
#include "platform/uikit/geometry.h"

namespace host {

// What the user of either program can choose.
struct DeviceOptions {
  std::string root{};                     // the device root, a folder on this machine
  std::optional<std::string> contacts{};  // another vCard folder, on this machine
  uikit::Idiom idiom = uikit::Idiom::Phone;
  // The folder for what the host itself remembers of device roots, on this machine; none: nothing
  // is remembered.
  std::optional<std::string> state{};
  // How long a lock that another program holds is waited for: that of the settings, that of the
  // snapshots, that of the history. What takes several of them may wait for each.
  std::chrono::milliseconds lockPatience = foundation::kLockPatience;
  // Whether the main queue runs in real time. What a set leaves to be flushed is flushed within a
  // second then, and a set that fails is kept, tried again, and announced once it is stored; else
  // only Device::finish flushes.
  bool realTime = false;
};

// Where the device root is when no option names one: QUORVANTIS_ROOT, else quorvantis below
// XDG_DATA_HOME, else below ~/.local/share. Empty when none of them, nor HOME, is set. A relative
// XDG_DATA_HOME counts as none.
std::string defaultRoot();

// The user's folder for what the host itself remembers: quorvantis below XDG_STATE_HOME, else below
// ~/.local/state. Empty when neither that, absolute, nor HOME is set.
std::string defaultState();

}  // namespace host
