#include "shell_text.h"

#include "text.h"

// What the scripts of several shells have in common as texts. If two tools got one identifier, the
// script that is read later would replace functions of the other.

namespace kivo_describe {

std::string identifierOf(const std::string& tool) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string name = "_kivo_";
  for (const char character : tool) {
    const auto code = static_cast<unsigned char>(character);
    if (isLetterOrDigit(character))
      name += character;
    else
      name.append({'_', digits[code / 16], digits[code % 16]});
  }
  return name;
}

std::string replaced(std::string text, std::string_view mark, const std::string& by) {
  std::size_t place = text.find(mark);
  while (place != std::string::npos) {
    text.replace(place, mark.size(), by);
    place = text.find(mark, place + by.size());
  }
  return text;
}

std::string valueKind(const CompletedOption& option) {
  if (!option.takesValue)
    return "none";
  switch (option.kind) {
    case Offered::files:
      return "files";
    case Offered::folders:
      return "folders";
    case Offered::values:
      return "values";
    case Offered::nothing:
      break;
  }
  return "nothing";
}

}  // namespace kivo_describe
