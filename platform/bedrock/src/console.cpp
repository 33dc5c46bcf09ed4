// Defines the console streams. A stream that is not ready at its first use would lose the trace.

#include "bedrock/console.h"

#include "bedrock/standard_library.h"

namespace BEDROCK {

thread_local std::ostream& ucout = standardOutput();
thread_local std::ostream& ucerr = standardError();

}  // namespace BEDROCK
