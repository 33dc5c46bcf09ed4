#pragma once

// Allocation of large blocks, for arenas. It is about speed alone: plain operator
// new would give the same results.

#include <cstddef>

namespace BEDROCK {

/// Allocates `bytes` with ::operator new; free the memory with ::operator delete. For 4 MB or more,
/// the system is asked to map pages of 2 MB instead of 4 KB. Filling the memory then causes fewer
/// page faults, which saves a tenth of the time for a million arguments.
/// Raises std::bad_alloc.
void* allocateInLargePages(std::size_t bytes);

}  // namespace BEDROCK
