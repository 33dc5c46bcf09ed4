#include <kivo/argument_syntax.h>

#include <algorithm>
#include <array>

#include "base/white_space.h"
#include "bedrock/unicode.h"

namespace kivo_3_3 {

namespace {

// A dash in UTF-8. Nothing of it needs destruction, so that a tool may still parse while
// the static objects of the process end.
struct Dash {
  char bytes[4];
  std::size_t length;
};

using Dashes = std::array<Dash, 6>;

Dash toUtf8(char32_t character) {
  const std::string text = BEDROCK::utf32_to_utf8(character);
  Dash dash = {"?", 1};
  if (text != "-1")
    dash.length = text.copy(dash.bytes, sizeof(dash.bytes));
  return dash;
}

// Hyphen-minus, figure dash, en dash, em dash, horizontal bar, swung dash.
const Dashes& dashes() {
  static const Dashes table = {{toUtf8(U'\u002D'), toUtf8(U'\u2012'), toUtf8(U'\u2013'),
                                toUtf8(U'\u2014'), toUtf8(U'\u2015'), toUtf8(U'\u2053')}};
  return table;
}

void assign(std::string* target, const std::string& text, std::size_t begin, std::size_t end) {
  if (target != nullptr)
    target->assign(text, begin, end - begin);
}

}  // namespace

unsigned int getDashLength(const std::string& text, unsigned int pos) {
  for (const Dash& dash : dashes())
    if (text.compare(pos, dash.length, dash.bytes, dash.length) == 0)
      return static_cast<unsigned int>(dash.length);
  return 0;
}

bool splitOptionValue(const std::string& arg, std::string* name, std::string* value) {
  const unsigned int firstDash = getDashLength(arg, 0);
  const unsigned int begin = firstDash + getDashLength(arg, firstDash);
  const WhiteSpace isSpace;
  const auto end = std::find_if(arg.begin() + begin, arg.end(), [&](char character) {
    return character == '=' || isSpace(character);
  });
  assign(name, arg, begin, static_cast<std::size_t>(end - arg.begin()));
  if (end == arg.end())
    return false;
  const auto rest = *end == '=' ? end + 1 : std::find_if_not(end, arg.end(), isSpace);
  assign(value, arg, static_cast<std::size_t>(rest - arg.begin()), arg.size());
  return true;
}

}  // namespace kivo_3_3
