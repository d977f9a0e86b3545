#include "services/evcard.h"

#include <dlfcn.h>

namespace services::evcard {

platform::Result<Library> open() {
  void* const opened = dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
  if (!opened)
    return platform::Error{.what = std::string(dlerror()) + " (Debian's package " + kPackage + ")"};
  Library library;
  bool complete = true;
  const auto find = [&](auto& function, const char* name) {
    function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(opened, name));
    complete = complete && function;
  };
#define FIND(name) find(library.name, #name)
  FIND(e_vcard_new_from_string);
  FIND(e_vcard_get_attributes);
  FIND(e_vcard_attribute_get_name);
  FIND(e_vcard_attribute_get_values);
  FIND(g_object_unref);
  FIND(g_log_set_handler);
#undef FIND
  if (!complete) return platform::Error{.what = std::string(kLibrary) + ": " + dlerror()};
  return library;
}

}  // namespace services::evcard
