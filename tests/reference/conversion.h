#pragma once

// Converts typed values to text and back, by the declared type of an option.
//
// Each number is converted by a new string stream, so it follows the global locale of that moment,
// unless another one is given.
// A converted text gets a copy of its characters, which all copies of the typed value share.

#include <kivo/value.h>

#include <locale>
#include <string>

namespace kivo_3_3::reference {

// Reads the value as `type`, whatever its own type is, and returns the text; empty for a type that
// has no conversions. If the value cannot be read as `type`, the assertion handler is called; if
// the handler returns, the value counts as zero or as the empty text.
std::string toText(variant_type_t type, const variant_t& value,
                   const std::locale& locale = std::locale());

// Whether toText() can read the value as `type`; false for a type that has no conversions.
bool canBecomeText(variant_type_t type, const variant_t& value);

// The typed value of a text. It is of type `vtNull` if the text does not convert, or if `type` has
// no conversions. An empty text under `vtU64` raises std::out_of_range.
variant_t fromText(variant_type_t type, const std::string& text);

// The name of a type in messages and help, empty for a type without conversions.
std::string typeName(variant_type_t type);

}  // namespace kivo_3_3::reference
