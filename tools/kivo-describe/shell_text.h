#pragma once

#include <string>
#include <string_view>

#include "completion.h"

namespace kivo_describe {

// A name for functions and variables: "_kivo_" and the name of the tool, where "_XX" stands for all
// but letters and digits. Tools whose names are alike keep apart.
std::string identifierOf(const std::string& tool);

// The text with each mark replaced.
std::string replaced(std::string text, std::string_view mark, const std::string& by);

// What is offered for the value of an option: "none" if it takes none, "nothing", "files",
// "folders" or "values".
std::string valueKind(const CompletedOption& option);

}  // namespace kivo_describe
