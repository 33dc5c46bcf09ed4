#pragma once

// Conversion of types and values from the words of a scenario and to those of a transcript.

#include <kivo/value.h>

#include <string>

namespace kivo_3_3::scenarios {

// vtNull for an unknown word.
variant_type_t typeOf(const std::string& word);

// A value of this kind, read from `text`; the kind "reference" refers to `buffer` instead.
variant_t valueOf(const std::string& kind, const std::string& text, const char* buffer);

// "s32:3"; doubles are hexadecimal, so that no bit is lost. A text is shown by its kind alone.
std::string shownKind(const variant_t& value);

}  // namespace kivo_3_3::scenarios
