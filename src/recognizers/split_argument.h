#pragma once

// Splits an argument into dashes, name and value. A wrong split would look up another name than the
// user typed, or cut the value.

#include <cstddef>
#include <string_view>

#include "base/begins_with.h"
#include "base/white_space.h"

namespace kivo_3_3 {

// The parts of an argument, as splitOptionValue() returns them.
struct ArgumentParts {
  std::string_view name;
  std::string_view value;
  bool hasValue = false;  // true for an empty value, too
};

// The length in bytes of the typographic dash that `text` begins with; 0 for none.
std::size_t typographicDashLength(std::string_view text);

// The length in bytes of the dash that `text` begins with; 0 for none.
inline std::size_t dashLength(std::string_view text) {
  if (text.empty())
    return 0;
  if (static_cast<unsigned char>(text.front()) < 0x80)
    return text.front() == '-' ? 1 : 0;
  return typographicDashLength(text);
}

// Whether `text` begins with the ASCII hyphen. Typographic dashes do not count: a value may begin
// with one of them.
inline bool beginsWithHyphen(std::string_view text) { return beginsWith(text, "-"); }

// Drops up to two dashes, then splits at the first '=' or run of white space. The parts refer to
// the characters of `argument`.
inline ArgumentParts splitArgument(std::string_view argument, const WhiteSpace& isSpace) {
  std::string_view rest = argument;
  rest.remove_prefix(dashLength(rest));
  rest.remove_prefix(dashLength(rest));
  const char* nameEnd = rest.data();
  const char* const end = nameEnd + rest.size();
  while (nameEnd != end && *nameEnd != '=' && !isSpace(*nameEnd))
    ++nameEnd;
  const auto length = static_cast<std::size_t>(nameEnd - rest.data());
  ArgumentParts parts = {{rest.data(), length}, {}, length < rest.size()};
  rest.remove_prefix(length);
  if (parts.hasValue && rest.front() == '=')
    rest.remove_prefix(1);
  else
    while (!rest.empty() && isSpace(rest.front()))
      rest.remove_prefix(1);
  parts.value = rest;
  return parts;
}

}  // namespace kivo_3_3
