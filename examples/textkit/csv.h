#pragma once

#include <string>
#include <string_view>

namespace textkit {

/// A text as one field of a CSV line, in double quotes if it needs them.
std::string csvField(std::string_view text);

}  // namespace textkit
