#pragma once

#include <string>
#include <vector>

namespace kivo_3_3::tool_glue {

/// At most two of the names that are near to what was typed, the nearest first.
std::vector<std::string> nearest(std::vector<std::string> names, const std::string& typed);

}  // namespace kivo_3_3::tool_glue
