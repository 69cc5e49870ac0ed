// SPDX-License-Identifier: MIT
#include "AllocationCount.hpp"

#include <cstdlib>
#include <new>

std::size_t allocatedBytes = 0;

// These functions are the allocator, so they call malloc and free.
// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
void* operator new(std::size_t size) {
  allocatedBytes += size;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
// NOLINTEND(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
