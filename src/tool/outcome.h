#pragma once

#include <exception>
#include <string>

#include "tool/tool_data.h"

// How a run ends: what is printed, and the status of the tool for it. Scripts read both: if a
// status went with another reason than before, they would go on after an error.

namespace kivo_3_3::tool_glue {

/// Prints a text that the user has asked for. Returns the status of the tool.
int printed(const ToolData& tool, const std::string& text);

/// Prints an error of the user with the way to the help.
void printError(const ToolData& tool, const std::string& reason);

/// The same; returns the status for wrong arguments.
int refused(const ToolData& tool, const std::string& reason);

/// Prints the reason for a failure of the parser. Returns the status of the tool for that of the
/// parser. Throws std::bad_alloc if memory has run out.
int statusOf(const ToolData& tool, int parserStatus, const std::string& reason);

/// The same for what a function of the tool has thrown.
int statusOfThrown(const ToolData& tool, const std::exception_ptr& thrown);

}  // namespace kivo_3_3::tool_glue
