#pragma once

#include <set>
#include <string>
#include <vector>

#include "description.h"
#include "lines.h"

namespace kivo_describe {

// Options that a page may name: all of them, or some. Operands are those without a dash.
bool isVisible(const Option& option);
bool isOperand(const Option& option);
bool isListed(const Option& option);
bool isAction(const Option& option);
bool isNoAction(const Option& option);  // listed all the same

// How names are shown.
enum class Dashes {
  one,
  two  // for names of two characters and more
};

Span shownName(const std::string& name, Dashes dashes);
Span operandName(const Option& operand);

// All names of an option and what stands for its value, or the name of an operand.
Line entryLabel(const Option& option, Dashes dashes);

// What there is to say about an option. `actions` are the first names of all visible actions.
std::vector<Line> entryText(const Option& option, const std::set<std::string>& actions,
                            Dashes dashes);

}  // namespace kivo_describe
