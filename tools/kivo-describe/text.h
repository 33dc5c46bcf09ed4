#pragma once

// Texts in UTF-8, as descriptions hold them.

#include <cstddef>
#include <string>
#include <string_view>

#include "description.h"

namespace kivo_describe {

// Replaces each run of white space and control characters by a blank, and removes it at both ends.
// White space is that of ASCII; control characters are those of Unicode.
std::string squeezed(std::string_view text);

// Letters, digits and control characters of ASCII.
bool isLetterOrDigit(char character);
bool isControl(char character);

// Whether one of the control characters of Unicode is in the text.
bool hasControlCharacter(std::string_view text);

std::size_t countOfCharacters(std::string_view text);

// The texts before, between and after single blanks; some may be empty.
Texts splitAtBlanks(std::string_view text);

// Whether a text is not empty and has no white space of ASCII.
bool isWord(std::string_view text);

// Whether a text consists of letters and digits of ASCII, "_", "-", "." and "+", and begins with a
// letter, a digit or "_".
bool isToolName(std::string_view text);

}  // namespace kivo_describe
