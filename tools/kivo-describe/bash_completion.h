#pragma once

#include <string>

#include "completion.h"

namespace kivo_describe {

// Writes a completion script for bash.
std::string bashCompletion(const Completion& completion);

}  // namespace kivo_describe
