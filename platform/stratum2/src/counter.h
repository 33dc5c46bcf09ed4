#pragma once

#include <atomic>

#include "bedrock/single_thread.h"

namespace stratum2 {

// Changes a counter that threads may share, and returns the number before.
inline int add(std::atomic<int>& counter, int change) noexcept {
  if (BEDROCK::hasOneThread()) {
    const int before = counter.load(std::memory_order_relaxed);
    counter.store(before + change, std::memory_order_relaxed);
    return before;
  }
  return counter.fetch_add(change, std::memory_order_acq_rel);
}

}  // namespace stratum2
