#pragma once

#include <set>
#include <string>
#include <vector>

#include "options/option_registry.h"
#include "result/result_cursor.h"

namespace kivo_3_3 {

// Which actions may be given together, and which modifiers go with the action given.
class ActionRules {
 public:
  // One set of actions, by first name, that may be given together.
  using Group = std::set<std::string>;

  ActionRules(RegisteredOptionStorage& declarations, const std::vector<Group>& groups)
      : m_declarations(declarations), m_groups(groups) {}

  // Holds what a result has stored, defaults included, against the rules.
  int check(const OptionMap& stored, std::string& error) const;

  // Whether one group has all of these actions.
  bool assertActionsCanBeUsedSimultaneously(const Group& usedActions) const;

 private:
  struct Used;

  int collect(const OptionMap& stored, Used& used, std::string& error) const;
  int checkModifiers(const OptionMap& stored, const OptionDescription& action,
                     std::string& error) const;
  const OptionDescription* find(const std::string& name) const;

  RegisteredOptionStorage& m_declarations;
  const std::vector<Group>& m_groups;
};

}  // namespace kivo_3_3
