#pragma once

#include <kivo/option.h>

#include <exception>
#include <string>

#include "tool/declaration.h"

// Values of the tool's variables as texts, in the form of the classic locale.

namespace kivo_3_3::tool_glue {

/// "1 to 100"; empty if there is no range.
std::string rangeText(const Declaration& declaration);

/// The numbers that the type can hold: "0 to 255".
std::string limitsText(const VariableType& type);

/// A function of the tool's own that gives a value as text has thrown something else than
/// std::bad_alloc.
struct NoText {
  std::exception_ptr cause;
};

/// A value of the variable as it may be typed; empty for a value that has no text. Throws NoText,
/// and so does all that needs a text of the default.
std::string valueText(const Declaration& declaration, const void* value);

/// What the variable holds: the default. Empty if there is nothing to show, and for a value that is
/// required.
std::string defaultText(const Declaration& declaration);

/// What is shown instead of the default: the tool's own text, or a list of numbers, which cannot be
/// the default of a parser's option. Empty if the default is shown.
std::string shownDefault(const Declaration& declaration);

/// Sets the value of the variable as default of the parser's option.
void setDefault(IOption& option, const Declaration& declaration);

/// Sets the value to a number that the parser has read from the text as `typed`. Where the parser
/// has not read a number, or where it passes over letters, the text is read here. False for a text
/// that is no number, and for a number that the type cannot hold.
bool putNumber(const VariableType& type, const char* text, const variant_t& typed, void* value);

/// Whether the number is in the range of the declaration.
bool isInRange(const Declaration& declaration, const void* value);

}  // namespace kivo_3_3::tool_glue
