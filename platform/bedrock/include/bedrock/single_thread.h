#pragma once

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

namespace BEDROCK {

/// Whether the process surely has no other thread than this one. What threads share can then be
/// changed without atomic instructions, at a fraction of their cost; where a C library does not
/// tell, nothing is sure.
inline bool hasOneThread() noexcept {
#if __has_include(<sys/single_threaded.h>)
  return __libc_single_threaded != 0;
#else
  return false;
#endif
}

}  // namespace BEDROCK
