#include "AllocationCount.hpp"

#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

AllocationCount total;

}  // namespace

AllocationCount AllocationCount::now() { return total; }

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

void* operator new(std::size_t size) {
  void* memory = std::malloc(size);  // NOLINT(cppcoreguidelines-no-malloc): this is what `new` is made of
  if (!memory) throw std::bad_alloc();
  total.allocated += size;
  total.alive += malloc_usable_size(memory);
  return memory;
}

void operator delete(void* memory) noexcept {
  total.alive -= malloc_usable_size(memory);
  std::free(memory);  // NOLINT(cppcoreguidelines-no-malloc)
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

#endif
