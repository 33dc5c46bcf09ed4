// Drops indents, comments, empty lines and line ends. A change here changes the meaning of option
// files that users have.

#include "recognizers/argument_lines.h"

#include <algorithm>

namespace kivo_3_3 {

namespace {

using std::string_view;

string_view withoutLineEnd(string_view line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
    line.remove_suffix(1);
  return line;
}

string_view withoutIndent(string_view line, const WhiteSpace& isSpace) {
  while (!line.empty() && isSpace(line.front()))
    line.remove_prefix(1);
  return line;
}

bool isComment(string_view line) {
  return !line.empty() && (line.front() == ';' || line.front() == '#');
}

}  // namespace

string_view ArgumentLines::next() {
  while (!m_rest.empty()) {
    const std::size_t lineEnd = std::min(m_rest.find('\n'), m_rest.size());
    const string_view line = withoutIndent(m_rest.substr(0, lineEnd), *m_isSpace);
    m_rest.remove_prefix(std::min(lineEnd + 1, m_rest.size()));
    if (isComment(line))
      continue;
    const string_view argument = withoutLineEnd(line);
    if (!argument.empty())
      return argument;
  }
  return {};
}

}  // namespace kivo_3_3
