#pragma once

#include "tool/tool_data.h"

namespace kivo_3_3::tool_glue {

/// Reads a command line and does what it asks for. Returns whether the tool is done, with `status`.
/// Throws std::bad_alloc, and what an action or a command throws.
bool run(ToolData& tool, const std::vector<const char*>& words, int& status);

/// Makes the parser if there is none. Throws std::bad_alloc.
IParser& parserOf(ToolData& tool);

/// What "--help" prints. Throws std::bad_alloc, and NoText.
std::string helpOf(ToolData& tool);

}  // namespace kivo_3_3::tool_glue
