#include "reference/action_rules.h"

#include <kivo/status.h>

#include <algorithm>

#include "reference/registry.h"

namespace kivo_3_3::reference {

namespace {

constexpr int notDeclared = 1;

bool canBeUsedTogether(const std::set<std::string>& usedActions, const ActionGroups& groups) {
  return std::any_of(groups.begin(), groups.end(), [&](const std::set<std::string>& group) {
    return std::includes(group.begin(), group.end(), usedActions.begin(), usedActions.end());
  });
}

// The outcome of findActions().
struct Found {
  const Option* action = nullptr;  // the first stored action, by name
  bool hasOtherOptions = false;
};

int findActions(const StoredOptions& stored, const Options& options, const ActionGroups& groups,
                Found& found, std::string& error) {
  std::set<std::string> usedActions;
  for (const auto& [name, data] : stored) {
    const auto index = findOption(name, options);
    if (!index)
      return notDeclared;
    const Option& option = options[*index];
    if (!option.isAction) {
      found.hasOtherOptions = true;
      continue;
    }
    usedActions.insert(option.firstName());
    if (found.action == nullptr)
      found.action = &option;
    if (found.action != &option && !canBeUsedTogether(usedActions, groups)) {
      error = "Action '-" + option.firstName() + "' and action '-" + found.action->firstName() +
              "' were defined, but only one action possible.";
      return status::usageError;
    }
  }
  return status::success;
}

int checkModifiers(const StoredOptions& stored, const Options& options, const Option& action,
                   std::string& error) {
  for (const auto& [name, data] : stored) {
    const auto index = findOption(name, options);
    if (!index)
      return notDeclared;
    const Option& option = options[*index];
    const bool isModifier = !option.isAction && !option.tags.empty();
    if (isModifier && !isIntersected(action.tags, option.tags) && !data.positions.empty()) {
      error = "Action '-" + action.firstName() + "' doesn't accept option '-" + option.firstName() +
              "'";
      return status::usageError;
    }
  }
  return status::success;
}

}  // namespace

bool isIntersected(const std::set<std::string>& first, const std::set<std::string>& second) {
  return std::any_of(first.begin(), first.end(),
                     [&](const std::string& text) { return second.count(text) != 0; });
}

int checkActions(const StoredOptions& stored, const Options& options, const ActionGroups& groups,
                 std::string& error) {
  Found found;
  if (const int outcome = findActions(stored, options, groups, found, error))
    return outcome;
  if (found.action != nullptr)
    return checkModifiers(stored, options, *found.action, error);
  const bool hasActions = std::any_of(options.begin(), options.end(),
                                      [](const Option& option) { return option.isAction; });
  if (hasActions && found.hasOtherOptions) {
    error = "No action defined.";
    return status::usageError;
  }
  return status::success;
}

}  // namespace kivo_3_3::reference
