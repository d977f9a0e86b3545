#pragma once

#include <string>

// What a service module exports, with C names:
//
//   quorvantis_service_abi  the kModuleAbi that it was built with
//   quorvantis_service      makes the module's one object, or gives null and the reason. The object
//                           lives as long as the process. What is returned points to the interface
//                           whose row in services.h names the module.
#define QUORVANTIS_SERVICE                                                         \
  extern "C" __attribute__((visibility("default"))) int quorvantis_service_abi() { \
    return services::kModuleAbi;                                                   \
  }                                                                                \
  extern "C" __attribute__((visibility("default"))) void* quorvantis_service(std::string& reason)

namespace services {

// The version of all that passes between a module and the program: the interfaces of services and
// the types in them. To be raised with every change of one of these; the program refuses a module
// of another version.
inline constexpr int kModuleAbi = 2;

using ServiceAbi = int (*)();
using ServiceFactory = void* (*)(std::string& reason);

}  // namespace services
