#include "reference/argument_syntax.h"

#include <locale>

#include "bedrock/unicode.h"

namespace kivo_3_3::reference {

namespace {

bool isSpace(char c) { return std::isspace(c, std::locale()); }

void assign(std::string* to, const std::string& text) {
  if (to != nullptr)
    *to = text;
}

}  // namespace

unsigned int getDashLength(const std::string& text, unsigned int pos) {
  // Hyphen-minus, figure dash, en dash, em dash, horizontal bar, swung dash.
  for (const char32_t dash : {U'-', U'\u2012', U'\u2013', U'\u2014', U'\u2015', U'\u2053'}) {
    const std::string utf8 = BEDROCK::utf32_to_utf8(dash);
    if (text.compare(pos, utf8.size(), utf8) == 0)
      return static_cast<unsigned int>(utf8.size());
  }
  return 0;
}

bool splitOptionValue(const std::string& arg, std::string* name, std::string* value) {
  const unsigned int firstDash = getDashLength(arg, 0);
  const std::size_t start = firstDash + getDashLength(arg, firstDash);
  std::size_t end = start;
  while (end < arg.size() && arg[end] != '=' && !isSpace(arg[end]))
    ++end;
  assign(name, arg.substr(start, end - start));
  if (end == arg.size())
    return false;
  std::size_t valueStart = end + 1;
  if (arg[end] != '=')
    while (valueStart < arg.size() && isSpace(arg[valueStart]))
      ++valueStart;
  assign(value, arg.substr(valueStart));
  return true;
}

std::vector<std::string> tokensOf(const std::string& value, char separator) {
  std::vector<std::string> tokens;
  std::size_t start = 0;
  while (start < value.size()) {
    const std::size_t end = std::min(value.find(separator, start), value.size());
    if (end > start)
      tokens.push_back(value.substr(start, end - start));
    start = end + 1;
  }
  return tokens;
}

bool startsWithHyphen(const std::string& text) { return !text.empty() && text[0] == '-'; }

}  // namespace kivo_3_3::reference
