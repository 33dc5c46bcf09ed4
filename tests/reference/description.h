#pragma once

// What a tool says about itself, as JSON. Numbers follow the classic locale.

#include <kivo/describe.h>

#include <optional>
#include <string>
#include <vector>

#include "reference/action_rules.h"
#include "reference/registry.h"

namespace kivo_3_3::reference {

// A fact that annotate() has added.
struct Annotation {
  std::optional<std::size_t> option;  // its index; none for the tool
  std::string key;
  std::string text;
};
using Annotations = std::vector<Annotation>;  // in the order of the calls

// What one parser knows.
struct Declarations {
  const Options& options;
  const std::vector<Group>& sections;
  const ActionGroups& together;
  const Annotations& annotations;
  int flags;
};

// The whole description; `declarations` and `commands` are texts made by the functions below.
std::string descriptionAsJson(const ToolInfo& tool, const std::string& declarations,
                              const std::vector<std::string>& commands);

// One item of the list of commands.
std::string commandAsJson(const CommandInfo& command, const std::string& declarations);

// The fields from "sections" on, of a tool or of a command.
std::string fieldsAsJson(const Declarations& declarations);

}  // namespace kivo_3_3::reference
