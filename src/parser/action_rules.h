#pragma once

// The rules for options that are given together. If a rule were skipped, a tool would run two
// actions at once, or ignore a modifier that its user typed.

#include <set>
#include <string>
#include <vector>

#include "options/option_registry.h"
#include "result/stored_options.h"

namespace kivo_3_3 {

// Checks that the given actions may be given together, and that the given modifiers go with the
// action.
class ActionRules {
 public:
  // Actions that may be given together, by their first names.
  using ActionSet = std::set<std::string>;

  ActionRules(RegisteredOptionStorage& declarations, const std::vector<ActionSet>& groups)
      : m_declarations(declarations), m_groups(groups) {}

  // Checks everything that a result has stored, defaults included. Returns a status, with the
  // reason in `error` if a rule is broken. Returns 1 and leaves `error` unchanged if the result has
  // an option of another parser.
  int check(const StoredOptions& options, std::string& error) const;

  // Whether one of the groups has all of these actions. Only tests call this.
  bool assertActionsCanBeUsedSimultaneously(const ActionSet& usedActions) const;

 private:
  struct Stored;
  struct Used;
  class FittingGroups;

  std::vector<Stored> lookUp(const StoredOptions& options) const;
  int collect(const std::vector<Stored>& stored, Used& used, std::string& error) const;
  static int checkModifiers(const std::vector<Stored>& stored, const OptionDescription& action,
                            std::string& error);

  RegisteredOptionStorage& m_declarations;
  const std::vector<ActionSet>& m_groups;
};

}  // namespace kivo_3_3
