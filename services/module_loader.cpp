#include "services/module_loader.h"

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
  return {own.parent_path() / "lib/quorvantis", own / "modules", own.parent_path() / "modules",
          own.parent_path().parent_path() / "modules"};
}

}  // namespace

platform::Result<void*, std::string> loadModule(std::string_view module) {
  const std::string file = "quorvantis-" + std::string(module) + ".so";
  const auto folders = moduleFolders();
  for (const auto& folder : folders) {
    std::error_code unreadable;
    const auto path = folder / file;
    if (!std::filesystem::exists(path, unreadable)) continue;
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) return std::string(dlerror());
    void* const factory = dlsym(library, "quorvantis_service");
    if (!factory) return std::string(dlerror());
    std::string reason;
    if (void* service = reinterpret_cast<ServiceFactory>(factory)(reason)) return service;
    return reason;
  }
  return "no " + file + " in " + folders.front().string();
}

}  // namespace services
