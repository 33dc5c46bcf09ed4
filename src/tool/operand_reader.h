#pragma once

#include <kivo/value.h>

#include <string>
#include <utility>
#include <vector>

#include "tool/declaration.h"

namespace kivo_3_3::tool_glue {

struct ReadOperand {
  std::string failure;  // empty if there is none
  std::vector<std::pair<std::string, variant_t>> values;
};

/// Converts an operand as the parser converts the value of an option of the same type.
ReadOperand readOperand(const Declaration& declaration, const char* text);

}  // namespace kivo_3_3::tool_glue
