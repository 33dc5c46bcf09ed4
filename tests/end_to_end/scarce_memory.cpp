#include <cstdlib>
#include <iostream>

#include "allocation/allocation_limit.h"

// Linked into an example, this lets it allocate ALLOCATIONS times from the beginning of main() on;
// then one allocation fails, or all do if ALLOCATIONS_FAIL is set. The example says at its
// end if no allocation had to fail.

namespace {

using kivo_3_3::testing::AllocationLimit;
using kivo_3_3::testing::Failing;

class ScarceMemory {
 public:
  ScarceMemory() : m_limit(allowed(), failing()) {}
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;
  ~ScarceMemory() {
    if (!m_limit.reached())
      std::cerr << "memory sufficed\n";
  }

 private:
  static long allowed() {
    const char* const number = std::getenv("ALLOCATIONS");
    return number != nullptr ? std::atol(number) : 0;
  }
  static Failing failing() {
    return std::getenv("ALLOCATIONS_FAIL") != nullptr ? Failing::forEver : Failing::once;
  }

  AllocationLimit m_limit;
};

const ScarceMemory scarceMemory;

}  // namespace
