#include "tool/mistakes.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "tool/value_text.h"

namespace kivo_3_3::tool_glue {
namespace {

std::string called(const Command& command) { return "command '" + command.words + "'"; }

// Whether there are words between single blanks, none of which looks like an option.
bool canBeTyped(const std::string& words) {
  const std::string framed = ' ' + words + ' ';
  return framed.find("  ") == std::string::npos && framed.find(" -") == std::string::npos &&
         words.find_first_of("\t\n\v\f\r") == std::string::npos;
}

void checkCommands(const ToolData& tool) {
  if (tool.command != nullptr && !tool.commands.empty())
    reportMistake(called(tool.commands.front()) + " is declared inside of " +
                  called(*tool.command));
  std::map<std::string_view, const Command*> known;
  for (const Command& command : tool.commands) {
    if (!canBeTyped(command.words))
      reportMistake(called(command) + " needs words with single blanks between and no dash before");
    const auto [first, isNew] = known.emplace(command.words, &command);
    if (!isNew)
      reportMistake(called(command) + " is declared twice, with the help '" + first->second->help +
                    "' and with the help '" + command.help + "'");
  }
}

void checkActions(const ToolData& tool) {
  const auto isAction = [](const Declaration& one) { return one.use == Use::action; };
  const auto action = std::find_if(tool.declarations.begin(), tool.declarations.end(), isAction);
  if (action != tool.declarations.end() && !tool.commands.empty())
    reportMistake(called(*action) + " and " + called(tool.commands.front()) + " are in one tool");
}

void checkActionsOf(const Declaration& declaration, const ToolData& tool, const Scope& scope) {
  for (const std::string& name : splitAt(std::string(declaration.only), ',')) {
    const Declaration* const action = scope.declared(tool, name);
    if (action == nullptr)
      reportMistake(called(declaration) + " goes only with '" + name + "', which is not declared");
    else if (action->use != Use::action)
      reportMistake(called(declaration) + " goes only with '" + name +
                    "', which is no action but " + called(*action));
  }
}

// What a declaration asks for that cannot be had.
void checkModifiers(const Declaration& declaration) {
  if (declaration.use == Use::action && !declaration.environment.empty())
    reportMistake(called(declaration) + " cannot be given by the environment variable '" +
                  std::string(declaration.environment) + "'");
  const bool isOne = declaration.type != nullptr && !declaration.isList();
  if (isOne && declaration.separator != '\0')
    reportMistake(called(declaration) + " is split, but its variable takes one value");
  if (!declaration.takesValue() && !declaration.choices.empty())
    reportMistake(called(declaration) + " has choices, but takes no value");
  if (declaration.use == Use::action && !declaration.checks.empty())
    reportMistake(called(declaration) + " has a check, but takes no value");
  if (!declaration.lowest.empty() && !isInRange(declaration, declaration.highest.data()))
    reportMistake(called(declaration) + " takes no number from " + rangeText(declaration));
  for (const auto& deprecated : declaration.deprecatedChoices) {
    const bool isChoice =
        std::any_of(declaration.choices.begin(), declaration.choices.end(),
                    [&](const auto& choice) { return choice.text == deprecated.second; });
    if (!isChoice && !declaration.choices.empty())
      reportMistake(called(declaration) + " takes '" + std::string(deprecated.first) + "' as '" +
                    std::string(deprecated.second) + "', which is none of its choices");
  }
}

// Where choices stand for values, a default that is no choice has no text.
void checkDefault(const Declaration& declaration) {
  const bool needsText = !declaration.choices.front().value.empty();
  for (unsigned long index = 0;; ++index) {
    const void* const value = declaration.type->at(declaration.variable, index);
    if (value == nullptr)
      return;
    const std::string text = valueText(declaration, value);
    const bool isChoice =
        std::any_of(declaration.choices.begin(), declaration.choices.end(),
                    [&](const DeclaredChoice& choice) { return choice.text == text; });
    if (!isChoice && (needsText || !text.empty()))
      reportMistake("the default '" + text + "' of " + called(declaration) +
                    " is none of its choices");
  }
}

void checkGroups(const ToolData& tool, const Scope& scope) {
  for (const Group& group : tool.groups) {
    for (const std::string& name : group.names) {
      if (scope.declared(tool, name) == nullptr)
        reportMistake("the group '" + joined(group.names, ',') + "' has the name '" + name +
                      "', which is no option");
    }
  }
}

}  // namespace

void reportMistakes(const ToolData& tool, const Scope& scope) {
  checkCommands(tool);
  checkActions(tool);
  for (const Declaration& declaration : tool.declarations) {
    checkModifiers(declaration);
    if (!declaration.only.empty())
      checkActionsOf(declaration, tool, scope);
    if (!declaration.choices.empty() && declaration.variable != nullptr &&
        declaration.use != Use::flag)
      checkDefault(declaration);
  }
  if (!tool.isDescribing)  // then the options of the tool are not in the scope
    checkGroups(tool, scope);
}

}  // namespace kivo_3_3::tool_glue
