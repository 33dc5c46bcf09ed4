#include "tool/command_search.h"

#include <new>
#include <optional>
#include <set>
#include <utility>

#include "tool/arguments.h"
#include "tool/messages.h"
#include "tool/running_command.h"
#include "tool/suggestions.h"

namespace kivo_3_3::tool_glue {
namespace {

// The words with which commands go on.
std::vector<std::string> nextWords(const ToolData& tool, const std::string& soFar) {
  std::string start = soFar;
  if (!start.empty())
    start += ' ';
  std::set<std::string> words;
  for (const Command& command : tool.commands) {
    if (command.words.compare(0, start.size(), start) == 0 && command.words.size() > start.size())
      words.insert(
          command.words.substr(start.size(), command.words.find(' ', start.size()) - start.size()));
  }
  return {words.begin(), words.end()};
}

const Command* commandWith(const ToolData& tool, const std::string& words) {
  for (const Command& command : tool.commands) {
    if (command.words == words)
      return &command;
  }
  return nullptr;
}

// The declarations of a command and its tool.
class DeclaredCommand {
 public:
  DeclaredCommand(ToolData& tool, const Command& command) : m_running(tool, command) {
    m_running.declare();
    if (!m_parser)
      throw std::bad_alloc();
    m_scope.emplace(m_running.data, *m_parser, Purpose::parse);
  }

  const Command& command() const { return *m_running.data.command; }
  const Scope& scope() const { return *m_scope; }

 private:
  RunningCommand m_running;
  ParserHandle m_parser = makeParser();
  std::optional<Scope> m_scope;
};

class Search {
 public:
  Search(ToolData& tool, const Scope& scope, const std::vector<const char*>& words)
      : m_tool(tool), m_scope(scope), m_words(words) {}

  FoundCommand run() {
    m_found.remainingWords.push_back(m_words.front());
    for (; m_index < m_words.size() && !m_isOver; ++m_index)
      take(m_words[m_index]);
    for (; m_index < m_words.size(); ++m_index)
      m_found.remainingWords.push_back(m_words[m_index]);
    return std::move(m_found);
  }

 private:
  void take(const char* text) {
    const Word word = wordOf(text);
    if (isSwitch(m_words, m_index) || word.sort == Word::option || !takeAsCommand(word, text))
      m_found.remainingWords.push_back(text);
    if (word.sort == Word::option)
      takeOption(word);
    m_isOver |= word.sort == Word::end;
  }

  void takeOption(const Word& word) {
    Declaration* const declaration = scope().resolve(word.name);
    if (declaration == nullptr)
      return;
    if (m_found.command == nullptr)
      m_found.early.emplace(m_found.remainingWords.size() - 1, declaration);
    if (declaration->isBuiltIn && m_found.command == nullptr) {
      m_found.asked = declaration;
      m_isOver = true;
    }
    const bool isNextTaken = declaration->takesValue() && word.value.empty() &&
                             !(word.hasValue && declaration->takesAnyText());
    if (isNextTaken && m_index + 1 < m_words.size() && isValue(m_words[m_index + 1]))
      m_found.remainingWords.push_back(m_words[++m_index]);
  }

  // Whether the word belongs to the command.
  bool takeAsCommand(const Word& word, const std::string& text) {
    if (word.sort == Word::end || !m_found.failure.empty())
      return false;
    const std::vector<std::string> next = nextWords(m_tool, m_found.words);
    std::vector<std::string> fitting;
    for (const std::string& one : next) {
      if (one == text)
        return go(one);
      if (!text.empty() && one.compare(0, text.size(), text) == 0)
        fitting.push_back(one);
    }
    if (fitting.size() == 1)
      return go(fitting.front());
    m_isOver = m_found.command != nullptr;  // else help may follow
    if (m_found.command == nullptr)
      m_found.failure = fitting.empty()
                            ? isUnknownCommand(after(text)) + didYouMean(nearest(next, text))
                            : isAmbiguousCommand(text, fitting);
    return false;
  }

  // A word behind the words of commands so far.
  std::string after(const std::string& word) const {
    return m_found.words.empty() ? word : m_found.words + ' ' + word;
  }

  const Scope& scope() {
    if (m_found.command == nullptr)
      return m_scope;
    if (!m_declared || &m_declared->command() != m_found.command)
      m_declared.emplace(m_tool, *m_found.command);
    return m_declared->scope();
  }

  bool go(const std::string& word) {
    m_found.words = after(word);
    m_found.command = commandWith(m_tool, m_found.words);
    m_isOver = nextWords(m_tool, m_found.words).empty();
    return true;
  }

  ToolData& m_tool;
  const Scope& m_scope;
  const std::vector<const char*>& m_words;
  std::size_t m_index = 1;
  bool m_isOver = false;
  FoundCommand m_found;
  std::optional<DeclaredCommand> m_declared;  // of a command with longer ones
};

}  // namespace

FoundCommand findCommand(ToolData& tool, const Scope& scope,
                         const std::vector<const char*>& words) {
  return Search(tool, scope, words).run();
}

}  // namespace kivo_3_3::tool_glue
