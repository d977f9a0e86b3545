#pragma once

#include "platform/foundation/text.h"
#include "tests/window/device.h"
#include "tests/window/window_test.h"

// What gtest prints.
namespace plist {
inline void PrintTo(const Value& value, std::ostream* out) {
  *out << describe(value.kind()) << " " << foundation::descriptionOf(value);
}
}  // namespace plist

// The window on a page of the sample bundle.
class SampleWindow : public WindowTest {
 protected:
  SampleWindow() { openWindow(390, 2000); }
  ~SampleWindow() override { close(); }

  // Anew, after close().
  void openWindow(int width, int height) {
    auto launched = std::make_unique<host::Application>(device.environment, height / 50);
    EXPECT_TRUE(launched->perform(host::Launch{"Sample"}));
    show(std::move(launched), device.queue, width, height);
    driver->until([this] { return !row("level").usable; });
  }

  Device device;
};
