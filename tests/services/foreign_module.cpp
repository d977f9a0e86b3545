#include <string>

#define EXPORTED extern "C" __attribute__((visibility("default")))

// A module of another version, or, without FOREIGN_ABI, of none. Its factory must not be called.
#ifdef FOREIGN_ABI
EXPORTED int quorvantis_service_abi() {
  return FOREIGN_ABI;
}
#endif

EXPORTED void* quorvantis_service(std::string&) {
  __builtin_trap();
}
