#pragma once

// The account of a parse, on standard output. It is silent unless the first argument of a
// parse switches it on; each run of phase one decides anew.

#include <string>

namespace kivo_3_3::reference {

// One switch for the process, off at start.
bool& traceSwitch();

// Writes the line and a flushing line break where the trace is on.
void traceLine(const std::string& line);

}  // namespace kivo_3_3::reference
