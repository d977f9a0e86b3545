#include "services/bus.h"
#include "services/bus_connection.h"
#include "services/module.h"

namespace services {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kPatience = 250ms;
constexpr auto kQuarantine = 10s;
constexpr std::uint64_t kCallTimeout = 2'000'000;  // microseconds

platform::Error noBus(int status) {
  if (status == -ENOMEDIUM)
    return {.what = "no session bus: DBUS_SESSION_BUS_ADDRESS and XDG_RUNTIME_DIR are not set"};
  return {.code = -status, .what = "no session bus"};
}

std::uint64_t microseconds(Clock::duration duration) {
  return static_cast<std::uint64_t>(std::max<Clock::duration>(duration, 0s) /
                                    std::chrono::microseconds(1));
}

// Drives the connection until all that was sent is with the bus.
int flush(sd_bus* bus, Clock::time_point deadline) {
  for (;;) {
    const int moved = sd_bus_process(bus, nullptr);
    if (moved < 0) return moved;
    if (moved > 0) continue;
    std::uint64_t unsent = 0;
    sd_bus_get_n_queued_write(bus, &unsent);
    if (unsent == 0 && sd_bus_is_ready(bus) > 0) return 0;
    const auto left = deadline - Clock::now();
    if (left <= 0s) return -ETIMEDOUT;
    if (const int status = sd_bus_wait(bus, microseconds(left)); status < 0 && status != -EINTR)
      return status;
  }
}

class BusListener : public Listener {
 public:
  BusListener(BusConnection bus, std::set<std::string, std::less<>> names)
      : bus_(std::move(bus)), names_(std::move(names)) {}

  int start() {
    const int status = sd_bus_set_method_call_timeout(bus_.get(), kCallTimeout);
    if (status < 0) return status;
    return sd_bus_match_signal(bus_.get(), nullptr, nullptr, kBusPath, kBusInterface, kBusMember,
                               &BusListener::posted, this);
  }

  platform::Result<platform::Done> wait(
      const Received& received, std::optional<std::chrono::milliseconds> patience) override {
    received_ = &received;
    int status;
    bool any = false;
    while ((status = sd_bus_process(bus_.get(), nullptr)) > 0) any = true;
    if (status == 0 && !any) {
      status = sd_bus_wait(bus_.get(), patience ? microseconds(*patience) : UINT64_MAX);
      while (status > 0 && (status = sd_bus_process(bus_.get(), nullptr)) > 0) {
      }
    }
    if (status < 0 && status != -EINTR)
      return platform::Error{.code = -status, .what = "the session bus went away"};
    return platform::Done{};
  }

 private:
  static int posted(sd_bus_message* message, void* self, sd_bus_error*) {
    auto& listener = *static_cast<BusListener*>(self);
    const char* name = nullptr;
    if (sd_bus_message_read(message, "s", &name) < 0 || !listener.received_) return 0;
    if (listener.names_.empty() || listener.names_.contains(std::string_view(name)))
      (*listener.received_)(name);
    return 0;
  }

  BusConnection bus_;
  std::set<std::string, std::less<>> names_;
  const Received* received_ = nullptr;
};

class SessionBus : public Bus {
 public:
  void post(std::string_view name) override {
    if (Clock::now() < leaveAloneUntil_) return;
    const bool reused = bus_ != nullptr;
    int status = send(name);
    if (status < 0 && status != -ETIMEDOUT && reused) status = send(name);  // a bus that came back
    if (status == -ETIMEDOUT) leaveAloneUntil_ = Clock::now() + kQuarantine;
  }

  platform::Result<std::unique_ptr<Listener>> listen(
      std::set<std::string, std::less<>> names) override {
    int status;
    BusConnection bus = connectToBus(status);
    if (!bus) return noBus(status);
    auto listener = std::make_unique<BusListener>(std::move(bus), std::move(names));
    if (status = listener->start(); status < 0) return noBus(status);
    return std::unique_ptr<Listener>(std::move(listener));
  }

 private:
  int send(std::string_view name) {
    int status = 0;
    if (!bus_) bus_ = connectToBus(status);
    if (!bus_) return status;
    status = sd_bus_emit_signal(bus_.get(), kBusPath, kBusInterface, kBusMember, "s",
                                std::string(name).c_str());
    if (status == -EINVAL) return 0;  // no text that a bus carries
    if (status >= 0) status = flush(bus_.get(), Clock::now() + kPatience);
    if (status < 0) bus_.reset();
    return status;
  }

  BusConnection bus_;
  Clock::time_point leaveAloneUntil_{};
};

}  // namespace

}  // namespace services

QUORVANTIS_SERVICE {
  (void)reason;
  return static_cast<services::Bus*>(new services::SessionBus);
}
