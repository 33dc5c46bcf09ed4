#include "tool/run.h"

#include <kivo/describe.h>

#include <algorithm>
#include <exception>
#include <new>
#include <optional>
#include <string_view>

#include "tool/arguments.h"
#include "tool/command_search.h"
#include "tool/console.h"
#include "tool/help_page.h"
#include "tool/messages.h"
#include "tool/scope.h"
#include "tool/sources.h"
#include "tool/suggestions.h"

namespace kivo_3_3::tool_glue {
namespace {

constexpr const char* descriptionSwitch = "kivooption=kivodescribe=json";
constexpr int notWritten = 1;

void addBuiltIn(ToolData& tool, const std::vector<std::string>& names, const char* help) {
  Declaration& declaration = tool.builtIn.emplace_back(tool, Use::flag, nullptr);
  declaration.names = names;
  declaration.help = help;
  declaration.isBuiltIn = true;
}

// Help and version, unless the tool has options of these names.
void addBuiltIn(ToolData& tool) {
  if (!tool.builtIn.empty())
    return;
  addBuiltIn(tool, {"help", "h"}, "Show this help.");
  if (!tool.version.empty())
    addBuiltIn(tool, {"version", "V"}, "Show the version.");
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

// What a misspelt option or value may have been.
std::string suggestionFor(const Scope& scope, const Arguments& arguments,
                          const std::string& reason) {
  std::vector<std::string> names;
  for (const Declaration* option : scope.options()) {
    for (const std::string& name : option->names) {
      if (!option->isHidden)
        names.push_back(name);
    }
  }
  for (const std::string& typed : arguments.unknownNames()) {
    if (!typed.empty() && reason.find("Unknown option") == 0) {
      std::vector<std::string> near = nearest(names, typed);
      std::transform(near.begin(), near.end(), near.begin(), shownName);
      return didYouMean(near);
    }
  }
  return "";
}

// One parse of a command line by the parser, with what comes from elsewhere.
class CommandLine {
 public:
  CommandLine(ToolData& tool, const Scope& scope, const Arguments& arguments)
      : m_tool(tool), m_scope(scope), m_arguments(arguments), m_values(scope) {}

  /// The status if the command line is wrong.
  std::optional<int> read() {
    for (Declaration* option : m_scope.options())
      option->forget();
    for (Declaration* operand : m_scope.operands())
      operand->forget();
    if (const char* const stray = m_arguments.stray(); stray != nullptr)
      return refused(m_tool, isUnexpected(stray));
    IParser& parser = *m_tool.parser;
    parser.addHandler(&m_values);
    const std::optional<int> status = readAll(parser);
    parser.removeHandler(&m_values);
    return status;
  }

  /// Gives the variables their values and calls the functions of options.
  std::optional<int> deliver() {
    std::vector<std::pair<unsigned int, std::pair<Declaration*, const char*>>> calls;
    for (const auto* list : {&m_scope.options(), &m_scope.operands()}) {
      for (Declaration* declaration : *list) {
        if (declaration->source == Source::none || !isDelivered(*declaration))
          continue;
        deliver(*declaration);
        for (const PlacedText& text : declaration->texts) {
          if (declaration->use == Use::each)
            calls.push_back({text.place, {declaration, text.text.c_str()}});
        }
      }
    }
    std::sort(calls.begin(), calls.end());
    try {
      for (const auto& [place, call] : calls)
        callWith(*call.first, call.second);
    } catch (const std::bad_alloc&) {
      throw;
    } catch (const std::exception& problem) {
      return statusOf(m_tool, status::unidentifiedProblem, problem.what());
    }
    return std::nullopt;
  }

  const std::vector<Declaration*>& actions() const { return m_values.actions(); }

 private:
  std::optional<int> readAll(IParser& parser) {
    m_values.startSource(Source::commandLine);
    m_values.replaceMarks(m_arguments.mark(), m_arguments.marked());
    const ResultHandle result = makeResult(parser);
    if (!result)
      throw std::bad_alloc();
    const auto& words = m_arguments.words();
    const int status =
        parser.parseArgsVector(static_cast<int>(words.size()), words.data(), result.get());
    if (m_values.failureStatus() != 0)
      return statusOf(m_tool, m_values.failureStatus(),
                      m_values.failure() + suggestedChoice(m_scope, m_values.failure()));
    if (status != status::success) {
      const std::string reason = parser.getErrorDesc();
      return statusOf(
          m_tool, status,
          reason + suggestionFor(m_scope, m_arguments, reason) + suggestedChoice(m_scope, reason));
    }
    return readOthers(parser);
  }

  std::optional<int> readOthers(IParser& parser) {
    std::string failure;
    int status = readEnvironment(m_scope, parser, m_values, failure);
    if (status == status::success)
      status = readConfiguration(m_scope, parser, m_values, failure);
    if (status != status::success)
      return statusOf(m_tool, status, failure);
    failure = missing();
    return failure.empty() ? std::nullopt : std::optional<int>(refused(m_tool, failure));
  }

  bool isDelivered(const Declaration& declaration) const {
    return declaration.source == Source::commandLine || isConcerned(declaration, m_values);
  }

  // What is required and was not given.
  std::string missing() const {
    for (const auto* list : {&m_scope.options(), &m_scope.operands()}) {
      for (const Declaration* one : *list) {
        if (one->isRequired && one->given == 0 && isConcerned(*one, m_values))
          return isRequired(*one);
      }
    }
    for (const ToolData* tool = &m_tool; tool != nullptr; tool = tool->parent) {
      for (const Group& group : tool->groups) {
        const std::string failure = wrongIn(group);
        if (!failure.empty())
          return failure;
      }
    }
    return "";
  }

  std::string wrongIn(const Group& group) const {
    const auto given = std::count_if(
        m_scope.options().begin(), m_scope.options().end(), [&](const Declaration* option) {
          const bool isMember =
              std::any_of(option->names.begin(), option->names.end(), [&](const std::string& name) {
                return std::find(group.names.begin(), group.names.end(), name) != group.names.end();
              });
          return isMember && option->given != 0;
        });
    if (given > 1)
      return excludeEachOther(group.names);
    return given == 0 && group.isNeeded ? oneIsRequired(group.names) : "";
  }

  void deliver(Declaration& declaration) {
    if (!declaration.deprecated.empty())
      print(m_tool, m_tool.root().name + ": " + isDeprecated(declaration) + '\n', true);
    if (declaration.use == Use::flag && declaration.variable != nullptr)
      *static_cast<bool*>(declaration.variable) = declaration.given != 0;
    else if (declaration.use == Use::count)
      *static_cast<int*>(declaration.variable) = static_cast<int>(declaration.given);
    else if (declaration.staged != nullptr)
      declaration.type->move(declaration.staged, declaration.variable);
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

// Reads the command line of a tool without commands, or of a command.
bool runAlone(ToolData& tool, const std::vector<const char*>& words, int& status) {
  const Scope scope(tool, *tool.parser, Purpose::parse);
  const Arguments arguments(scope, words);
  if (arguments.asked() != nullptr) {
    status = printAsked(tool, scope, *arguments.asked());
    return true;
  }
  CommandLine line(tool, scope, arguments);
  std::optional<int> ended = line.read();
  if (!ended)
    ended = line.deliver();
  for (Declaration* action : line.actions()) {
    if (!ended || *ended == 0) {
      Text unused;
      bool isLast = false;
      ended = action->function(tool.handle, &isLast, unused);
    }
  }
  status = ended.value_or(status::success);
  return ended.has_value();
}

// A command while its function runs.
class RunningCommand {
 public:
  RunningCommand(ToolData& tool, const Command& command) : m_handle(ToolData::handleOf(data)) {
    data.name = tool.name;
    data.parent = &tool;
    data.command = &command;
    data.handle = &m_handle;
  }
  RunningCommand(const RunningCommand&) = delete;
  RunningCommand& operator=(const RunningCommand&) = delete;
  ~RunningCommand() { ToolData::release(m_handle); }

  int run() {
    Text unused;
    bool isLast = false;
    const int status = data.command->function(&m_handle, &isLast, unused);
    if (!data.isParsed)
      reportMistake("the command '" + data.command->words + "' returned without parse()");
    return status;
  }

  ToolData data;

 private:
  Tool m_handle;
};

int runCommand(ToolData& tool, FoundCommand found) {
  RunningCommand running(tool, *found.command);
  running.data.words = std::move(found.remainingWords);
  return running.run();
}

bool runWithCommands(ToolData& tool, const std::vector<const char*>& words, int& status) {
  FoundCommand found;
  {
    const Scope scope(tool, *tool.parser, Purpose::parse);
    found = findCommand(tool, scope, words);
    if (found.asked != nullptr) {
      status = printAsked(tool, scope, *found.asked);
      return true;
    }
  }
  if (found.command != nullptr)
    status = runCommand(tool, std::move(found));
  else if (!found.failure.empty())
    status = refused(tool, found.failure);
  else if (!found.words.empty())
    status = printed(tool, commandList(tool, found.words, terminalWidth()));
  else
    status = refused(tool, "A command is required");
  return true;
}

// Writes the description of the tool, for which each command declares its options.
int writeDescription(ToolData& tool) {
  const Scope scope(tool, *tool.parser, Purpose::description);
  std::deque<RunningCommand> running;
  std::vector<CommandInfo> commands;
  for (const Command& command : tool.commands) {
    RunningCommand& one = running.emplace_back(tool, command);
    one.data.isDescribing = true;
    one.run();
    commands.push_back({command.words.c_str(), command.help.c_str(), &parserOf(one.data)});
  }
  annotate(*tool.parser, nullptr, "dashes", "two");
  annotate(*tool.parser, nullptr, "loneDash", "operand");
  for (const std::string& footer : tool.footers)
    annotate(*tool.parser, nullptr, "footer", footer.c_str());
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
  if (std::exchange(tool.isParsed, true))
    reportMistake("parse() is called twice");
  parserOf(tool);
  addBuiltIn(tool.root());
  if (tool.isDescribing) {
    const Scope declared(tool, *tool.parser, Purpose::description);
    status = status::success;
    return true;
  }
  if (isDescriptionAsked(words)) {
    status = writeDescription(tool);
    return true;
  }
  if (!tool.commands.empty())
    return runWithCommands(tool, words, status);
  return runAlone(tool, words, status);
}

}  // namespace kivo_3_3::tool_glue
