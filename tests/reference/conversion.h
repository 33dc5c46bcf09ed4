#pragma once

// Typed values to text and back, by the declared type of an option.
//
// Numbers go through string streams of their own, so they follow the global locale of the
// moment. Each text that is converted gets a typed value with characters of its own, which
// all copies of the value share.

#include <kivo/value.h>

#include <string>

namespace kivo_3_3::reference {

// The text of a value, read as `type`, whatever the type of the value. Under a type that has
// no conversions it is empty. A value that cannot be read as `type` calls the assertion
// handler; should the handler return, the value counts as zero or as the empty text.
std::string toText(variant_type_t type, const variant_t& value);

// The value of a text; `vtNull` where the text does not convert, or the type has no
// conversions. An empty text under `vtU64` raises std::out_of_range.
variant_t fromText(variant_type_t type, const std::string& text);

// The name of a type in messages and help, empty for a type without conversions.
std::string typeName(variant_type_t type);

}  // namespace kivo_3_3::reference
