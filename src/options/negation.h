#pragma once

#include <string_view>

#include "base/begins_with.h"

namespace kivo_3_3 {

// A boolean option answers to its names and to each of them with this ahead, which switches it
// off. A name that itself begins so switches it off, too.
inline constexpr std::string_view negation = "no-";

inline bool isNegated(std::string_view name) { return beginsWith(name, negation); }

// What a name that isNegated() negates.
inline std::string_view withoutNegation(std::string_view name) {
  return name.substr(negation.size());
}

}  // namespace kivo_3_3
