#pragma once

// The console streams that the trace, the warnings and failed assertions are written to. The
// standard streams themselves cost every process more than parsing a short command line.

#include <iosfwd>

namespace BEDROCK {

/// Standard output and standard error of the process. They are thread-local for one reason: a
/// thread-local variable is initialised at its first use, so that a process that writes nothing
/// does not initialise the streams.
extern thread_local std::ostream& ucout;
extern thread_local std::ostream& ucerr;

}  // namespace BEDROCK
