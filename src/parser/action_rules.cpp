// Checks the stored options in the order of their names, so one set of options always has the same
// message, in whatever order the options were given.

#include "parser/action_rules.h"

#include <kivo/option_lookup.h>
#include <kivo/status.h>

#include <algorithm>
#include <optional>

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

// The groups that have all actions added so far. Each action is looked up only in the groups that
// had the ones before it: thousands of actions may be given together.
class ActionRules::FittingGroups {
 public:
  explicit FittingGroups(const std::vector<ActionSet>& groups) {
    for (const ActionSet& group : groups)
      m_groups.push_back(&group);
  }

  [[gnu::cold]] void add(const string& action) {
    std::size_t fitting = 0;
    for (const ActionSet* group : m_groups)
      if (group->count(action) != 0)
        m_groups[fitting++] = group;
    m_groups.resize(fitting);
  }
  bool areAny() const { return !m_groups.empty(); }

 private:
  std::vector<const ActionSet*> m_groups;
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
  std::optional<FittingGroups> groups;  // if there is more than one action
  for (const Stored& entry : stored) {
    const OptionDescription* const option = entry.option;
    if (option == nullptr)
      return notFound;
    if (!option->isAction()) {
      used.otherOptions = true;
      continue;
    }
    if (used.firstAction == nullptr)
      used.firstAction = option;
    const auto [action, isNew] = used.actions.emplace(option->firstName());
    if (option == used.firstAction)
      continue;
    if (!groups)
      groups.emplace(m_groups).add(string(used.firstAction->firstName()));
    if (isNew)
      groups->add(*action);
    if (groups->areAny())
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
    const bool isGivenModifier = !option.isAction() && !option.tags().empty() && entry.isGiven;
    if (isGivenModifier && !isIntersected(action.tags(), option.tags())) {
      error = doesNotAccept(action, option);
      return status::usageError;
    }
  }
  return status::success;
}

bool ActionRules::assertActionsCanBeUsedSimultaneously(const ActionSet& usedActions) const {
  FittingGroups groups(m_groups);
  for (const string& action : usedActions)
    groups.add(action);
  return groups.areAny();
}

}  // namespace kivo_3_3
