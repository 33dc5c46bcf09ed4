#include "zsh_completion.h"

#include <algorithm>
#include <string_view>

#include "shell_parts.h"
#include "shell_text.h"
#include "text.h"

// Writes the fixed part and, in the place of a mark, what the tool accepts: functions that declare
// options and commands. Each text of the tool becomes one quoted word: if a text could end its
// quotes, the shell would run what follows.

namespace kivo_describe {
namespace {

constexpr std::string_view toolMark = "KIVO_TOOL";
constexpr std::string_view dataMark = "# KIVO_DATA\n";

// "$'...'" keeps a text with line ends on one line of the script.
std::string quotedWithCodes(const std::string& text) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string result = "$'";
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (isControl(character))
      result.append("\\x").append({digits[code / 16], digits[code % 16]});
    else if (character == '\'' || character == '\\')
      result.append({'\\', character});
    else
      result += character;
  }
  return result + '\'';
}

// A quote is written outside of the quotes, which means the same whether rc_quotes is set or not.
std::string quoted(const std::string& text) {
  if (std::any_of(text.begin(), text.end(), isControl))
    return quotedWithCodes(text);
  std::string result = "'";
  for (const char character : text) {
    if (character == '\'')
      result += "'\\''";
    else
      result += character;
  }
  return result + '\'';
}

// "'1 2 3'"
std::string listed(const std::vector<std::size_t>& ranks) {
  std::string result;
  for (const std::size_t rank : ranks)
    result += (result.empty() ? "" : " ") + std::to_string(rank);
  return '\'' + result + '\'';
}

// The words of an option's line: the names that are offered come before the others.
std::string written(const CompletedOption& option, bool isOperand) {
  Texts names = option.offered;
  for (const std::string& name : option.names) {
    if (std::find(names.begin(), names.end(), name) == names.end())
      names.push_back(name);
  }
  std::string result = isOperand ? "operand " : "option ";
  result.append(valueKind(option)).append(" ").append(quoted(option.separator)).append(" ");
  result += option.rank ? std::to_string(*option.rank) : "''";
  result += ' ' + (option.goesWith ? listed(*option.goesWith) : "'*'");
  result += ' ' + quoted(option.description);
  result += ' ' + std::to_string(option.offered.size()) + ' ' + std::to_string(names.size());
  for (const Texts& texts : {names, option.values}) {
    for (const std::string& text : texts)
      result += ' ' + quoted(text);
  }
  return result;
}

class DataWriter {
 public:
  explicit DataWriter(const Completion& completion)
      : m_completion(completion), m_prefix("_kivo:" + completion.name + ':') {}

  std::string data() {
    addTool();
    addScope(m_completion.own, 0);
    for (std::size_t i = 0; i < m_completion.commands.size(); ++i)
      addScope(m_completion.commands[i], i + 1);
    return m_data;
  }

 private:
  void addTool() {
    m_data += "# The tool and its commands.\n";
    m_data += m_prefix + "tool() {\n";
    m_data += std::string("  two_dashes=") + (m_completion.twoDashes ? '1' : '0');
    m_data += std::string(" lone_dash=") + (m_completion.loneDashIsOperand ? '1' : '0') + '\n';
    for (const CompletedScope& command : m_completion.commands)
      m_data += "  command_words+=(" + quoted(command.words) + ") command_summaries+=(" +
                quoted(command.summary) + ")\n";
    m_data += "}\n";
  }

  void addScope(const CompletedScope& scope, std::size_t number) {
    m_data += number == 0
                  ? "\n# The options of the tool.\n"
                  : "\n# The options of its command number " + std::to_string(number) + ".\n";
    m_data += m_prefix + "scope_" + std::to_string(number) + "() {\n";
    for (std::size_t i = 0; i < scope.options.size(); ++i)
      m_data += "  " + m_prefix + "option " + written(scope.options[i], scope.operand == i) + '\n';
    for (const std::vector<std::size_t>& ranks : scope.together)
      m_data += "  together+=(" + listed(ranks) + ")\n";
    m_data += std::string("  leftovers=${leftovers:-") + (scope.leftoversAreOperands ? "1" : "0") +
              "}\n}\n";
  }

  const Completion& m_completion;
  std::string m_prefix;
  std::string m_data;
};

}  // namespace

std::string zshCompletion(const Completion& completion) {
  std::string script = replaced(std::string(zshPart), toolMark, completion.name);
  const std::size_t place = script.find(dataMark);
  return script.replace(place, dataMark.size(), DataWriter(completion).data());
}

}  // namespace kivo_describe
