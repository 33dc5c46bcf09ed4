#pragma once

#include <string>
#include <vector>

#include "tool/scope.h"

// Finds the command on a command line: its words are operands, before which options of the tool may
// stand.

namespace kivo_3_3::tool_glue {

struct FoundCommand {
  const Command* command = nullptr;         // null if there is none
  const Declaration* asked = nullptr;       // help or version, before a command was complete
  std::string words;                        // those that were typed, in full
  std::string failure;                      // why there is no command
  std::vector<const char*> remainingWords;  // all but those of the command
  EarlyOptions early;                       // among these
};

/// Calls the function of a command for its declarations if an option follows its words and the
/// command is the beginning of longer ones: a next word may be the value of that option.
FoundCommand findCommand(ToolData& tool, const Scope& scope, const std::vector<const char*>& words);

}  // namespace kivo_3_3::tool_glue
