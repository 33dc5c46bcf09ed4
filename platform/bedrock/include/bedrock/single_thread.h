#pragma once

// Lets counters skip atomic instructions in a process with one thread. If the answer were wrong,
// threads would draw equal positions and lose updates of reference counts.

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

namespace BEDROCK {

/// Whether the process certainly has one thread only. Shared counters can then be changed without
/// atomic instructions, at a fraction of the cost. False if the C library does not provide this
/// information.
inline bool hasOneThread() noexcept {
#if __has_include(<sys/single_threaded.h>)
  return __libc_single_threaded != 0;
#else
  return false;
#endif
}

}  // namespace BEDROCK
