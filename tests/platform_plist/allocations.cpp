#include "tests/platform_plist/allocations.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace plist_test {

Allocations allocations;

}  // namespace plist_test

using plist_test::allocations;

void* operator new(std::size_t size) {
  void* place = std::malloc(size);
  if (!place) throw std::bad_alloc();
  allocations.now += malloc_usable_size(place);
  allocations.peak = std::max(allocations.peak, allocations.now);
  ++allocations.calls;
  return place;
}

void operator delete(void* place) noexcept {
  if (place) allocations.now -= malloc_usable_size(place);
  std::free(place);
}

void operator delete(void* place, std::size_t) noexcept {
  operator delete(place);
}
