#pragma once

// The prefix that switches a boolean option off. Declaring, finding and showing options must agree
// on it.

#include <optional>
#include <string_view>

#include "base/begins_with.h"

namespace kivo_3_3 {

// A boolean option is found by its names and by each of its names with this prefix, which switches
// the option off. A declared name that itself begins with the prefix switches the option off too.
inline constexpr std::string_view negation = "no-";

inline bool isNegated(std::string_view name) { return beginsWith(name, negation); }

// The name without its prefix; `name` must be negated.
inline std::string_view withoutNegation(std::string_view name) {
  return name.substr(negation.size());
}

// What a name must begin with for its negated form to begin with `typed`; none if no negated form
// begins with `typed`.
inline std::optional<std::string_view> prefixBehindNegation(std::string_view typed) {
  if (isNegated(typed))
    return withoutNegation(typed);
  return beginsWith(negation, typed) ? std::make_optional<std::string_view>() : std::nullopt;
}

}  // namespace kivo_3_3
