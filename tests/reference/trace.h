#pragma once

// Traces the steps of a parse on standard output. The trace is silent unless the first argument of
// a parse switches it on; each run of phase one sets the switch anew.

#include <string>

namespace kivo_3_3::reference {

// One switch for the process, off at start.
bool& traceSwitch();

// Writes the line and flushes it, if the trace is on.
void traceLine(const std::string& line);

}  // namespace kivo_3_3::reference
