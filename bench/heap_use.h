#pragma once

#include <cstddef>

// Counts what the process takes from the heap between start() and stop(). That is done by
// a library that is loaded ahead of the others (LD_PRELOAD); without it everything is 0,
// and nothing of it is in the way of a time that is taken.

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
