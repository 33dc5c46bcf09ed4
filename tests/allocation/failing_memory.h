#pragma once

// Makes each allocation of an operation fail in turn.

#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>

#include "allocation/allocation_limit.h"

namespace kivo_3_3::testing {

// Sets up a `Scene`, runs `operation` on it with the first allocation failing, calls `check` and
// destroys the scene; then again with the second allocation failing, and so on until the operation
// succeeds. Does all of this with a single failure, and again with all later allocations failing
// too. The operation must not throw, and the scene must not leak.
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
        return;  // the later rounds would fail in the same way
    }
  }
}

}  // namespace kivo_3_3::testing
