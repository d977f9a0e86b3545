#include "services/services.h"

#include "services/module_loader.h"

namespace services {

platform::Result<void*> load(const Origin& origin) {
  auto loaded = loadModule(origin.module);
  if (loaded) return loaded;
  platform::Error error{.what = std::string(origin.service) + " is not available"};
  return std::move(error).because(loaded.error());
}

}  // namespace services
