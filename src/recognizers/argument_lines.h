#pragma once

// Splits a text or an option file into arguments. If a line were dropped or joined with another
// one, a tool would act on other arguments than the file has.

#include <string_view>

#include "base/white_space.h"

namespace kivo_3_3 {

// The arguments in a text, one a line. A line is read when next() reaches it. White space before an
// argument and carriage returns at the end of a line are dropped, and so are empty lines and lines
// whose first character other than white space is ';' or '#'. The rest of a line is unchanged. The
// text and `isSpace` must outlive this object.
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
