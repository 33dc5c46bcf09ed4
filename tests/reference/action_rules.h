#pragma once

// What may be given together: phase two of a parse.

#include <set>
#include <string>
#include <vector>

#include "reference/result.h"

namespace kivo_3_3::reference {

// Each set holds the first names of actions that may be given together.
using ActionGroups = std::vector<std::set<std::string>>;

// Checks the actions and modifiers that are stored, in the order of their names. Defaults
// count as stored, but a modifier that is known only through its default goes with every
// action. Returns a status; a name that no declaration has ends the check with 1 and without
// a message.
int checkActions(const StoredOptions& stored, const Options& options, const ActionGroups& groups,
                 std::string& error);

bool isIntersected(const std::set<std::string>& first, const std::set<std::string>& second);

}  // namespace kivo_3_3::reference
