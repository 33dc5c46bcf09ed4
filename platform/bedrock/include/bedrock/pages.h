#pragma once

// Large pages for large blocks of memory. It is about speed alone: plain operator new would give
// the same results.

#include <cstddef>

namespace BEDROCK {

/// Allocates `bytes` with ::operator new, and asks for large pages; free the memory with ::operator
/// delete. Raises std::bad_alloc.
void* allocateInLargePages(std::size_t bytes);

/// Asks the system to map this memory in pages of 2 MB instead of 4 KB, if it is 4 MB or more. It
/// must not have been used yet. Filling it then causes fewer page faults, which saves a tenth of
/// the time for a million arguments.
void askForLargePages(void* memory, std::size_t bytes);

}  // namespace BEDROCK
