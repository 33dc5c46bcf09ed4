// The list of typographic dashes, and the functions with which tools split arguments themselves. If
// these functions differed from the recognizers, a tool would misread what the parser accepts.

#include <kivo/argument_syntax.h>

#include <array>

#include "base/begins_with.h"
#include "recognizers/split_argument.h"

namespace kivo_3_3 {

namespace {

constexpr std::array<std::string_view, 5> typographicDashes = {
    "\xE2\x80\x92",  // figure dash
    "\xE2\x80\x93",  // en dash
    "\xE2\x80\x94",  // em dash
    "\xE2\x80\x95",  // horizontal bar
    "\xE2\x81\x93",  // swung dash
};

}  // namespace

std::size_t typographicDashLength(std::string_view text) {
  for (const std::string_view dash : typographicDashes)
    if (beginsWith(text, dash))
      return dash.size();
  return 0;
}

// This function and splitOptionValue() are for tools and tests: the recognizers call dashLength()
// and splitArgument() directly.
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
