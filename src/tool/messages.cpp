#include "tool/messages.h"

#include <algorithm>

namespace kivo_3_3::tool_glue {
namespace {

std::string quoted(const std::string& text) { return "'" + text + "'"; }

std::string listed(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names)
    list += (list.empty() ? "" : ", ") + shownName(name);
  return list;
}

std::string named(const Declaration& declaration) {
  return declaration.isOperand() ? "Operand " + quoted(declaration.firstName())
                                 : "Option " + quoted(shownName(declaration.firstName()));
}

}  // namespace

bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

std::size_t countOfCharacters(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

std::string shownName(const std::string& name) {
  return (countOfCharacters(name) > 1 ? "--" : "-") + name;
}

std::string doesNotTake(const Declaration& declaration, const std::string& text,
                        const std::string& expected) {
  return (declaration.isOperand() ? "Operand " : "Option ") + quoted(declaration.firstName()) +
         " does not take " + quoted(text) + ", expected: " + expected;
}

std::string isRequired(const Declaration& declaration) {
  return named(declaration) + " is required";
}

std::string isDeprecated(const Declaration& declaration) {
  return named(declaration) + " is deprecated: " + std::string(declaration.deprecated);
}

std::string isDeprecatedChoice(const Declaration& declaration, const std::string& former,
                               const std::string& now) {
  return named(declaration) + ": " + quoted(former) + " is deprecated: use " + quoted(now);
}

std::string doesNotAccept(const Declaration& action, const Declaration& operand) {
  return "Action " + quoted(shownName(action.firstName())) + " doesn't accept operand " +
         quoted(operand.firstName());
}

std::string isForCommandLine(const Declaration& declaration) {
  return "A configuration file cannot give " + quoted(shownName(declaration.firstName()));
}

std::string isUnexpected(const std::string& argument) { return "Unexpected argument: " + argument; }

std::string excludeEachOther(const std::vector<std::string>& names) {
  return "At most one of these may be given: " + listed(names);
}

std::string oneIsRequired(const std::vector<std::string>& names) {
  return "One of these is required: " + listed(names);
}

std::string isUnknownCommand(const std::string& word) { return "Unknown command: " + word; }

std::string isAmbiguousCommand(const std::string& word, const std::vector<std::string>& commands) {
  std::string list;
  for (const std::string& command : commands)
    list += (list.empty() ? "" : ", ") + quoted(command);
  return "Ambiguous command " + quoted(word) + ", it may be: " + list;
}

std::string didYouMean(const std::vector<std::string>& suggestions) {
  std::string text;
  for (const std::string& suggestion : suggestions)
    text += (text.empty() ? ". Did you mean " : " or ") + quoted(suggestion);
  return text.empty() ? text : text + "?";
}

}  // namespace kivo_3_3::tool_glue
