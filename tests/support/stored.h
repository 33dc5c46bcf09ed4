#pragma once

// Reads what a result has stored, and applies defaults without a parser.

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "options/declared_defaults.h"
#include "recognizers/argument_parser.h"
#include "result/parse_result.h"

namespace kivo_3_3::testing {

// What was given under a name. Raises std::bad_optional_access if nothing was given.
inline const GivenOption& givenTo(const ParseResult& result, std::string_view name) {
  return result.options().given(result.options().find(name).value());
}

// A value as recognizers hand it to a result. If the value is a text, this text is used, not
// `text`.
inline GivenValue given(const variant_t& value, const char* text, int position) {
  return {value.can_get<const char*>() ? value.get<const char*>() : text, value, position};
}

// "@1 @4 a@2 b@5"
template <class Given>
std::string render(const Given& data) {
  std::string text;
  const auto append = [&](const std::string& what, int position) {
    text += (text.empty() ? "" : " ") + what + "@" + std::to_string(position);
  };
  for (const int position : data.positions)
    append("", position);
  for (const GivenValue& value : data.values)
    append(value.text, value.position);
  return text;
}

// Draws a position for each default and applies the defaults.
inline void apply(const std::shared_ptr<const DeclaredDefaults>& defaults, StoredOptions& options) {
  options.apply(defaults, IArgumentParser::drawInARow(defaults->count()).value());
}

// Draws positions for the default of one option, if it has one, and applies it.
inline void applyDefault(const OptionDescription& option, ParseResult& result) {
  if (!option.hasDefault())
    return;
  const auto defaults = std::make_shared<DeclaredDefaults>();
  defaults->add(option);
  result.applyDefaults(defaults, IArgumentParser::drawInARow(defaults->count()).value());
}

}  // namespace kivo_3_3::testing
