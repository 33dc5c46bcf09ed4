#pragma once

#include <kivo/option.h>

#include <string>

#include "tool/declaration.h"

// Values of the tool's variables as texts, in the form of the classic locale.

namespace kivo_3_3::tool_glue {

/// "1 to 100"; empty if there is no range.
std::string rangeText(const Declaration& declaration);

/// The numbers that the type can hold: "0 to 255".
std::string limitsText(const VariableType& type);

/// A value of the variable as it may be typed; empty for a value that has no text.
std::string valueText(const Declaration& declaration, const void* value);

/// What the variable holds: the default. Empty if there is nothing to show.
std::string defaultText(const Declaration& declaration);

/// Sets the value of the variable as default of the parser's option.
void setDefault(IOption& option, const Declaration& declaration);

/// Whether the number fits into a value of the type; if so, the value is set.
bool putNumber(const VariableType& type, const variant_t& number, void* value);

/// Whether the number is in the range of the declaration.
bool isInRange(const Declaration& declaration, const void* value);

}  // namespace kivo_3_3::tool_glue
