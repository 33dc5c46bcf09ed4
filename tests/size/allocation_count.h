#pragma once

#include <cstddef>

namespace kivo_3_3::testing {

// The allocations of this executable since the last startCounting(): their number, their bytes in
// total, and the most bytes held at one time, not counting those held at the start.
struct AllocationCount {
  std::size_t allocations = 0;
  std::size_t bytes = 0;
  std::ptrdiff_t peakBytes = 0;
};

void startCounting();
AllocationCount countedSoFar();

}  // namespace kivo_3_3::testing
