#include "parser/action_rules.h"

#include <kivo/option_lookup.h>
#include <kivo/status.h>

#include <algorithm>

#include "options/name_list.h"

namespace kivo_3_3 {

using std::string;

// What was met among the stored options.
struct ActionRules::Used {
  Group actions;
  const OptionDescription* firstAction = nullptr;
  bool otherOptions = false;
};

namespace {

string onlyOneActionPossible(const OptionDescription& current, const OptionDescription& first) {
  return "Action '-" + current.firstName() + "' and action '-" + first.firstName() +
         "' were defined, but only one action possible.";
}

string doesNotAccept(const OptionDescription& action, const OptionDescription& modifier) {
  return "Action '-" + action.firstName() + "' doesn't accept option '-" + modifier.firstName() +
         "'";
}

}  // namespace

int ActionRules::check(const OptionMap& stored, string& error) const {
  Used used;
  const int collected = collect(stored, used, error);
  if (collected != status::success)
    return collected;
  if (used.firstAction != nullptr)
    return checkModifiers(stored, *used.firstAction, error);

  const std::vector<OptionDescription>& declared = m_declarations.options();
  const auto isAction = [](const OptionDescription& option) { return option.isAction(); };
  if (used.otherOptions && std::any_of(declared.begin(), declared.end(), isAction)) {
    error = "No action defined.";
    return status::usageError;
  }
  return status::success;
}

int ActionRules::collect(const OptionMap& stored, Used& used, string& error) const {
  for (const auto& entry : stored) {
    const OptionDescription* option = find(entry.first);
    if (option == nullptr)
      return notFound;
    if (!option->isAction()) {
      used.otherOptions = true;
      continue;
    }
    used.actions.insert(option->firstName());
    if (used.firstAction == nullptr)
      used.firstAction = option;
    if (option == used.firstAction || assertActionsCanBeUsedSimultaneously(used.actions))
      continue;
    error = onlyOneActionPossible(*option, *used.firstAction);
    return status::usageError;
  }
  return status::success;
}

// A modifier that is there only through its default goes with every action.
int ActionRules::checkModifiers(const OptionMap& stored, const OptionDescription& action,
                                string& error) const {
  for (const auto& entry : stored) {
    const OptionDescription* option = find(entry.first);
    if (option == nullptr)
      return notFound;
    const bool isGivenModifier =
        !option->isAction() && !option->m_tags.empty() && !entry.second.positions.empty();
    if (isGivenModifier && !isIntersected(action.m_tags, option->m_tags)) {
      error = doesNotAccept(action, *option);
      return status::usageError;
    }
  }
  return status::success;
}

bool ActionRules::assertActionsCanBeUsedSimultaneously(const Group& usedActions) const {
  return std::any_of(m_groups.begin(), m_groups.end(), [&](const Group& group) {
    return std::includes(group.begin(), group.end(), usedActions.begin(), usedActions.end());
  });
}

const OptionDescription* ActionRules::find(const string& name) const {
  const auto index = m_declarations.index().find(name, m_declarations.options());
  return index ? &m_declarations.options()[*index] : nullptr;
}

}  // namespace kivo_3_3
