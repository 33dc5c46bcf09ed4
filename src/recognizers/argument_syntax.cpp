#include <kivo/argument_syntax.h>

#include <array>

#include "bedrock/unicode.h"
#include "recognizers/split_argument.h"

namespace kivo_3_3 {

namespace {

// A dash in UTF-8. Nothing of it needs destruction, so that a tool may still parse while
// the static objects of the process end.
struct Dash {
  char bytes[4];
  std::size_t length;
};

using Dashes = std::array<Dash, 5>;

Dash toUtf8(char32_t character) {
  const std::string text = BEDROCK::utf32_to_utf8(character);
  Dash dash = {};
  dash.length = text.copy(dash.bytes, sizeof(dash.bytes));
  return dash;
}

// Figure dash, en dash, em dash, horizontal bar, swung dash.
const Dashes& typographicDashes() {
  static const Dashes table = {{toUtf8(U'\u2012'), toUtf8(U'\u2013'), toUtf8(U'\u2014'),
                                toUtf8(U'\u2015'), toUtf8(U'\u2053')}};
  return table;
}

}  // namespace

std::size_t typographicDashLength(std::string_view text) {
  for (const Dash& dash : typographicDashes())
    if (text.compare(0, dash.length, dash.bytes, dash.length) == 0)
      return dash.length;
  return 0;
}

unsigned int getDashLength(const std::string& text, unsigned int pos) {
  return static_cast<unsigned int>(dashLength(std::string_view(text).substr(pos)));
}

bool splitOptionValue(const std::string& arg, std::string* name, std::string* value) {
  const ArgumentParts parts = splitArgument(arg, WhiteSpace());
  if (name != nullptr)
    name->assign(parts.name);
  if (value != nullptr && parts.hasValue)
    value->assign(parts.value);
  return parts.hasValue;
}

}  // namespace kivo_3_3
