#pragma once

// Two columns: a head, and a text that is wrapped into the column beside the head.

#include <string>

namespace kivo_3_3::reference {

// Wraps `text` into a column of `width` that starts at column `indent`; `head` begins the first
// line. Every line ends with a newline. An empty text gives the empty text, without the head. A
// column without room for a character raises std::out_of_range. A `width` of 0 has no limit,
// because the lengths are unsigned and wrap around.
std::string paragraphString(std::string text, std::string head, unsigned int indent,
                            unsigned int width);

}  // namespace kivo_3_3::reference
