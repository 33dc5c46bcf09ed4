#pragma once

#include <string_view>

#include "base/white_space.h"

namespace kivo_3_3 {

// The arguments in a text, one a line; a line is read when next() reaches it. White space
// before an argument is dropped, and so are empty lines and lines that begin with ';' or '#';
// the rest of a line stays as it is. The text and `isSpace` must outlive this object.
class ArgumentLines {
 public:
  // No arguments.
  ArgumentLines() = default;
  ArgumentLines(std::string_view text, const WhiteSpace& isSpace)
      : m_rest(text), m_isSpace(&isSpace) {}

  // The next argument; a null view after the last one.
  std::string_view next();

 private:
  std::string_view m_rest;
  const WhiteSpace* m_isSpace = nullptr;
};

}  // namespace kivo_3_3
