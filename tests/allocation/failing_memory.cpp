#include <gtest/gtest.h>

#include <iostream>

#include "allocation/allocation_limit.h"

namespace kivo_3_3::testing {

namespace {

// Prints at the end how many allocations were made to fail.
class TellFailedAllocations : public ::testing::Environment {
 public:
  void TearDown() override {
    if (failedAllocations() != 0)
      std::cout << failedAllocations() << " allocations were made to fail" << std::endl;
  }
};

[[maybe_unused]] const auto* const told =
    ::testing::AddGlobalTestEnvironment(new TellFailedAllocations);

}  // namespace

}  // namespace kivo_3_3::testing
