#pragma once

// Wrapping into a text that grows, for who writes many paragraphs.

#include <cstddef>
#include <string>
#include <string_view>

namespace kivo_3_3 {

// What paragraphString() makes of `text` and a head, written behind what `output` holds.
// The head stands in `output` already, from `head` to its end; an empty `text` takes it
// away again.
void wrapBehindHead(std::string& output, std::size_t head, std::string_view text,
                    unsigned int indent, unsigned int width);

}  // namespace kivo_3_3
