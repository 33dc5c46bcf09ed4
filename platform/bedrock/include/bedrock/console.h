#pragma once

#include <iosfwd>

namespace BEDROCK {

/// The console of the process: standard output and standard error.
extern std::ostream& ucout;
extern std::ostream& ucerr;

}  // namespace BEDROCK
