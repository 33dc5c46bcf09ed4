#include "reference/scenarios/scenario.h"

#include <algorithm>

#include "reference/scenarios/scene.h"

namespace kivo_3_3::scenarios {

using std::string;

namespace {

// The offset after the given number of unescaped bars; the end of the line if there are fewer.
std::size_t afterBars(const string& line, std::size_t begin, int bars) {
  for (; begin < line.size() && bars != 0; ++begin) {
    if (line[begin] == '\\')
      ++begin;
    else if (line[begin] == '|')
      --bars;
  }
  return std::min(begin, line.size());
}

// Makes "VERB FIELDS" of the rest of a line, "VERB|FIELDS", after this many bars.
string reactionOf(const string& line, int bars) {
  string step = line.substr(afterBars(line, 0, bars));
  const std::size_t bar = step.find('|');
  if (bar != string::npos)
    step[bar] = ' ';
  return step;
}

bool contains(const string& text, const char* part) { return text.find(part) != string::npos; }

}  // namespace

Command::Command(const string& line, Operation does)
    : m_line(line), m_step(line), m_operation(does) {}

bool Command::isNull(std::size_t field) const {
  const char* const text = m_step.textOrNull(field);
  return text == nullptr || string(text) == "<null>";
}

std::size_t Command::fields() const {
  std::size_t count = 0;
  while (m_step.textOrNull(count) != nullptr)
    ++count;
  return count;
}

std::optional<Command> commandOf(const string& line) {
  const Operation operation = Scene::operation(line.substr(0, line.find(' ')));
  if (operation == nullptr)
    return std::nullopt;
  Command command(line, operation);
  if (operation == &Scene::react || operation == &Scene::console) {
    const std::optional<Command> reaction =
        commandOf(reactionOf(line, operation == &Scene::react ? 3 : 1));
    if (!reaction)
      return std::nullopt;
    command.m_reaction = std::make_shared<const Command>(*reaction);
  }
  return command;
}

// Slashes are replaced: option files outside of the scratch folder must not be read.
Scenario::Scenario(const string& text) {
  string harmless = text;
  std::replace(harmless.begin(), harmless.end(), '/', '.');
  m_hasFiles = contains(harmless, "file") || contains(harmless, "folder");
  m_names.emplace_back("option-file");
  for (const string& line : fuzzing::linesOf(harmless)) {
    if (std::optional<Command> command = commandOf(line)) {
      note(*command);
      m_commands.push_back(*std::move(command));
    }
  }
  std::sort(m_names.begin(), m_names.end());
  m_names.erase(std::unique(m_names.begin(), m_names.end()), m_names.end());
}

void Scenario::note(const Command& command) {
  const Operation does = command.operation();
  if (command.reaction() != nullptr)
    note(*command.reaction());
  if (does == &Scene::option || does == &Scene::action || does == &Scene::modifier) {
    for (const string& name : fuzzing::wordsOf(command.text(1)))
      m_names.push_back(name);
  } else if (does == &Scene::synonym || does == &Scene::present || does == &Scene::get ||
             does == &Scene::last) {
    m_names.push_back(command.text(1));
  }
}

}  // namespace kivo_3_3::scenarios
