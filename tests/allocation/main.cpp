// Runs the tests and tells how much they have tried.

#include <gtest/gtest.h>

#include <iostream>

#include "allocation/allocation_limit.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const int outcome = RUN_ALL_TESTS();
  std::cout << kivo_3_3::testing::failedAllocations() << " allocations were made to fail\n";
  return outcome;
}
