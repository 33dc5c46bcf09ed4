#pragma once

#include <locale>
#include <optional>

namespace kivo_3_3 {

// White space in the classic locale. Letters are done with at once.
constexpr bool isClassicSpace(char character) {
  return character <= ' ' && (character == ' ' || (character >= '\t' && character <= '\r'));
}

// Tells white space as the global locale of the moment classifies it. Asking the
// locale has its price, so the classic one, nearly everybody's, is known by heart.
class WhiteSpace {
 public:
  WhiteSpace();

  bool operator()(char character) const {
    if (m_classes != nullptr)
      return m_classes->is(std::ctype_base::space, character);
    return isClassicSpace(character);
  }

 private:
  std::optional<std::locale> m_locale;  // keeps m_classes alive
  const std::ctype<char>* m_classes = nullptr;
};

// Whether numbers and characters are read and written as in the classic locale.
bool isClassicLocale();

}  // namespace kivo_3_3
