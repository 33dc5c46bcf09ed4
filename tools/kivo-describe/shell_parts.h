#pragma once

#include <string_view>

namespace kivo_describe {

// The parts of the completion scripts that are the same for every tool, but for the name of the
// tool: the files completion.bash, completion.zsh and completion.fish.
extern const std::string_view bashPart;
extern const std::string_view zshPart;
extern const std::string_view fishPart;

}  // namespace kivo_describe
