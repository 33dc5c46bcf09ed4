// The preloaded library of heap_use.h: replaces the allocation functions of the C library and
// forwards to them. A block counts with its usable size. For one thread only.

#include "heap_use.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);

}  // extern "C"

namespace {

heapUse::Counts counts;
std::size_t inUse = 0;
std::size_t atStart = 0;

void* countTaken(void* block) {
  ++counts.allocations;
  inUse += malloc_usable_size(block);
  counts.peak = std::max(counts.peak, inUse);
  return block;
}

void countGiven(void* block) { inUse -= malloc_usable_size(block); }

}  // namespace

extern "C" {

void* malloc(std::size_t size) { return countTaken(__libc_malloc(size)); }

void* calloc(std::size_t count, std::size_t size) { return countTaken(__libc_calloc(count, size)); }

void* realloc(void* block, std::size_t size) {
  countGiven(block);
  return countTaken(__libc_realloc(block, size));
}

void free(void* block) {
  countGiven(block);
  __libc_free(block);
}

void benchStartHeapCounts() {
  atStart = inUse;
  counts = {0, inUse};
}

void benchStopHeapCounts(heapUse::Counts* taken) {
  *taken = {counts.allocations, counts.peak - atStart};
}

}  // extern "C"
