#include "tool/run.h"

#include <kivo/describe.h>

#include <algorithm>
#include <exception>
#include <iterator>
#include <new>
#include <optional>
#include <set>
#include <string_view>

#include "tool/arguments.h"
#include "tool/command_search.h"
#include "tool/console.h"
#include "tool/help_page.h"
#include "tool/messages.h"
#include "tool/mistakes.h"
#include "tool/running_command.h"
#include "tool/scope.h"
#include "tool/sources.h"
#include "tool/suggestions.h"
#include "tool/value_text.h"

namespace kivo_3_3::tool_glue {
namespace {

constexpr const char* descriptionSwitch = "kivooption=kivodescribe=json";
constexpr int notWritten = 1;

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

int printed(const ToolData& tool, const std::string& text) {
  return print(tool, text, false) ? status::success : notWritten;
}

int printAsked(const ToolData& tool, const Scope& scope, const Declaration& asked) {
  if (&asked == &tool.root().builtIn.front())
    return printed(tool, helpPage(tool, scope, terminalWidth()));
  return printed(tool, tool.root().name + ' ' + tool.root().version + '\n');
}

int refused(const ToolData& tool, const std::string& reason) {
  printError(tool, reason);
  return tool.root().usageStatus;
}

// The status of the tool for one of the parser.
int statusOf(const ToolData& tool, int parserStatus, const std::string& reason) {
  if (parserStatus == status::exceptionCaught)
    throw std::bad_alloc();
  if (parserStatus != status::unidentifiedProblem)
    return refused(tool, reason);
  printError(tool, reason.empty() ? "The command line cannot be read" : reason);
  return parserStatus;
}

// The status of the tool for what a function of the tool has thrown.
int statusOfThrown(const ToolData& tool, const std::exception_ptr& thrown) {
  std::string reason;
  try {
    std::rethrow_exception(thrown);
  } catch (const std::exception& problem) {
    reason = problem.what();
  } catch (...) {
    reason.clear();
  }
  return statusOf(tool, status::unidentifiedProblem, reason);
}

// The values are notified by the parser while this object exists.
class Handling {
 public:
  Handling(IParser& parser, GivenValues& values) : m_parser(parser), m_values(values) {
    parser.addHandler(&values);
  }
  Handling(const Handling&) = delete;
  Handling& operator=(const Handling&) = delete;
  ~Handling() { m_parser.removeHandler(&m_values); }

 private:
  IParser& m_parser;
  GivenValues& m_values;
};

// One parse of a command line by the parser, with what comes from elsewhere.
class CommandLine {
 public:
  CommandLine(ToolData& tool, const Scope& scope, const Arguments& arguments)
      : m_tool(tool), m_scope(scope), m_arguments(arguments), m_values(scope) {}

  /// The status if the command line is wrong.
  std::optional<int> read() {
    if (const char* const stray = m_arguments.stray(); stray != nullptr)
      return refused(m_tool, isUnexpected(stray));
    IParser& parser = *m_tool.parser;
    const Handling handling(parser, m_values);
    return readAll(parser);
  }

  /// Gives the variables their values and calls the functions of options.
  std::optional<int> deliver() {
    std::vector<std::pair<unsigned int, std::pair<Declaration*, const char*>>> calls;
    const std::vector<Declaration*> delivered = toDeliver();
    for (const std::string& warning : m_values.warnings())
      warn(warning);
    for (Declaration* declaration : delivered) {
      if (!declaration->deprecated.empty() && declaration->source == Source::commandLine)
        warn(isDeprecated(*declaration));
      for (const PlacedText& text : declaration->texts) {
        if (declaration->use == Use::each)
          calls.push_back({text.place, {declaration, text.text.c_str()}});
      }
    }
    std::sort(calls.begin(), calls.end());
    try {
      // Needs no memory: unless the assignment of a type of the tool fails, all variables are set.
      for (Declaration* declaration : delivered)
        deliver(*declaration);
      for (const auto& [place, call] : calls)
        callWith(*call.first, call.second);
    } catch (const std::bad_alloc&) {
      throw;
    } catch (...) {
      return statusOfThrown(m_tool, std::current_exception());
    }
    return std::nullopt;
  }

  const std::vector<Declaration*>& actions() const { return m_values.actions(); }

 private:
  std::optional<int> readAll(IParser& parser) {
    m_values.startSource(Source::commandLine);
    m_values.replaceMarks(m_arguments.mark(), m_arguments.marked());
    const ResultHandle result = needsResult() ? makeResult(parser) : ResultHandle();
    if ((needsResult() && !result) || !m_values.isNotifiedBy(parser))
      throw std::bad_alloc();
    const auto& words = m_arguments.words();
    const int status =
        parser.parseArgsVector(static_cast<int>(words.size()), words.data(), result.get());
    if (m_values.failureStatus() != 0)
      return statusOf(m_tool, m_values.failureStatus(),
                      m_values.failure() + suggestedChoice(m_scope, m_values.failure()));
    if (status == status::unidentifiedProblem)  // of the parser itself: it had no memory
      throw std::bad_alloc();
    if (status != status::success) {
      const std::string reason = parser.getErrorDesc();
      return statusOf(m_tool, status,
                      reason + suggestedOption(m_scope, m_arguments.unknownNames(), reason) +
                          suggestedChoice(m_scope, reason));
    }
    return readOthers(parser);
  }

  // Without a result, the parser stores nothing, and leaves out what needs the stored options: the
  // rules of actions, and option files, which the author may have declared on the parser.
  bool needsResult() const {
    const auto isAction = [](const Declaration* one) { return one->use == Use::action; };
    const auto& options = m_scope.options();
    return m_tool.isParserGivenAway || std::any_of(options.begin(), options.end(), isAction);
  }

  std::optional<int> readOthers(IParser& parser) {
    std::string failure;
    int status = readEnvironment(m_scope, parser, m_values, failure);
    if (status == status::success)
      status = readConfiguration(m_scope, parser, m_values, failure);
    if (status != status::success)
      return statusOf(m_tool, status, failure);
    passOverUnconcerned();
    failure = missing();
    return failure.empty() ? std::nullopt : std::optional<int>(refused(m_tool, failure));
  }

  // What a file gives for other actions was not given.
  void passOverUnconcerned() const {
    for (const auto* list : {&m_scope.options(), &m_scope.operands()}) {
      for (Declaration* one : *list) {
        if (one->source == Source::config && !isConcerned(*one, m_values)) {
          one->source = Source::none;
          one->given = 0;
        }
      }
    }
  }

  std::vector<Declaration*> toDeliver() const {
    std::vector<Declaration*> delivered;
    delivered.reserve(m_scope.options().size());
    for (const auto* list : {&m_scope.options(), &m_scope.operands()}) {
      std::copy_if(list->begin(), list->end(), std::back_inserter(delivered),
                   [](const Declaration* one) { return one->source != Source::none; });
    }
    return delivered;
  }

  // What was given and may not be, and what is required and was not given.
  std::string missing() const {
    for (const auto* list : {&m_scope.options(), &m_scope.operands()}) {
      for (const Declaration* one : *list) {
        std::string refusal = refusedUse(*one, one->given);
        if (!refusal.empty())
          return refusal;
        if (one->isOperand() && one->given != 0 && !actions().empty() &&
            !isConcerned(*one, m_values))
          return doesNotAccept(*actions().front(), *one);
        if (one->isRequired && one->given == 0 && isConcerned(*one, m_values))
          return isRequired(*one);
      }
    }
    for (const ToolData* tool = &m_tool; tool != nullptr; tool = tool->parent) {
      for (const Group& group : tool->groups) {
        std::string failure = wrongIn(*tool, group);
        if (!failure.empty())
          return failure;
      }
    }
    return "";
  }

  // One of the options is needed only where at least one of them goes with the actions.
  std::string wrongIn(const ToolData& tool, const Group& group) const {
    std::set<const Declaration*> members;
    for (const std::string& name : group.names) {
      const Declaration* const member = m_scope.declared(tool, name);
      if (member != nullptr && isConcerned(*member, m_values))
        members.insert(member);
    }
    const auto given = std::count_if(members.begin(), members.end(),
                                     [](const Declaration* member) { return member->given != 0; });
    if (given > 1)
      return excludeEachOther(group.names);
    if (given == 0 && group.isNeeded && !members.empty())
      return oneIsRequired(group.names);
    return "";
  }

  void deliver(Declaration& declaration) {
    if (declaration.use == Use::flag && declaration.variable != nullptr)
      *static_cast<bool*>(declaration.variable) = declaration.given != 0;
    else if (declaration.use == Use::count)
      *static_cast<int*>(declaration.variable) = static_cast<int>(declaration.given);
    else if (declaration.staged != nullptr)
      declaration.type->move(declaration.staged, declaration.variable);
  }

  void warn(const std::string& warning) const {
    print(m_tool, m_tool.root().name + ": " + warning + '\n', true);
  }

  static void callWith(Declaration& declaration, const char* text) {
    Text unused;
    bool isLast = false;
    declaration.function(&text, &isLast, unused);
  }

  ToolData& m_tool;
  const Scope& m_scope;
  const Arguments& m_arguments;
  GivenValues m_values;
};

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

void printError(const ToolData& tool, const std::string& reason) {
  const std::string& name = tool.root().name;
  print(tool, name + ": " + reason + "\nTry '" + tool.calledName() + " --help'.\n", true);
}

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
