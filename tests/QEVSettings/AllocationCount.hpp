#pragma once

#include <cstddef>

// What the whole program has allocated with `new` since it began, in bytes, and what of it is still there. A build
// with sanitizers has its own allocator, and counts nothing.
struct AllocationCount {
  static AllocationCount now();

  std::size_t allocated = 0;
  std::size_t alive = 0;
};
