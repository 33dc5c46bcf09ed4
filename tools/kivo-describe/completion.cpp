#include "completion.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "text.h"

// Decides what completion scripts offer, as far as it depends on the declarations alone. The
// scripts decide what depends on the words typed before. If this file let through a name or a value
// that the parser refuses, every shell would offer it.

namespace kivo_describe {
namespace {

// The rank of each action.
using Ranks = std::map<const Option*, std::size_t>;

// The ranks of the actions that have a first name.
using RanksByName = std::multimap<std::string, std::size_t>;

bool canBeTyped(const std::string& name) {
  return isWord(name) && name.front() != '-' && !hasControlCharacter(name) &&
         name.find('=') == std::string::npos;
}

template <class Condition>
void eraseIf(Texts& texts, Condition condition) {
  texts.erase(std::remove_if(texts.begin(), texts.end(), condition), texts.end());
}

std::vector<const Declarations*> scopesOf(const Description& description) {
  std::vector<const Declarations*> scopes = {&description.declarations};
  for (const Command& command : description.commands)
    scopes.push_back(&command.declarations);
  return scopes;
}

Ranks ranksOf(const Description& description) {
  std::vector<std::pair<std::string, const Option*>> actions;
  for (const Declarations* const declarations : scopesOf(description)) {
    for (const Option& option : declarations->options) {
      if (option.kind == "action")
        actions.emplace_back(*std::min_element(option.names.begin(), option.names.end()), &option);
    }
  }
  std::stable_sort(actions.begin(), actions.end(),
                   [](const auto& left, const auto& right) { return left.first < right.first; });
  Ranks ranks;
  for (const auto& [name, action] : actions)
    ranks.emplace(action, ranks.size());
  return ranks;
}

void addRanks(const Declarations& declarations, const Ranks& ranks, RanksByName& byName) {
  for (const Option& option : declarations.options) {
    if (option.kind == "action")
      byName.emplace(option.names.front(), ranks.at(&option));
  }
}

// The options of one tool or command. Their lists of actions may name those of the other one, too,
// which are given on the same command line.
class ScopeMaker {
 public:
  ScopeMaker(const Declarations& declarations, const Ranks& ranks,
             std::vector<const RanksByName*> byFirstName)
      : m_declarations(declarations), m_ranks(ranks), m_byFirstName(std::move(byFirstName)) {}

  CompletedScope scope(const std::string& words, const std::string& summary) const {
    CompletedScope scope;
    scope.words = words;
    scope.summary = squeezed(summary);
    scope.leftoversAreOperands = m_declarations.leftoverArguments == "positional";
    std::set<std::string> taken;  // a name stands for the first option that has it
    for (const Option& option : m_declarations.options) {
      if (option.positional && !scope.operand)
        scope.operand = scope.options.size();
      CompletedOption& added = scope.options.emplace_back(completed(option));
      eraseIf(added.offered, [&](const std::string& name) { return taken.count(name) != 0; });
      taken.insert(added.names.begin(), added.names.end());
    }
    for (const Texts& set : m_declarations.together)
      scope.together.push_back(ranksOf(set));
    return scope;
  }

 private:
  // Names that no action has are left out.
  std::vector<std::size_t> ranksOf(const Texts& firstNames) const {
    std::vector<std::size_t> ranks;
    for (const std::string& name : firstNames) {
      for (const RanksByName* const byFirstName : m_byFirstName) {
        const auto [first, end] = byFirstName->equal_range(name);
        for (auto found = first; found != end; ++found)
          ranks.push_back(found->second);
      }
    }
    std::sort(ranks.begin(), ranks.end());
    return ranks;
  }

  CompletedOption completed(const Option& option) const {
    CompletedOption result;
    result.names = option.names;
    if (option.type == "boolean") {
      for (const std::string& name : option.names)
        result.names.push_back("no-" + name);
    }
    if (!option.hidden && !option.positional && option.annotations.count("deprecated") == 0)
      result.offered = offeredNames(option);
    result.takesValue = option.type != "none" && option.type != "boolean";
    result.separator = option.separator.value_or("");
    result.kind = offeredKind(option);
    if (result.kind == Offered::values)
      result.values = offeredValues(option);
    if (option.kind == "action")
      result.rank = m_ranks.at(&option);
    if (option.kind == "modifier")
      result.goesWith = ranksOf(option.actions);
    result.description = squeezed(option.description);
    return result;
  }

  static Texts offeredNames(const Option& option) {
    Texts names = option.names;
    if (option.type == "boolean")
      names.push_back("no-" + option.names.front());
    eraseIf(names, [](const std::string& name) { return !canBeTyped(name); });
    return names;
  }

  static Offered offeredKind(const Option& option) {
    if (option.type == "none" || option.type == "boolean")
      return Offered::nothing;
    if (!option.allowed.empty())
      return Offered::values;
    if (option.type != "string")
      return Offered::nothing;
    const std::string hint = firstText(option.annotations, "hint").value_or("file");
    if (hint == "none")
      return Offered::nothing;
    return hint == "directory" ? Offered::folders : Offered::files;
  }

  static Texts offeredValues(const Option& option) {
    std::set<std::string> deprecated;
    for (const DeprecatedValue& one : option.deprecated)
      deprecated.insert(one.value);
    Texts values;
    for (const std::string& value : option.allowed) {
      const bool isSplit = option.separator && value.find(*option.separator) != std::string::npos;
      if (!value.empty() && !hasControlCharacter(value) && !isSplit && deprecated.count(value) == 0)
        values.push_back(value);
    }
    return values;
  }

  const Declarations& m_declarations;
  const Ranks& m_ranks;
  std::vector<const RanksByName*> m_byFirstName;
};

}  // namespace

Completion makeCompletion(const Description& description) {
  const Ranks ranks = ranksOf(description);
  const auto& annotations = description.declarations.annotations;
  Completion completion;
  completion.name = description.name;
  completion.twoDashes = firstText(annotations, "dashes") == "two";
  completion.loneDashIsOperand = firstText(annotations, "loneDash") == "operand";
  RanksByName ofTool;
  addRanks(description.declarations, ranks, ofTool);
  RanksByName ofCommands;
  for (const Command& command : description.commands) {
    RanksByName ofCommand;
    addRanks(command.declarations, ranks, ofCommand);
    completion.commands.push_back(ScopeMaker(command.declarations, ranks, {&ofTool, &ofCommand})
                                      .scope(command.words, command.summary));
    ofCommands.merge(ofCommand);
  }
  completion.own =
      ScopeMaker(description.declarations, ranks, {&ofTool, &ofCommands}).scope("", "");
  return completion;
}

}  // namespace kivo_describe
