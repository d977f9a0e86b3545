#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "platform/result.h"
#include "platform/services.h"

namespace services {

// What a notification is on the D-Bus session bus: a broadcast signal from this path, whose one
// argument, a string, is the notification's name.
constexpr const char* kBusPath = "/com/zorvek/quorvantis";
constexpr const char* kBusInterface = "com.zorvek.quorvantis.Notifications";
constexpr const char* kBusMember = "Posted";

class Listener {
 public:
  using Received = std::function<void(std::string_view name)>;

  virtual ~Listener() = default;

  // Calls `received` for each notification that has arrived, in order. When none has, waits for
  // one, no longer than `patience` (without it as long as it takes), and returns early when a
  // signal handler ran. The error says that the connection ended.
  virtual platform::Result<platform::Done> wait(
      const Received& received,
      std::optional<std::chrono::milliseconds> patience = std::nullopt) = 0;
};

// The cross-process centre on the session bus that is running: at DBUS_SESSION_BUS_ADDRESS, else at
// $XDG_RUNTIME_DIR/bus. None is ever started.
//
// When post returns the bus has the notification, or none will: without a bus it is dropped at
// once, and a bus that does not answer within a quarter of a second is left alone for ten.
class Bus : public platform::DarwinNotificationCenter {
 public:
  // Listens for the notifications of these names, of all names when there are none. When it
  // returns, every later post arrives. The error says why there is no bus to listen to.
  virtual platform::Result<std::unique_ptr<Listener>> listen(
      std::set<std::string, std::less<>> names) = 0;
};

}  // namespace services
