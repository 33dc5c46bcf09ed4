// The same as in standard_library.cpp for any standard library.

#include <iostream>

#include "bedrock/standard_library.h"

namespace BEDROCK {

std::ostream& standardOutput() noexcept { return std::cout; }

std::ostream& standardError() noexcept { return std::cerr; }

bool hasNoLocaleYet() noexcept { return false; }

}  // namespace BEDROCK
