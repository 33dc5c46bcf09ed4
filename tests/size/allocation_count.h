#pragma once

#include <cstddef>

namespace kivo_3_3::testing {

// What this executable has taken from the heap since the last startCounting(): how often,
// how many bytes altogether, and the most held at one time beyond what was held at the
// start.
struct AllocationCount {
  std::size_t allocations = 0;
  std::size_t bytes = 0;
  std::ptrdiff_t peakBytes = 0;
};

void startCounting();
AllocationCount countedSoFar();

}  // namespace kivo_3_3::testing
