#pragma once

// Decides what white space is, and so where arguments and lines are split.

#include <locale>
#include <optional>

namespace kivo_3_3 {

// White space in the classic locale. The first comparison is enough for letters and digits.
constexpr bool isClassicSpace(char character) {
  return character <= ' ' && (character == ' ' || (character >= '\t' && character <= '\r'));
}

// Classifies white space as the global locale did when this object was constructed. A call of the
// locale is slow, so the classic locale, which most tools have, is replaced by isClassicSpace().
class WhiteSpace {
 public:
  WhiteSpace();

  // Whether white space is that of the classic locale.
  bool isClassic() const { return m_classes == nullptr; }

  bool operator()(char character) const {
    if (m_classes != nullptr)
      return m_classes->is(std::ctype_base::space, character);
    return isClassicSpace(character);
  }

 private:
  std::optional<std::locale> m_locale;  // owns the facet that m_classes points to
  const std::ctype<char>* m_classes = nullptr;
};

// Whether the global locale is the classic one, in which numbers need no stream.
bool isClassicLocale();

}  // namespace kivo_3_3
