// SPDX-License-Identifier: MIT
#include "AllocationCount.hpp"

#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

AllocationCount total;

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

void* counted(std::size_t size, void* memory) {
  if (!memory) throw std::bad_alloc();
  ++total.allocations;
  total.allocated += size;
  total.alive += malloc_usable_size(memory);
  return memory;
}

#endif

}  // namespace

AllocationCount AllocationCount::now() { return total; }

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

void* operator new(std::size_t size) {
  return counted(
      size,
      std::malloc(size));  // NOLINT(cppcoreguidelines-no-malloc): this is what `new` is made of
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  return counted(size, aligned_alloc(static_cast<std::size_t>(alignment), size));
}

void operator delete(void* memory) noexcept {
  total.alive -= malloc_usable_size(memory);
  std::free(memory);  // NOLINT(cppcoreguidelines-no-malloc)
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { operator delete(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  operator delete(memory);
}

#endif
