#include "text.h"

#include <algorithm>

// If squeezing left a control character or a line end in a text, that text could change how the
// rest of a page is read.

namespace kivo_describe {
namespace {

// The bytes of the blank or control character at the beginning of a text, 0 for another one. The
// control characters U+0080 to U+009F take two bytes.
std::size_t lengthOfBlankOrControl(std::string_view text) {
  if (text.front() == ' ' || isControl(text.front()))
    return 1;
  const bool isC1 =
      text.size() > 1 && text[0] == '\xC2' && static_cast<unsigned char>(text[1]) < 0xA0;
  return isC1 ? 2 : 0;
}

bool maybeInToolName(char character) {
  return isLetterOrDigit(character) ||
         std::string_view("_-.+").find(character) != std::string::npos;
}

}  // namespace

std::string squeezed(std::string_view text) {
  std::string result;
  bool isBlankDue = false;
  while (!text.empty()) {
    const std::size_t length = lengthOfBlankOrControl(text);
    if (length == 0) {
      if (isBlankDue && !result.empty())
        result += ' ';
      result += text.front();
    }
    isBlankDue = length != 0;
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
}

bool isLetterOrDigit(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9');
}

bool isControl(char character) {
  return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

bool hasControlCharacter(std::string_view text) {
  for (; !text.empty(); text.remove_prefix(1)) {
    if (text.front() != ' ' && lengthOfBlankOrControl(text) != 0)
      return true;
  }
  return false;
}

std::size_t countOfCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  }));
}

Texts splitAtBlanks(std::string_view text) {
  Texts parts;
  for (std::size_t blank = text.find(' '); blank != std::string_view::npos;
       blank = text.find(' ')) {
    parts.emplace_back(text.substr(0, blank));
    text.remove_prefix(blank + 1);
  }
  parts.emplace_back(text);
  return parts;
}

bool isWord(std::string_view text) {
  return !text.empty() && text.find_first_of(" \t\n\v\f\r") == std::string_view::npos;
}

bool isToolName(std::string_view text) {
  return !text.empty() && (isLetterOrDigit(text.front()) || text.front() == '_') &&
         std::all_of(text.begin(), text.end(), maybeInToolName);
}

}  // namespace kivo_describe
