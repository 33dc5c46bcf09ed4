#include "tool/command_line.h"

#include <kivo/handles.h>
#include <kivo/status.h>

#include <algorithm>
#include <exception>
#include <iterator>
#include <new>
#include <set>
#include <utility>

#include "tool/console.h"
#include "tool/messages.h"
#include "tool/outcome.h"
#include "tool/sources.h"
#include "tool/suggestions.h"

namespace kivo_3_3::tool_glue {
namespace {

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

void setVariable(Declaration& declaration) {
  if (declaration.use == Use::flag && declaration.variable != nullptr)
    *static_cast<bool*>(declaration.variable) = declaration.given != 0;
  else if (declaration.use == Use::count)
    *static_cast<int*>(declaration.variable) = static_cast<int>(declaration.given);
  else if (declaration.staged != nullptr)
    declaration.type->move(declaration.staged, declaration.variable);
}

// A call of a function of the tool with a text, and its place among all calls.
struct Call {
  bool operator<(const Call& other) const { return place < other.place; }
  void operator()() const {
    Text unused;
    bool isLast = false;
    const char* argument = text;
    declaration->function(&argument, &isLast, unused);
  }

  unsigned int place;
  const Declaration* declaration;
  const char* text;
};

std::vector<Call> callsFor(const std::vector<Declaration*>& given) {
  std::vector<Call> calls;
  for (const Declaration* declaration : given) {
    for (const PlacedText& text : declaration->texts) {
      if (declaration->use == Use::each)
        calls.push_back({text.place, declaration, text.text.c_str()});
    }
  }
  std::sort(calls.begin(), calls.end());
  return calls;
}

}  // namespace

std::optional<int> CommandLine::read() {
  if (const char* const stray = m_arguments.stray(); stray != nullptr)
    return refused(m_tool, isUnexpected(stray));
  IParser& parser = *m_tool.parser;
  const Handling handling(parser, m_values);
  return readAll(parser);
}

std::optional<int> CommandLine::readAll(IParser& parser) {
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
bool CommandLine::needsResult() const {
  const auto isAction = [](const Declaration* one) { return one->use == Use::action; };
  const auto& options = m_scope.options();
  return m_tool.isParserGivenAway || std::any_of(options.begin(), options.end(), isAction);
}

std::optional<int> CommandLine::readOthers(IParser& parser) {
  std::string failure;
  int status = readEnvironment(m_scope, parser, m_values, failure);
  if (status == status::success)
    status = readConfiguration(m_scope, parser, m_values, failure);
  if (status != status::success)
    return statusOf(m_tool, status, failure);
  passOverUnconcerned();
  failure = wrong();
  return failure.empty() ? std::nullopt : std::optional<int>(refused(m_tool, failure));
}

// What a file gives for other actions was not given.
void CommandLine::passOverUnconcerned() const {
  for (const auto* list : {&m_scope.options(), &m_scope.operands()}) {
    for (Declaration* one : *list) {
      if (one->source == Source::config && !isConcerned(*one, m_values)) {
        one->source = Source::none;
        one->given = 0;
      }
    }
  }
}

// What is wrong with the command line as a whole; empty if nothing is.
std::string CommandLine::wrong() const {
  for (const auto* list : {&m_scope.options(), &m_scope.operands()}) {
    for (const Declaration* one : *list) {
      std::string failure = wrongWith(*one);
      if (!failure.empty())
        return failure;
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

// Other sources have checked how often they give an option without a value.
std::string CommandLine::wrongWith(const Declaration& declaration) const {
  if (declaration.source == Source::commandLine) {
    std::string failure = refusedUse(declaration, declaration.given);
    if (!failure.empty())
      return failure;
  }
  const bool isGiven = declaration.given != 0;
  if (isConcerned(declaration, m_values))
    return declaration.isRequired && !isGiven ? isRequired(declaration) : "";
  if (declaration.isOperand() && isGiven && !actions().empty())
    return doesNotAccept(*actions().front(), declaration);
  return "";
}

// One of the options is needed only where at least one of them goes with the actions.
std::string CommandLine::wrongIn(const ToolData& tool, const Group& group) const {
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

std::optional<int> CommandLine::deliver() {
  const std::vector<Declaration*> declarations = givenDeclarations();
  warn(declarations);
  const std::vector<Call> calls = callsFor(declarations);
  try {
    // Needs no memory: unless the assignment of a type of the tool fails, all variables are set.
    for (Declaration* declaration : declarations)
      setVariable(*declaration);
    for (const Call& call : calls)
      call();
  } catch (const std::bad_alloc&) {
    throw;
  } catch (...) {
    return statusOfThrown(m_tool, std::current_exception());
  }
  return std::nullopt;
}

std::vector<Declaration*> CommandLine::givenDeclarations() const {
  std::vector<Declaration*> given;
  given.reserve(m_scope.options().size());
  for (const auto* list : {&m_scope.options(), &m_scope.operands()}) {
    std::copy_if(list->begin(), list->end(), std::back_inserter(given),
                 [](const Declaration* one) { return one->source != Source::none; });
  }
  return given;
}

// Warns of what is deprecated on the command line.
void CommandLine::warn(const std::vector<Declaration*>& given) const {
  std::vector<std::string> warnings = m_values.warnings();
  for (const Declaration* declaration : given) {
    if (!declaration->deprecated.empty() && declaration->source == Source::commandLine)
      warnings.push_back(isDeprecated(*declaration));
  }
  for (const std::string& warning : warnings)
    print(m_tool, m_tool.root().name + ": " + warning + '\n', true);
}

}  // namespace kivo_3_3::tool_glue
