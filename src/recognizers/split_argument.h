#pragma once

// Splits an argument into dashes, name and value. A wrong split would look up another name than the
// user typed, or cut the value.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/begins_with.h"
#include "base/white_space.h"
#include "storage/eight_characters.h"

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

// Whether one of eight characters is a '=' or below '!', as all white space of the classic locale
// is.
inline bool mayEndName(const char* eightCharacters) {
  constexpr std::uint64_t ones = 0x0101010101010101;
  const std::uint64_t characters = loadCharacters<std::uint64_t>(eightCharacters);
  const std::uint64_t equalSigns = characters ^ ones * '=';
  const std::uint64_t endings =
      ((characters - ones * '!') & ~characters) | ((equalSigns - ones) & ~equalSigns);
  return (endings & ones * 0x80) != 0;
}

// The length of the name that `text`, an argument without its dashes, begins with: up to a '=' or
// white space. Long names are skipped by eight characters: fifty options take 3 % less.
inline std::size_t nameLength(std::string_view text, const WhiteSpace& isSpace) {
  std::size_t length = 0;
  if (isSpace.isClassic())
    while (text.size() - length >= eight && !mayEndName(text.data() + length))
      length += eight;
  while (length != text.size() && text[length] != '=' && !isSpace(text[length]))
    ++length;
  return length;
}

// Drops up to two dashes, then splits at the first '=' or run of white space. The parts refer to
// the characters of `argument`.
inline ArgumentParts splitArgument(std::string_view argument, const WhiteSpace& isSpace) {
  std::string_view rest = argument;
  rest.remove_prefix(dashLength(rest));
  rest.remove_prefix(dashLength(rest));
  const std::size_t length = nameLength(rest, isSpace);
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
