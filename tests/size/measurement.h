#pragma once

#include <chrono>
#include <ctime>
#include <string>

namespace kivo_3_3::testing {

// Prints the cost of the work that is done during its lifetime: seconds by the clock, seconds of
// processor time, the most memory held at one time (not counting what was held before), and the
// number of allocations.
class Measurement {
 public:
  explicit Measurement(std::string what);
  Measurement(const Measurement&) = delete;
  Measurement& operator=(const Measurement&) = delete;
  ~Measurement();

 private:
  std::string m_what;
  std::chrono::steady_clock::time_point m_start;
  std::clock_t m_processorStart;
};

}  // namespace kivo_3_3::testing
