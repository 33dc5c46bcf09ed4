#pragma once

#include <string>

#include "tool/scope.h"

namespace kivo_3_3::tool_glue {

/// What "--help" prints for a tool or one of its commands.
std::string helpPage(const ToolData& tool, const Scope& scope, unsigned int width);

/// The commands that begin with these words, one a line.
std::string commandList(const ToolData& tool, const std::string& words, unsigned int width);

}  // namespace kivo_3_3::tool_glue
