#pragma once

#include <string_view>

#include "base/white_space.h"

namespace kivo_3_3 {

// The arguments in a text, one a line, each of them found when its turn has come. White
// space ahead of an argument goes, and so do empty lines and those that begin with ';' or
// '#'; the rest of a line stays as it is. The text and `isSpace` are the caller's.
class ArgumentLines {
 public:
  // None.
  ArgumentLines() = default;
  ArgumentLines(std::string_view text, const WhiteSpace& isSpace)
      : m_rest(text), m_isSpace(&isSpace) {}

  // The next argument; a null view behind the last one.
  std::string_view next();

 private:
  std::string_view m_rest;
  const WhiteSpace* m_isSpace = nullptr;
};

}  // namespace kivo_3_3
