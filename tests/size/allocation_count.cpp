// Counts the allocations by the global operator new of this executable. The executable has one
// thread, so the counters are plain numbers.

#include "size/allocation_count.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace kivo_3_3::testing {

namespace {

AllocationCount counted;
std::ptrdiff_t held = 0;

void* counting(void* memory) {
  if (memory == nullptr)
    throw std::bad_alloc();
  ++counted.allocations;
  const std::size_t taken = malloc_usable_size(memory);
  counted.bytes += taken;
  held += static_cast<std::ptrdiff_t>(taken);
  counted.peakBytes = std::max(counted.peakBytes, held);
  return memory;
}

void* take(std::size_t size) { return counting(std::malloc(size != 0 ? size : 1)); }

void* take(std::size_t size, std::size_t alignment) {
  const std::size_t rounded =
      (std::max<std::size_t>(size, 1) + alignment - 1) / alignment * alignment;
  return counting(std::aligned_alloc(alignment, rounded));
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

// The array forms and the nothrow forms call these. The default memory resource always calls the
// form with an alignment.
void* operator new(std::size_t size) { return kivo_3_3::testing::take(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return kivo_3_3::testing::take(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept { kivo_3_3::testing::give(memory); }
void operator delete(void* memory, std::size_t) noexcept { kivo_3_3::testing::give(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { kivo_3_3::testing::give(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  kivo_3_3::testing::give(memory);
}
