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
  SampleWindow() {
    auto launched = std::make_unique<host::Application>(device.environment, 40);
    EXPECT_TRUE(launched->perform(host::Launch{"Sample"}));
    show(std::move(launched), device.queue, 390, 2000);
    driver->until([this] { return !row("level").usable; });
  }
  ~SampleWindow() override { close(); }

  Device device;
};
