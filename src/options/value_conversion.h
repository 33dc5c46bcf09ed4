#pragma once

// Converts values to text and text to values, for each type that an option can have.
//
// Numbers are read and written as the standard streams do under the global locale. In the classic
// locale most numbers take a faster path to the same result.

#include <kivo/value.h>

#include <string>
#include <string_view>

#include "storage/garbage.h"

namespace kivo_3_3 {

// Appends the text of `value`, which must be convertible to `type`. For a type that options do not
// have, appends nothing and returns false.
bool appendValue(variant_type_t type, const variant_t& value, std::string& text);

// Like appendValue(), but in the classic locale, whatever the global locale is.
bool appendClassicValue(variant_type_t type, const variant_t& value, std::string& text);

// Whether appendValue() can read the value; if not, appendValue() would call the assertion handler.
// True for a type that options do not have, since appendValue() then reads nothing.
bool canBecomeText(variant_type_t type, const variant_t& value);

// The text that appendValue() appends, owned by `garbage`; null for a type that options do not
// have. Raises std::bad_alloc.
const char* valueToText(variant_type_t type, const variant_t& value, Garbage& garbage);

// The value of `text` in the type `type`; `vtNull` if `text` does not convert or options do not
// have this type.
variant_t textToValue(variant_type_t type, std::string_view text);

// The same for a caller that knows whether the global locale is the classic one.
variant_t textToValue(variant_type_t type, std::string_view text, bool isClassic);

// The name of `type` for messages and help, empty for a type that options do not have.
const char* typeName(variant_type_t type);

// Reads an unsigned number. It is hexadecimal if the text consists of hexadecimal digits and either
// the prefix "0x" or the suffix "h", each in either case; otherwise it is decimal. Characters after
// the number are ignored:
//   "12" -> 12   "12abc" -> 12   "0x1F", "1Fh" -> 31   "0x1G" -> 0   "FF" -> false
// An empty text raises std::out_of_range.
template <class T>
bool fromStringToNumber(std::string_view text, T& value);
extern template bool fromStringToNumber<u64_t>(std::string_view text, u64_t& value);

}  // namespace kivo_3_3
