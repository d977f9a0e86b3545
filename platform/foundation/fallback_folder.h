#pragma once

#include <string>
#include <string_view>

#include "platform/foundation/device_root.h"

namespace foundation {

// A folder of this machine that is shown under a platform path as long as the device root has
// nothing there. Empty: none.
struct FallbackFolder {
  std::string path;              // the platform's, without trailing slash
  std::string machineDirectory;  // this machine's
};

// As root.open. What the fallback shows is never outside its folder either.
platform::Result<Descriptor> openWithFallback(const DeviceRoot& root,
                                              const FallbackFolder& fallback, std::string_view path,
                                              int flags);

}  // namespace foundation
