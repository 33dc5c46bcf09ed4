#include "fish_completion.h"

#include <algorithm>
#include <string_view>

#include "shell_parts.h"
#include "shell_text.h"

// Writes the fixed part and, in the place of a mark, what the tool accepts: calls of functions that
// declare commands and options. Each text of the tool becomes one quoted word: if a text could end
// its quotes, the shell would run what follows.

namespace kivo_describe {
namespace {

constexpr std::string_view dataMark = "# KIVO_DATA\n";

// One word in single quotes. Line end and tab are the characters 1 and 2, because they separate the
// texts that the functions of the script exchange; a text of fish cannot hold the character 0.
std::string quoted(std::string_view text) {
  std::string result = "'";
  for (const char character : text) {
    if (character == '\n' || character == '\0')
      result += "'\\x01'";
    else if (character == '\t')
      result += "'\\x02'";
    else if (character == '\'' || character == '\\')
      result.append({'\\', character});
    else
      result += character;
  }
  return result + '\'';
}

// "' 1 2 3 '"
std::string listed(const std::vector<std::size_t>& ranks) {
  std::string result = "' ";
  for (const std::size_t rank : ranks)
    result += std::to_string(rank) + ' ';
  return result + '\'';
}

std::string goesOf(const CompletedOption& option) {
  if (option.rank)
    return '@' + std::to_string(*option.rank);
  return option.goesWith ? listed(*option.goesWith) : "'*'";
}

// Collects the data part.
class DataWriter {
 public:
  explicit DataWriter(const Completion& completion)
      : m_completion(completion), m_prefix(identifierOf(completion.name)) {}

  std::string data() {
    m_data += "# The tool.\n";
    addList("dashes", m_completion.twoDashes ? " two" : " one");
    addList("lone_dash", m_completion.loneDashIsOperand ? " operand" : " option");
    for (const char* const list : {"commands", "summaries", "options"})
      addList(list, "");
    addScope(m_completion.own, 0);
    for (std::size_t i = 0; i < m_completion.commands.size(); ++i) {
      m_data += "\n# A command.\n";
      addScope(m_completion.commands[i], i + 1);
    }
    return m_data;
  }

 private:
  void addList(const std::string& name, const std::string& values) {
    m_data += "set -g " + m_prefix + '_' + name + values + '\n';
  }

  void addScope(const CompletedScope& scope, std::size_t number) {
    m_data += m_prefix + "_scope " + std::to_string(number) + ' ' + quoted(scope.words) + ' ' +
              quoted(scope.summary);
    m_data += scope.leftoversAreOperands ? " operands " : " files ";
    m_data += scope.operand ? std::to_string(m_options + *scope.operand + 1) : "''";
    for (const std::vector<std::size_t>& ranks : scope.together)
      m_data += ' ' + listed(ranks);
    m_data += '\n';
    for (const CompletedOption& option : scope.options)
      addOption(option, number);
    m_options += scope.options.size();
  }

  void addOption(const CompletedOption& option, std::size_t scope) {
    m_data += m_prefix + "_option " + std::to_string(scope) + ' ';
    m_data.append(valueKind(option)).append(" ").append(goesOf(option));
    m_data += ' ' + quoted(option.separator) + ' ' + quoted(option.description);
    for (const std::string& name : option.names) {
      const bool isOffered =
          std::find(option.offered.begin(), option.offered.end(), name) != option.offered.end();
      m_data += ' ' + quoted((isOffered ? '+' : '.') + name);
    }
    m_data += " =";
    for (const std::string& value : option.values)
      m_data += ' ' + quoted(value);
    m_data += '\n';
  }

  const Completion& m_completion;
  std::string m_prefix;
  std::string m_data;
  std::size_t m_options = 0;  // of the scopes that are written
};

}  // namespace

std::string fishCompletion(const Completion& completion) {
  const std::string named =
      replaced(std::string(fishPart), "_KIVO_TOOL", identifierOf(completion.name));
  return replaced(replaced(named, "KIVO_NAME", completion.name), dataMark,
                  DataWriter(completion).data());
}

}  // namespace kivo_describe
