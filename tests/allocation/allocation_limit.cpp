#include "allocation/allocation_limit.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

namespace kivo_3_3::testing {

namespace {

constexpr long unlimited = -1;

std::atomic<long> allocationsLeft = unlimited;
std::atomic<bool> keepsFailing = false;
std::atomic<bool> hasFailed = false;
std::atomic<long> failed = 0;
std::atomic<long> live = 0;

bool fails() {
  if (allocationsLeft == unlimited)
    return false;
  if (allocationsLeft != 0) {
    --allocationsLeft;
    return false;
  }
  if (hasFailed && !keepsFailing)
    return false;
  hasFailed = true;
  ++failed;
  return true;
}

void* counted(void* block) {
  if (block == nullptr)
    throw std::bad_alloc();
  ++live;
  return block;
}

void* allocate(std::size_t bytes) {
  return counted(fails() ? nullptr : std::malloc(bytes != 0 ? bytes : 1));
}

void* allocate(std::size_t bytes, std::size_t alignment) {
  const std::size_t rounded =
      (std::max<std::size_t>(bytes, 1) + alignment - 1) / alignment * alignment;
  return counted(fails() ? nullptr : std::aligned_alloc(alignment, rounded));
}

// Overwrites freed memory, so that a later read of it is noticed.
void release(void* block) noexcept {
  if (block == nullptr)
    return;
  --live;
  std::memset(block, 0xDD, malloc_usable_size(block));
  std::free(block);
}

}  // namespace

AllocationLimit::AllocationLimit(long allowed, Failing failing) {
  keepsFailing = failing == Failing::forEver;
  hasFailed = false;
  allocationsLeft = allowed;
}

AllocationLimit::~AllocationLimit() { allocationsLeft = unlimited; }

bool AllocationLimit::reached() const { return hasFailed; }

long failedAllocations() { return failed; }

long liveBlocks() { return live; }

}  // namespace kivo_3_3::testing

// The other forms of operator new call these. The default memory resource always calls the form
// with an alignment.
void* operator new(std::size_t bytes) { return kivo_3_3::testing::allocate(bytes); }
void* operator new(std::size_t bytes, std::align_val_t alignment) {
  return kivo_3_3::testing::allocate(bytes, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  try {
    return kivo_3_3::testing::allocate(bytes);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* block) noexcept { kivo_3_3::testing::release(block); }
void operator delete(void* block, std::size_t) noexcept { kivo_3_3::testing::release(block); }
void operator delete(void* block, std::align_val_t) noexcept { kivo_3_3::testing::release(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  kivo_3_3::testing::release(block);
}
