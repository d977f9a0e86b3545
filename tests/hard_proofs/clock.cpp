// clock.so, to be loaded before a program: its wall clock begins at the second HARD_CLOCK, and with
// HARD_CLOCK_BACK each look at it is that many seconds earlier than the one before.
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>

namespace {

long fromEnvironment(const char* name) {
  const char* text = getenv(name);
  return text != nullptr ? atol(text) : 0;
}

time_t now() {
  static time_t second = fromEnvironment("HARD_CLOCK");
  return second -= fromEnvironment("HARD_CLOCK_BACK");
}

}  // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* result) noexcept {
  if (syscall(SYS_clock_gettime, clock, result) != 0) return -1;
  if (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE) result->tv_sec = now();
  return 0;
}

int gettimeofday(timeval* result, void*) noexcept {
  timespec time{};
  clock_gettime(CLOCK_REALTIME, &time);
  *result = {time.tv_sec, time.tv_nsec / 1000};
  return 0;
}

time_t time(time_t* result) noexcept {
  const time_t second = now();
  if (result != nullptr) *result = second;
  return second;
}
}
