// A fuzz target makes and frees little memory many times: with the standard settings of the address
// sanitizer, made for programs that run once, it takes twice as long. $ASAN_OPTIONS changes them,
// as malloc_context_size=30 does for a report that says who called for the memory.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
  return "quarantine_size_mb=1:malloc_context_size=1";
}
