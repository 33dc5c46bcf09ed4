#pragma once

// Fails every allocation of an operation in turn.

#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>

#include "allocation/allocation_limit.h"

namespace kivo_3_3::testing {

// Sets a `Scene` up, runs `operation` on it with its first allocation failing, has
// `check` look at the outcome, and ends the scene; then with the second allocation
// failing, and so on until the operation gets through. All of it with one failure only,
// and again with failures for ever after. Neither may the operation raise anything, nor
// may anything stay behind once the scene has ended.
template <class Scene, class Operation, class Check>
void failEachAllocation(Operation operation, Check check) {
  for (const Failing failing : {Failing::once, Failing::forEver}) {
    bool reached = true;
    for (long allowed = 0; reached; ++allowed) {
      SCOPED_TRACE(::testing::Message() << allowed << " allocations allowed, then failing "
                                        << (failing == Failing::once ? "once" : "for ever"));
      const long before = liveBlocks();
      {
        Scene scene;
        bool raised = false;
        {
          const AllocationLimit limit(allowed, failing);
          try {
            operation(scene);
          } catch (const std::exception&) {
            raised = true;
          }
          reached = limit.reached();
        }
        EXPECT_FALSE(raised);
        check(scene);
      }
      EXPECT_EQ(before, liveBlocks());
      if (::testing::Test::HasFailure())
        return;  // those that follow would say the same
    }
  }
}

}  // namespace kivo_3_3::testing
