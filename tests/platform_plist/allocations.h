#pragma once

#include <cstddef>

namespace plist_test {

// What operator new has given out in this program, as the allocator rounds it.
struct Allocations {
  std::size_t now = 0, peak = 0, calls = 0;
};
extern Allocations allocations;

}  // namespace plist_test
