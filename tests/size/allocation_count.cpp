// Counts what goes through the global operator new of this executable. There are no
// threads here, so plain numbers do.

#include "size/allocation_count.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace kivo_3_3::testing {

namespace {

AllocationCount counted;
std::ptrdiff_t held = 0;

void* take(std::size_t size) {
  void* const memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr)
    throw std::bad_alloc();
  ++counted.allocations;
  const std::size_t taken = malloc_usable_size(memory);
  counted.bytes += taken;
  held += static_cast<std::ptrdiff_t>(taken);
  counted.peakBytes = std::max(counted.peakBytes, held);
  return memory;
}

void give(void* memory) {
  held -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
  std::free(memory);
}

}  // namespace

void startCounting() {
  counted = {};
  held = 0;
}

AllocationCount countedSoFar() { return counted; }

}  // namespace kivo_3_3::testing

// Arrays and the forms that do not throw come down to these.
void* operator new(std::size_t size) { return kivo_3_3::testing::take(size); }
void operator delete(void* memory) noexcept { kivo_3_3::testing::give(memory); }
void operator delete(void* memory, std::size_t) noexcept { kivo_3_3::testing::give(memory); }
