#include "size/measurement.h"

#include <cstdio>
#include <utility>

#include "size/allocation_count.h"

namespace kivo_3_3::testing {

Measurement::Measurement(std::string what) : m_what(std::move(what)) {
  startCounting();
  m_start = std::chrono::steady_clock::now();
  m_processorStart = std::clock();
}

Measurement::~Measurement() {
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - m_start;
  const double worked = static_cast<double>(std::clock() - m_processorStart) / CLOCKS_PER_SEC;
  const AllocationCount counted = countedSoFar();
  std::printf("measured %-64s %6.2f s %6.2f s processor %7.1f MB %8zu allocations\n",
              m_what.c_str(), passed.count(), worked, static_cast<double>(counted.peakBytes) / 1e6,
              counted.allocations);
}

}  // namespace kivo_3_3::testing
