#pragma once

// Memory that runs out on demand. An executable that links this has its global
// allocation functions replaced.

namespace kivo_3_3::testing {

enum class Failing { once, forEver };

// While one lives, `allowed` allocations of the process succeed; the next one fails, or
// that and all behind it.
class AllocationLimit {
 public:
  AllocationLimit(long allowed, Failing failing);
  AllocationLimit(const AllocationLimit&) = delete;
  AllocationLimit& operator=(const AllocationLimit&) = delete;
  ~AllocationLimit();

  // Whether an allocation was made to fail.
  bool reached() const;
};

// Allocations made to fail in this process so far.
long failedAllocations();

// Blocks that were allocated and not freed yet.
long liveBlocks();

}  // namespace kivo_3_3::testing
