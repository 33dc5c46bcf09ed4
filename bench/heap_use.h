#pragma once

#include <cstddef>

// Counts the heap allocations of the process between start() and stop(). The counting is done by a
// library that is preloaded (LD_PRELOAD). Without it all counts are 0, and measured times are not
// affected.

namespace heapUse {

struct Counts {
  std::size_t allocations = 0;
  std::size_t peak = 0;  // bytes above what was in use at start()
};

}  // namespace heapUse

extern "C" {
__attribute__((weak)) void benchStartHeapCounts();
__attribute__((weak)) void benchStopHeapCounts(heapUse::Counts* counts);
}

namespace heapUse {

inline void start() {
  if (benchStartHeapCounts != nullptr)
    benchStartHeapCounts();
}

inline Counts stop() {
  Counts counts;
  if (benchStopHeapCounts != nullptr)
    benchStopHeapCounts(&counts);
  return counts;
}

}  // namespace heapUse
