#pragma once

#include "tool/scope.h"

namespace kivo_3_3::tool_glue {

/// Reports what the author of the tool has declared wrong, apart from names, which Scope reports.
/// A command does not look at the declarations of its tool again.
void reportMistakes(const ToolData& tool, const Scope& scope);

}  // namespace kivo_3_3::tool_glue
