#pragma once

// How one argument is taken apart: dashes, then a name, then perhaps a value.

#include <string>
#include <vector>

namespace kivo_3_3::reference {

// The length in bytes of the dash that starts at byte `pos`: 1 for "-", 3 for a typographic
// dash in UTF-8, 0 where no dash starts. Raises std::out_of_range beyond the end.
unsigned int getDashLength(const std::string& text, unsigned int pos);

// Drops up to two dashes, and splits the rest into name and value at the first '=' or run of
// white space. Returns whether a value was split off; without one, `value` is not touched.
bool splitOptionValue(const std::string& arg, std::string* name, std::string* value);

// The non-empty pieces of a value between its separators: "a,,b" gives "a" and "b".
std::vector<std::string> tokensOf(const std::string& value, char separator);

// An ASCII hyphen; a typographic dash does not count.
bool startsWithHyphen(const std::string& text);

}  // namespace kivo_3_3::reference
