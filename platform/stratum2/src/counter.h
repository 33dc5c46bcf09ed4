#pragma once

// Reference counting for variants. If an update were lost, a shared text would leak or be freed
// while a variant still uses it.

#include <atomic>

#include "bedrock/single_thread.h"

namespace stratum2 {

// Adds `change` to a counter that threads may share, and returns the former number. While the
// process has one thread, a plain load and store are enough and cheaper.
inline int add(std::atomic<int>& counter, int change) noexcept {
  if (BEDROCK::hasOneThread()) {
    const int before = counter.load(std::memory_order_relaxed);
    counter.store(before + change, std::memory_order_relaxed);
    return before;
  }
  return counter.fetch_add(change, std::memory_order_acq_rel);
}

}  // namespace stratum2
