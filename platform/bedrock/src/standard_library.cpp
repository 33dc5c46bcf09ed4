// What libstdc++ knows but does not tell: used where CMake finds that it is this library, else
// standard_library_portable.cpp is built instead. If one of the two assumptions were wrong, numbers
// would be read in the wrong locale, or the trace would be lost.

#include "bedrock/standard_library.h"

#include <cstddef>
#include <ios>
#include <locale>

namespace BEDROCK {

// Declared by their linker names: <iostream> would make the streams ready, and with them the
// locale, in every process that loads the library.
extern std::ostream outputByName __asm__("_ZSt4cout");
extern std::ostream errorByName __asm__("_ZSt4cerr");

namespace {

void makeReady() { [[maybe_unused]] static const std::ios_base::Init ready; }

}  // namespace

std::ostream& standardOutput() noexcept {
  makeReady();
  return outputByName;
}

std::ostream& standardError() noexcept {
  makeReady();
  return errorByName;
}

// The first use of a locale numbers the facets. While the number of this facet is 0, there was no
// use. Read atomically, as another thread may be making the first locale.
bool hasNoLocaleYet() noexcept {
  static_assert(sizeof(std::size_t) == sizeof(std::ctype<char>::id));
  const auto* const number = reinterpret_cast<const std::size_t*>(&std::ctype<char>::id);
  return __atomic_load_n(number, __ATOMIC_RELAXED) == 0;
}

}  // namespace BEDROCK
