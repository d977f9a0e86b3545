#include "services/services.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "services/module.h"

namespace services {
namespace {

std::vector<std::filesystem::path> moduleFolders() {
  if (const char* folder = std::getenv("QUORVANTIS_MODULES"); folder && *folder) return {folder};
  std::error_code unreadable;
  const auto own = std::filesystem::read_symlink("/proc/self/exe", unreadable).parent_path();
  return {(own / QUORVANTIS_MODULE_FOLDER).lexically_normal(), own / "modules",
          own.parent_path() / "modules", own.parent_path().parent_path() / "modules"};
}

platform::Error failed(std::string what) {
  return {.what = std::move(what)};
}

platform::Result<void*> make(const std::filesystem::path& path) {
  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) return failed(dlerror());
  void* const abi = dlsym(library, "quorvantis_service_abi");
  if (!abi) return failed(dlerror());
  const int version = reinterpret_cast<ServiceAbi>(abi)();
  if (version != kModuleAbi)
    return failed(path.filename().string() + " has version " + std::to_string(version) +
                  " of the services, not " + std::to_string(kModuleAbi));
  void* const factory = dlsym(library, "quorvantis_service");
  if (!factory) return failed(dlerror());
  std::string reason;
  if (void* service = reinterpret_cast<ServiceFactory>(factory)(reason)) return service;
  return failed(reason);
}

}  // namespace

platform::Result<void*> loadModule(std::string_view module) {
  const std::string file = "quorvantis-" + std::string(module) + ".so";
  const auto folders = moduleFolders();
  for (const auto& folder : folders) {
    std::error_code unreadable;
    if (std::filesystem::exists(folder / file, unreadable)) return make(folder / file);
  }
  return failed("no " + file + " in " + folders.front().string());
}

platform::Result<void*> load(const Origin& origin) {
  auto loaded = loadModule(origin.module);
  if (loaded) return loaded;
  platform::Error error{.what = std::string(origin.service) + " is not available"};
  return std::move(error).because(loaded.error());
}

}  // namespace services
