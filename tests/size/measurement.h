#pragma once

#include <chrono>
#include <ctime>
#include <string>

namespace kivo_3_3::testing {

// Prints what the work done while it lives has cost: seconds on the clock, seconds
// of the processor, and the largest amount of memory held beyond what was held before.
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
