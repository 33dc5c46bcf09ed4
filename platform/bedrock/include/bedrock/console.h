#pragma once

#include <iosfwd>

namespace BEDROCK {

/// The console of the process: standard output and standard error. They are thread-local
/// for one reason: such a variable is made at its first use, so that a process which writes
/// nothing does not pay for the streams.
extern thread_local std::ostream& ucout;
extern thread_local std::ostream& ucerr;

}  // namespace BEDROCK
