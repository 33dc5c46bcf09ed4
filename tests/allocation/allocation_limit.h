#pragma once

// Makes memory run out on demand. An executable that links this has its global allocation functions
// replaced.

namespace kivo_3_3::testing {

enum class Failing { once, forEver };

// For its lifetime, `allowed` allocations of the process succeed; then the next one fails, or all
// following ones do.
class AllocationLimit {
 public:
  AllocationLimit(long allowed, Failing failing);
  AllocationLimit(const AllocationLimit&) = delete;
  AllocationLimit& operator=(const AllocationLimit&) = delete;
  ~AllocationLimit();

  // Whether an allocation was made to fail.
  bool reached() const;
};

// The number of allocations that were made to fail in this process so far.
long failedAllocations();

// The number of blocks that were allocated and not freed yet.
long liveBlocks();

}  // namespace kivo_3_3::testing
