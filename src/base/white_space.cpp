#include "base/white_space.h"

namespace kivo_3_3 {

WhiteSpace::WhiteSpace() {
  if (m_locale != std::locale::classic())
    m_classes = &std::use_facet<std::ctype<char>>(m_locale);
}

bool isClassicLocale() { return std::locale() == std::locale::classic(); }

}  // namespace kivo_3_3
