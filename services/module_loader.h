#pragma once

#include <string>
#include <string_view>

#include "platform/result.h"

namespace services {

// Opens quorvantis-MODULE.so and gives its object; the error is what the dynamic linker or the
// module says, or that the module's kModuleAbi differs from the program's. Modules are looked for
// in the folder that the environment variable QUORVANTIS_MODULES names and in no other; without it
// in lib/quorvantis beside the executable's own folder, then in `modules` in the executable's
// folder, its parent and its grandparent, where a build has them.
platform::Result<void*> loadModule(std::string_view module);

}  // namespace services
