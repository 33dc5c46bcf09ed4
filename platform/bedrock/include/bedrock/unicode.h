#pragma once

// UTF-8 encoding for the tests of typographic dashes. The library has its dashes as constants, so a
// mistake here shows as a difference from the reference model.

#include <string>

namespace BEDROCK {

/// Returns one character in UTF-8, or "-1" for a number that is no character: a surrogate or a
/// number above U+10FFFF.
///
/// Part of the layer's interface. The library has its dashes as constants, and the reference model
/// in tests/reference makes the same dashes with this function, so that each checks the other.
std::string utf32_to_utf8(char32_t character);

}  // namespace BEDROCK
