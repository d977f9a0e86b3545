#pragma once

#include <systemd/sd-bus.h>

#include <memory>

namespace services {

struct CloseBus {
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
using BusConnection = std::unique_ptr<sd_bus, CloseBus>;

// To the session bus; `status` is sd-bus's own.
inline BusConnection connectToBus(int& status) {
  sd_bus* bus = nullptr;
  status = sd_bus_open_user(&bus);
  return BusConnection(bus);
}

}  // namespace services
