#include "base/white_space.h"

#include <cstddef>

namespace kivo_3_3 {

namespace {

// Whether nobody in the process has made a locale so far, so that the classic one is the
// global one. The first to ask for a locale would have all of its parts made, which takes
// longer than to parse a command line. Where the parts are numbered as they are made, the
// number of one tells; elsewhere nothing does.
bool isThereNoLocaleYet() {
#ifdef __GLIBCXX__
  static_assert(sizeof(std::size_t) == sizeof(std::ctype<char>::id));
  // Atomically: another thread may be making the first locale.
  const auto* const number = reinterpret_cast<const std::size_t*>(&std::ctype<char>::id);
  return __atomic_load_n(number, __ATOMIC_RELAXED) == 0;
#else
  return false;
#endif
}

const std::locale& classicLocale() {
  static const std::locale& locale = std::locale::classic();
  return locale;
}

}  // namespace

WhiteSpace::WhiteSpace() {
  if (isClassicLocale())
    return;
  m_locale.emplace();
  m_classes = &std::use_facet<std::ctype<char>>(*m_locale);
}

bool isClassicLocale() { return isThereNoLocaleYet() || std::locale() == classicLocale(); }

}  // namespace kivo_3_3
