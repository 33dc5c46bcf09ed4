#include "bash_completion.h"

#include <algorithm>
#include <string_view>

#include "shell_parts.h"
#include "shell_text.h"
#include "text.h"

// Writes the script for bash: the fixed part, then a line of data for each option and command. If a
// text was not quoted as a whole here, bash would run what stands in it.

namespace kivo_describe {
namespace {

constexpr std::string_view placeholder = "_KIVO_TOOL";
constexpr std::size_t fieldsOfOption = 7;

// The field of an option that goes with all actions.
constexpr const char* withAllActions = "*";

// A word of bash. Within $'...', a line end is written as \n and another control character as \2,
// which stands for all of them.
std::string quoted(std::string_view text) {
  const bool hasControls = std::any_of(text.begin(), text.end(), isControl);
  std::string result = hasControls ? "$'" : "'";
  for (const char character : text) {
    if (character == '\n')
      result += "\\n";
    else if (isControl(character))
      result += "\\002";
    else if (character == '\'')
      result += hasControls ? "\\'" : "'\\''";
    else if (character == '\\' && hasControls)
      result += "\\\\";
    else
      result += character;
  }
  return result + '\'';
}

// A list for a field, its items separated by line ends.
std::string listOf(const Texts& items) {
  std::string result;
  for (std::string item : items) {
    std::replace(item.begin(), item.end(), '\n', '\2');
    result += (result.empty() ? "" : "\n") + item;
  }
  return result;
}

// The ranks of actions, each between blanks.
std::string listOf(const std::vector<std::size_t>& ranks) {
  std::string result = " ";
  for (const std::size_t rank : ranks)
    result += std::to_string(rank) + ' ';
  return result;
}

std::string line(const Texts& fields) {
  std::string result = " ";
  for (const std::string& field : fields)
    result += ' ' + quoted(field);
  return result + '\n';
}

std::string optionLine(const CompletedOption& option) {
  return line({listOf(option.names), listOf(option.offered),
               option.takesValue ? valueKind(option) : "", listOf(option.values), option.separator,
               option.goesWith ? listOf(*option.goesWith) : withAllActions,
               option.rank ? std::to_string(*option.rank) : ""});
}

// The line of a scope whose first option has the number `first`.
std::string scopeLine(const CompletedScope& scope, std::size_t first) {
  Texts sets;
  for (const std::vector<std::size_t>& ranks : scope.together)
    sets.push_back(listOf(ranks));
  const auto number = [&](std::size_t option) {
    return std::to_string(first + fieldsOfOption * option);
  };
  return line({scope.words, number(0), number(scope.options.size()),
               scope.operand ? number(*scope.operand) : "",
               scope.leftoversAreOperands ? "operands" : "", listOf(sets)});
}

std::string data(const Completion& completion, const std::string& name) {
  std::string options;
  std::string scopes;
  std::size_t count = 0;
  const auto append = [&](const CompletedScope& scope) {
    scopes += scopeLine(scope, fieldsOfOption * count);
    count += scope.options.size();
    for (const CompletedOption& option : scope.options)
      options += optionLine(option);
  };
  append(completion.own);
  for (const CompletedScope& command : completion.commands)
    append(command);

  const auto array = [&](const char* suffix, const std::string& lines) {
    return "# shellcheck disable=SC1003,SC2016,SC2088  # the texts are meant as they stand\n"
           "declare -ga " +
           name + suffix + "=(\n" + lines + ")\n";
  };
  const auto variable = [&](const char* suffix, const char* value) {
    return "declare -g " + name + suffix + "='" + value + "'\n";
  };
  return array("_options", options) + array("_scopes", scopes) +
         variable("_dashes", completion.twoDashes ? "two" : "") +
         variable("_lone_dash", completion.loneDashIsOperand ? "operand" : "");
}

}  // namespace

std::string bashCompletion(const Completion& completion) {
  const std::string name = identifierOf(completion.name);
  // Texts of the tool may hold the placeholder, so only what is our own is searched for it.
  return "# Completion of " + completion.name + " for bash.\n\n" +
         replaced(std::string(bashPart), placeholder, name) + "\n" + data(completion, name) +
         "\ncomplete -F " + name + " " + completion.name + "\n";
}

}  // namespace kivo_describe
