// Replaces standard_library.cpp for any other standard library. It is slower: every process that
// loads the library initialises the streams.

#include <iostream>
#include <locale>
#include <sstream>
#include <string>

#include "bedrock/standard_library.h"

namespace BEDROCK {

std::ostream& standardOutput() noexcept { return std::cout; }

std::ostream& standardError() noexcept { return std::cerr; }

bool hasNoLocaleYet() noexcept { return false; }

double readDouble(const char* first, const char* last) {
  std::istringstream stream{std::string(first, last)};
  stream.imbue(std::locale::classic());
  stream.exceptions(std::ios::badbit);  // lets std::bad_alloc out
  double value = 0;
  stream >> value;
  return value;
}

}  // namespace BEDROCK
