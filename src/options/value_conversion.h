#pragma once

// Values to text and text to values, one conversion for each type an option can have.
//
// Numbers read and look as the standard streams read and write them under the global
// locale. In the classic locale most of them take a shorter road to the same result.

#include <kivo/value.h>

#include <string>
#include <string_view>

#include "storage/garbage.h"

namespace kivo_3_3 {

// Appends the text of `value`, which must be able to give what `type` asks for. False, and
// nothing appended, under a type that options do not have.
bool appendValue(variant_type_t type, const variant_t& value, std::string& text);

// The same in the classic locale, whatever the global one.
bool appendClassicValue(variant_type_t type, const variant_t& value, std::string& text);

// Whether appendValue() can read the value; if it cannot, it calls the assertion handler. Nothing
// is read under a type that options do not have.
bool canBecomeText(variant_type_t type, const variant_t& value);

// The text that appendValue() appends, kept in `garbage`; null under a type that options do not
// have. Raises std::bad_alloc when it cannot be kept.
const char* valueToText(variant_type_t type, const variant_t& value, Garbage& garbage);

// What `text` stands for under `type`; `vtNull` where it stands for nothing and under a
// type that options do not have.
variant_t textToValue(variant_type_t type, std::string_view text);

// The name of `type` for messages and help, empty for a type that options do not have.
const char* typeName(variant_type_t type);

// Reads an unsigned number, in decimal or, with "0x" ahead or "h" behind nothing but
// hexadecimal digits, in hexadecimal. What stands behind the number is not looked at:
//   "12" -> 12   "12abc" -> 12   "0x1F", "1Fh" -> 31   "0x1G" -> 0   "FF" -> false
// An empty text raises std::out_of_range.
template <class T>
bool fromStringToNumber(std::string_view text, T& value);
extern template bool fromStringToNumber<u64_t>(std::string_view text, u64_t& value);

}  // namespace kivo_3_3
