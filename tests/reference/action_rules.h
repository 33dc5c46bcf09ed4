#pragma once

// Phase two of a parse: checks which actions and modifiers may be given together.

#include <set>
#include <string>
#include <vector>

#include "reference/result.h"

namespace kivo_3_3::reference {

// Each set lists actions that may be given together, by their first names. Other names of an action
// never match.
using ActionGroups = std::vector<std::set<std::string>>;

// Checks the stored actions and modifiers, in the order of their names. A default counts as stored,
// except that a modifier with only a default is accepted with every action. Returns a status. A
// stored name that is not declared ends the check with 1 and without a message.
int checkActions(const StoredOptions& stored, const Options& options, const ActionGroups& groups,
                 std::string& error);

bool isIntersected(const std::set<std::string>& first, const std::set<std::string>& second);

}  // namespace kivo_3_3::reference
