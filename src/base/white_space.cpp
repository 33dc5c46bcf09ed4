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

// The first to ask for a locale would have all of its facets made, which takes longer than to parse
// a command line: so that is asked only if there is one.
bool isClassicLocale() { return BEDROCK::hasNoLocaleYet() || std::locale() == classicLocale(); }

}  // namespace kivo_3_3
