#pragma once

#include <string>
#include <vector>

#include "tool/scope.h"

namespace kivo_3_3::tool_glue {

/// At most two of the names that are near to what was typed, the nearest first.
std::vector<std::string> nearest(std::vector<std::string> names, const std::string& typed);

/// "Did you mean ..." for a message that tells of an option that there is not; else the empty text.
std::string suggestedOption(const Scope& scope, const std::vector<std::string>& unknownNames,
                            const std::string& reason);

/// "Did you mean ..." for a message that tells of a text that is no choice; else the empty text.
std::string suggestedChoice(const Scope& scope, const std::string& reason);

}  // namespace kivo_3_3::tool_glue
