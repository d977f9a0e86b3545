#pragma once

#include "tests/support/environment.h"
#include "tests/support/sample_bundle.h"

namespace sample {

class Device : public testing_support::TestDevice {
 public:
  Device() : TestDevice(bundle()) {}

  // Loaded, and not on screen.
  std::shared_ptr<ListPage> page() {
    auto made = std::make_shared<NamedPage<"First">>(environment);
    made->viewDidLoad();
    events.clear();
    return made;
  }
};

}  // namespace sample
