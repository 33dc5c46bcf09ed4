#include "base/white_space.h"

#include <cstddef>
#include <cstring>

namespace kivo_3_3 {

namespace {

// Whether nobody in the process has made a locale so far, so that the classic one is the
// global one. The first to ask for a locale would have all of its parts made, which takes
// longer than to parse a command line. Where the parts are numbered as they are made, the
// number of one tells; elsewhere nothing does.
bool isThereNoLocaleYet() {
#ifdef __GLIBCXX__
  std::size_t number = 0;
  static_assert(sizeof(number) == sizeof(std::ctype<char>::id));
  // NOLINTNEXTLINE(bugprone-undefined-memory-manipulation): it is looked at, and not copied
  std::memcpy(&number, &std::ctype<char>::id, sizeof(number));
  return number == 0;
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
