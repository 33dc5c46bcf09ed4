#pragma once

#include <set>
#include <string>
#include <vector>

#include "options/option_registry.h"
#include "result/stored_options.h"

namespace kivo_3_3 {

// Which actions may be given together, and which modifiers go with the action given.
class ActionRules {
 public:
  // One set of actions, by first name, that may be given together.
  using ActionSet = std::set<std::string>;

  ActionRules(RegisteredOptionStorage& declarations, const std::vector<ActionSet>& groups)
      : m_declarations(declarations), m_groups(groups) {}

  // Checks what a result has stored, defaults included, against the rules.
  int check(const StoredOptions& options, std::string& error) const;

  // Whether one group has all of these actions.
  bool assertActionsCanBeUsedSimultaneously(const ActionSet& usedActions) const;

 private:
  struct Stored;
  struct Used;

  std::vector<Stored> lookUp(const StoredOptions& options) const;
  int collect(const std::vector<Stored>& stored, Used& used, std::string& error) const;
  static int checkModifiers(const std::vector<Stored>& stored, const OptionDescription& action,
                            std::string& error);

  RegisteredOptionStorage& m_declarations;
  const std::vector<ActionSet>& m_groups;
};

}  // namespace kivo_3_3
