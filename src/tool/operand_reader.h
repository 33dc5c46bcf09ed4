#pragma once

#include <kivo/handles.h>
#include <kivo/value.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tool/declaration.h"

namespace kivo_3_3::tool_glue {

/// The text of a value and the value.
using OperandValue = std::pair<std::string, variant_t>;

class OperandReader {
 public:
  /// Converts an operand as the parser converts the value of an option of the same type. Empty if
  /// it is refused.
  std::vector<OperandValue> read(const Declaration& declaration, const char* text);

 private:
  std::map<const Declaration*, ParserHandle> m_parsers;
};

}  // namespace kivo_3_3::tool_glue
