#pragma once

// The test for a prefix. Names, abbreviations, dashes and numbers are all recognized with it, so a
// mistake here would read almost every argument wrongly.

#include <cstring>
#include <string_view>

namespace kivo_3_3 {

// Whether `text` begins with `prefix`. If `prefix` is a constant, the call is inlined; a comparison
// with text.substr() would not be.
inline bool beginsWith(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() &&
         (prefix.empty() || std::memcmp(text.data(), prefix.data(), prefix.size()) == 0);
}

}  // namespace kivo_3_3
