#pragma once

#include <string>

namespace kivo_3_3 {

// A name or a value as messages show it.
inline std::string quoted(const std::string& text) { return "'" + text + "'"; }

}  // namespace kivo_3_3
