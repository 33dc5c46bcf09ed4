#pragma once

#include <string>
#include <string_view>

namespace textkit {

/// A text as one field of a CSV line: as it is, or in double quotes where it must be.
std::string csvField(std::string_view text);

}  // namespace textkit
