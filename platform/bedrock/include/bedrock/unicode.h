#pragma once

#include <string>

namespace BEDROCK {

/// The UTF-8 form of one character, or "-1" for what is no character: a surrogate
/// or a number above U+10FFFF.
std::string utf32_to_utf8(char32_t character);

}  // namespace BEDROCK
