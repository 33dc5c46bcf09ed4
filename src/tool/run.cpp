#include "tool/run.h"

#include <kivo/describe.h>
#include <kivo/handles.h>
#include <kivo/status.h>

#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include "tool/arguments.h"
#include "tool/command_line.h"
#include "tool/command_search.h"
#include "tool/console.h"
#include "tool/help_page.h"
#include "tool/messages.h"
#include "tool/mistakes.h"
#include "tool/outcome.h"
#include "tool/running_command.h"
#include "tool/scope.h"
#include "tool/suggestions.h"
#include "tool/value_text.h"

namespace kivo_3_3::tool_glue {
namespace {

constexpr const char* descriptionSwitch = "kivooption=kivodescribe=json";

void addBuiltIn(ToolData& tool, const char* names, const char* help) {
  Declaration& declaration = tool.builtIn.emplace_back(tool, Use::flag, nullptr);
  declaration.names = NameList(names);
  declaration.help = help;
  declaration.isBuiltIn = true;
}

// Help and version, unless the tool has options of these names.
void addBuiltIn(ToolData& tool) {
  if (!tool.builtIn.empty())
    return;
  addBuiltIn(tool, "help,h", "Show this help.");
  if (!tool.version.empty())
    addBuiltIn(tool, "version,V", "Show the version.");
}

int printAsked(const ToolData& tool, const Scope& scope, const Declaration& asked) {
  if (&asked == &tool.root().builtIn.front())
    return printed(tool, helpPage(tool, scope, terminalWidth()));
  return printed(tool, tool.root().name + ' ' + tool.root().version + '\n');
}

// Calls the functions of the actions, up to the first one that fails. Returns none without actions.
std::optional<int> act(ToolData& tool, const std::vector<Declaration*>& actions) {
  std::optional<int> status;
  for (const Declaration* action : actions) {
    if (status.value_or(status::success) == status::success)
      status = work(tool, action->function, *tool.handle);
  }
  return status;
}

// Reads the command line of a tool without commands, or of a command.
bool runAlone(ToolData& tool, const std::vector<const char*>& words, int& status) {
  const Scope scope(tool, *tool.parser, Purpose::parse);
  reportMistakes(tool, scope);
  const Arguments arguments(scope, tool.early, tool.mayHaveSwitch, words);
  if (arguments.asked() != nullptr) {
    status = printAsked(tool, scope, *arguments.asked());
    return true;
  }
  CommandLine line(tool, scope, arguments);
  std::optional<int> ended = line.read();
  if (!ended)
    ended = line.deliver();
  if (!ended)
    ended = act(tool, line.actions());
  status = ended.value_or(status::success);
  return ended.has_value();
}

int runCommand(ToolData& tool, FoundCommand found, bool hasSwitch) {
  RunningCommand running(tool, *found.command);
  running.data.words = std::move(found.remainingWords);
  running.data.early = std::move(found.early);
  running.data.mayHaveSwitch = hasSwitch;
  return running.run();
}

// Lists the commands that begin with the words, unless the command line is wrong.
int withoutCommand(ToolData& tool, const Scope& scope, const FoundCommand& found) {
  if (!found.failure.empty())
    return refused(tool, found.failure);
  const Arguments arguments(scope, tool.early, tool.mayHaveSwitch, found.remainingWords);
  if (arguments.stray() != nullptr)
    return refused(tool, isUnexpected(arguments.stray()));
  const auto& words = arguments.words();
  const int wrong =
      tool.parser->parseArgsVector(static_cast<int>(words.size()), words.data(), nullptr);
  if (wrong != status::success) {
    const std::string reason = tool.parser->getErrorDesc();
    return statusOf(tool, wrong, reason + suggestedOption(scope, arguments.unknownNames(), reason));
  }
  if (found.words.empty())
    return refused(tool, "A command is required");
  return printed(tool, commandList(tool, found.words, terminalWidth()));
}

// Reads the command line of a tool with commands.
bool runWithCommands(ToolData& tool, const std::vector<const char*>& words, int& status) {
  FoundCommand found;
  {
    const Scope scope(tool, *tool.parser, Purpose::parse);
    reportMistakes(tool, scope);
    found = findCommand(tool, scope, words);
    if (found.asked != nullptr)
      status = printAsked(tool, scope, *found.asked);
    else if (found.command == nullptr)
      status = withoutCommand(tool, scope, found);
  }
  if (found.asked == nullptr && found.command != nullptr)
    status = runCommand(tool, std::move(found), words.size() > 1 && isSwitch(words, 1));
  return true;
}

// Writes the description of the tool, for which each command declares its options.
int writeDescription(ToolData& tool) {
  const Scope scope(tool, *tool.parser, Purpose::description);
  reportMistakes(tool, scope);
  std::deque<RunningCommand> running;
  std::vector<CommandInfo> commands;
  for (const Command& command : tool.commands) {
    RunningCommand& one = running.emplace_back(tool, command);
    one.declare();
    commands.push_back({command.words.c_str(), command.help.c_str(), &parserOf(one.data)});
  }
  annotateOrThrow(*tool.parser, nullptr, "dashes", "two");
  annotateOrThrow(*tool.parser, nullptr, "loneDash", "operand");
  std::string footer;  // pages show the first one alone
  for (const std::string& paragraph : tool.footers)
    footer += (footer.empty() ? "" : "\n") + paragraph;
  if (!footer.empty())
    annotateOrThrow(*tool.parser, nullptr, "footer", footer);
  const std::string text =
      describe(*tool.parser, {tool.name.c_str(), tool.version.c_str(), tool.summary.c_str()},
               commands.data(), static_cast<unsigned int>(commands.size()));
  if (text.empty())
    throw std::bad_alloc();
  return printed(tool, text + '\n');
}

bool isDescriptionAsked(const std::vector<const char*>& words) {
  return words.size() > 1 && std::string_view(words[1]) == descriptionSwitch;
}

bool runOnce(ToolData& tool, const std::vector<const char*>& words, int& status) {
  parserOf(tool);
  addBuiltIn(tool.root());
  if (tool.isDescribing) {
    reportMistakes(tool, Scope(tool, *tool.parser, Purpose::description));
    status = status::success;
    return true;
  }
  if (tool.parent == nullptr && isDescriptionAsked(words)) {
    status = writeDescription(tool);
    return true;
  }
  if (!tool.commands.empty())
    return runWithCommands(tool, words, status);
  return runAlone(tool, words, status);
}

}  // namespace

IParser& parserOf(ToolData& tool) {
  if (!tool.parser)
    tool.parser = makeParser(
        parserFlags::unknownArgumentIsError | parserFlags::leftoverArgumentsArePositional |
        parserFlags::dashArgumentsAreNeverPositional | parserFlags::noTokenizer);
  if (!tool.parser)
    throw std::bad_alloc();
  return *tool.parser;
}

std::string helpOf(ToolData& tool) {
  addBuiltIn(tool.root());
  const ParserHandle parser = makeParser();
  if (!parser)
    throw std::bad_alloc();
  return helpPage(tool, Scope(tool, *parser, Purpose::parse), terminalWidth());
}

bool run(ToolData& tool, const std::vector<const char*>& words, int& status) {
  if (std::exchange(tool.isParsed, true)) {
    reportMistake("parse() is called twice by '" + tool.calledName() + "'");
    status = status::unidentifiedProblem;
    return true;
  }
  try {
    return runOnce(tool, words, status);
  } catch (const NoText& failure) {
    if (tool.isDescribing)  // the description of the whole tool fails
      throw;
    status = statusOfThrown(tool, failure.cause);
    return true;
  }
}

}  // namespace kivo_3_3::tool_glue
