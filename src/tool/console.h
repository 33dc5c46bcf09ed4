#pragma once

#include <string>

#include "tool/tool_data.h"

namespace kivo_3_3::tool_glue {

/// Prints a text to standard output or standard error, or hands it to the tool's own function.
/// False if it cannot be written, or if that function throws. Throws std::bad_alloc.
bool print(const ToolData& tool, const std::string& text, bool isError);

/// The columns of the terminal, between 60 and 100.
unsigned int terminalWidth();

}  // namespace kivo_3_3::tool_glue
