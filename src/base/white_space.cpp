// Answers without the locale where possible. If a short cut were wrong, a tool would read numbers
// or split arguments by another locale than the one that it has set.

#include "base/white_space.h"

#include "bedrock/standard_library.h"

namespace kivo_3_3 {

namespace {

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

// The first use of a locale initialises all of its facets, which takes longer than the parse of a
// command line. So the global locale is read only if the process has used a locale before.
bool isClassicLocale() { return BEDROCK::hasNoLocaleYet() || std::locale() == classicLocale(); }

}  // namespace kivo_3_3
