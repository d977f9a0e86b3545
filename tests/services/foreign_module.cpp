#include <string>

// A module of another version, or, without FOREIGN_ABI, of none. Its factory must not be called.
#ifdef FOREIGN_ABI
extern "C" int quorvantis_service_abi() {
  return FOREIGN_ABI;
}
#endif

extern "C" void* quorvantis_service(std::string&) {
  __builtin_trap();
}
