#pragma once

#include <string>

#include "completion.h"

namespace kivo_describe {

// Writes a completion script for fish.
std::string fishCompletion(const Completion& completion);

}  // namespace kivo_describe
