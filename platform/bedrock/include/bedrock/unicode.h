#pragma once

#include <string>

namespace BEDROCK {

/// The UTF-8 form of one character, or "-1" for what is no character: a surrogate
/// or a number above U+10FFFF.
///
/// Part of the layer's interface. The library has its dashes as constants; the reference model
/// in tests/reference makes them with this, so that each checks the other.
std::string utf32_to_utf8(char32_t character);

}  // namespace BEDROCK
