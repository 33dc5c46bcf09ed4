#pragma once

// UTF-8. A mistake in the decoder would spoil the texts in a description; one in the encoder, which
// only tests use, shows as a difference from the reference model.

#include <cstddef>
#include <string>
#include <string_view>

namespace BEDROCK {

/// Returns one character in UTF-8, or "-1" for a number that is no character: a surrogate or a
/// number above U+10FFFF.
///
/// Part of the layer's interface. The library has its dashes as constants, and the reference model
/// in tests/reference makes the same dashes with this function, so that each checks the other.
std::string utf32_to_utf8(char32_t character);

/// Decodes the first character of a text that is not empty. Returns its length in bytes; 0, with
/// `character` unchanged, if the text does not begin with a character in UTF-8: a byte that begins
/// none, a character that is cut short, one in more bytes than needed, a surrogate, or a number
/// above U+10FFFF.
std::size_t utf8_to_utf32(std::string_view text, char32_t& character);

}  // namespace BEDROCK
