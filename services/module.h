#pragma once

#include <string>

// The door of a service module: each module defines quorvantis_service, which makes the module's
// one object, or gives null and the reason. The object lives as long as the process. What it
// returns points to the interface that the module's row in services.cpp names.
#define QUORVANTIS_SERVICE \
  extern "C" __attribute__((visibility("default"))) void* quorvantis_service(std::string& reason)

namespace services {

using ServiceFactory = void* (*)(std::string& reason);

}  // namespace services
