// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

// What the whole program has allocated with `new` since it began: how often, how many bytes, and
// how many of them are still there. A build with sanitizers has its own allocator, and counts
// nothing.
struct AllocationCount {
  static AllocationCount now();

  std::size_t allocations = 0;
  std::size_t allocated = 0;
  std::size_t alive = 0;
};
