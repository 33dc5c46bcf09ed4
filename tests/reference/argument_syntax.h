#pragma once

// Splits an argument into its parts: dashes, a name, and perhaps a value.

#include <string>
#include <vector>

namespace kivo_3_3::reference {

// The length in bytes of the dash that starts at byte `pos`: 1 for "-", 3 for a typographic dash in
// UTF-8, 0 if no dash starts there. Raises std::out_of_range if `pos` is beyond the end.
unsigned int getDashLength(const std::string& text, unsigned int pos);

// Drops up to two dashes, and splits the rest into name and value at the first '=' or run of white
// space. Returns whether there is a value; if not, `value` is not changed.
bool splitOptionValue(const std::string& arg, std::string* name, std::string* value);

// The non-empty pieces of a value between its separators: "a,,b" gives "a" and "b".
std::vector<std::string> tokensOf(const std::string& value, char separator);

// Whether the text starts with an ASCII hyphen. A typographic dash does not count.
bool startsWithHyphen(const std::string& text);

}  // namespace kivo_3_3::reference
