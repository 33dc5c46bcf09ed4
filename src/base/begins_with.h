#pragma once

#include <cstring>
#include <string_view>

namespace kivo_3_3 {

// Inlined where `prefix` is a constant, unlike the comparison of a substring.
inline bool beginsWith(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() &&
         (prefix.empty() || std::memcmp(text.data(), prefix.data(), prefix.size()) == 0);
}

}  // namespace kivo_3_3
