#pragma once

#include <string>

#include "completion.h"

namespace kivo_describe {

// Writes a completion script for zsh.
std::string zshCompletion(const Completion& completion);

}  // namespace kivo_describe
