#pragma once

// Wraps a paragraph at the end of a growing text: help consists of many paragraphs, and a string
// for each of them would be copied once more.

#include <cstddef>
#include <string>
#include <string_view>

namespace kivo_3_3 {

// Does what paragraphString() does, at the end of `output`. The head is already in `output`, from
// index `head` to its end; an empty `text` removes it.
void wrapBehindHead(std::string& output, std::size_t head, std::string_view text,
                    unsigned int indent, unsigned int width);

}  // namespace kivo_3_3
