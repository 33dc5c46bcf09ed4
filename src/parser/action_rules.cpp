// Checks the stored options in the order of their names, so one set of options always has the same
// message, in whatever order the options were given.

#include "parser/action_rules.h"

#include <kivo/option_lookup.h>
#include <kivo/status.h>

#include <algorithm>

#include "base/quoted.h"
#include "options/name_list.h"

namespace kivo_3_3 {

using std::string;

// A name that the result has stored, with its option.
struct ActionRules::Stored {
  const OptionDescription* option;  // null if no option of this parser has the name
  bool isGiven;                     // false if the result has only a default
};

// What collect() finds among the stored names.
struct ActionRules::Used {
  ActionSet actions;
  const OptionDescription* firstAction = nullptr;
  bool otherOptions = false;
};

namespace {

[[gnu::cold]] string onlyOneActionPossible(const OptionDescription& current,
                                           const OptionDescription& first) {
  return joined("Action '-", current.firstName(), "' and action '-", first.firstName(),
                "' were defined, but only one action possible.");
}

[[gnu::cold]] string doesNotAccept(const OptionDescription& action,
                                   const OptionDescription& modifier) {
  return joined("Action '-", action.firstName(), "' doesn't accept option '-", modifier.firstName(),
                "'");
}

}  // namespace

int ActionRules::check(const StoredOptions& options, string& error) const {
  const std::vector<Stored> stored = lookUp(options);
  Used used;
  const int collected = collect(stored, used, error);
  if (collected != status::success)
    return collected;
  if (used.firstAction != nullptr)
    return checkModifiers(stored, *used.firstAction, error);
  if (used.otherOptions && m_declarations.summary().hasActions()) {
    error = "No action defined.";
    return status::usageError;
  }
  return status::success;
}

// The stored names, sorted.
std::vector<ActionRules::Stored> ActionRules::lookUp(const StoredOptions& options) const {
  std::vector<Stored> stored;
  for (const std::string_view name : options.names()) {
    const auto index = m_declarations.names().find(name);
    stored.push_back(
        {index ? &m_declarations.options()[*index] : nullptr, options.find(name).has_value()});
  }
  return stored;
}

int ActionRules::collect(const std::vector<Stored>& stored, Used& used, string& error) const {
  for (const Stored& entry : stored) {
    const OptionDescription* const option = entry.option;
    if (option == nullptr)
      return notFound;
    if (!option->isAction()) {
      used.otherOptions = true;
      continue;
    }
    used.actions.insert(string(option->firstName()));
    if (used.firstAction == nullptr)
      used.firstAction = option;
    if (option == used.firstAction || assertActionsCanBeUsedSimultaneously(used.actions))
      continue;
    error = onlyOneActionPossible(*option, *used.firstAction);
    return status::usageError;
  }
  return status::success;
}

// A modifier of which only the default is stored goes with every action.
int ActionRules::checkModifiers(const std::vector<Stored>& stored, const OptionDescription& action,
                                string& error) {
  for (const Stored& entry : stored) {
    const OptionDescription& option = *entry.option;
    const bool isGivenModifier = !option.isAction() && !option.m_tags.empty() && entry.isGiven;
    if (isGivenModifier && !isIntersected(action.m_tags, option.m_tags)) {
      error = doesNotAccept(action, option);
      return status::usageError;
    }
  }
  return status::success;
}

bool ActionRules::assertActionsCanBeUsedSimultaneously(const ActionSet& usedActions) const {
  return std::any_of(m_groups.begin(), m_groups.end(), [&](const ActionSet& group) {
    return std::includes(group.begin(), group.end(), usedActions.begin(), usedActions.end());
  });
}

}  // namespace kivo_3_3
