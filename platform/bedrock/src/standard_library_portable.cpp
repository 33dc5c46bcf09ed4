// Replaces standard_library.cpp for any other standard library. It is slower: every process that
// loads the library initialises the streams.

#include <iostream>

#include "bedrock/standard_library.h"

namespace BEDROCK {

std::ostream& standardOutput() noexcept { return std::cout; }

std::ostream& standardError() noexcept { return std::cerr; }

bool hasNoLocaleYet() noexcept { return false; }

}  // namespace BEDROCK
