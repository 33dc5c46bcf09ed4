// The library finds the nearest name among the names of a parser, so the candidates become the
// names of one.

#include "tool/suggestions.h"

#include <kivo/describe.h>
#include <kivo/handles.h>

#include <algorithm>

#include "tool/messages.h"

namespace kivo_3_3::tool_glue {

std::vector<std::string> nearest(std::vector<std::string> names, const std::string& typed) {
  constexpr std::size_t most = 2;
  std::vector<std::string> found;
  while (found.size() < most) {
    const ParserHandle parser = makeParser();
    if (!parser)
      return found;
    IOption* const candidates = parser->option("", "", vtNull);
    for (const std::string& name : names)
      candidates->synonym(name.c_str());
    const char* const name = nearestName(*parser, typed.c_str());
    if (name == nullptr)
      return found;
    found.emplace_back(name);
    names.erase(std::remove(names.begin(), names.end(), found.back()), names.end());
  }
  return found;
}

std::string suggestedOption(const Scope& scope, const std::vector<std::string>& unknownNames,
                            const std::string& reason) {
  std::vector<std::string> names;
  for (const Declaration* option : scope.options()) {
    if (option->isHidden)
      continue;
    for (const std::string_view name : option->names)
      names.emplace_back(name);
    if (parserType(*option) == vtBool)
      names.push_back("no-" + option->firstName());
  }
  for (const std::string& typed : unknownNames) {
    if (!typed.empty() && reason.find("Unknown option") == 0) {
      std::vector<std::string> near = nearest(names, typed);
      std::transform(near.begin(), near.end(), near.begin(), shownName);
      return didYouMean(near);
    }
  }
  return "";
}

std::string suggestedChoice(const Scope& scope, const std::string& reason) {
  for (const auto* list : {&scope.options(), &scope.operands()}) {
    for (const Declaration* one : *list) {
      const bool isRefusedHere = one->isOperand() || one->hasDeprecatedChoices();
      const std::string start = isRefusedHere
                                    ? (one->isOperand() ? "Operand '" : "Option '") +
                                          one->firstName() + "' does not take '"
                                    : "Option '" + scope.nameOf(*one) + "' does not allow value '";
      const char* const end = isRefusedHere ? "', expected: " : "'. Possible values";
      const std::size_t begin = one->choices.empty() ? std::string::npos : reason.find(start);
      if (begin == std::string::npos)
        continue;
      const std::string typed = reason.substr(begin + start.size());
      std::vector<std::string> texts;
      for (const DeclaredChoice& choice : one->choices)
        texts.emplace_back(choice.text);
      return didYouMean(nearest(texts, typed.substr(0, typed.rfind(end))));
    }
  }
  return "";
}

}  // namespace kivo_3_3::tool_glue
