#pragma once

// The description of a tool. If it differed from what a parse accepts, completion would offer what
// the tool then refuses, and the manual page would be wrong.

#include <kivo/describe.h>

#include <set>
#include <string>
#include <vector>

#include "describe/annotations.h"
#include "options/option_registry.h"

namespace kivo_3_3 {

// What one parser was told.
struct Declarations {
  const OptionList& options;
  const RegisteredOptionStorage::Groups& sections;
  const std::vector<std::set<std::string>>& together;  // the actions that may be given together
  const Annotations& annotations;
  int flags;
};

struct DescribedCommand {
  const char* words;    // null counts as empty
  const char* summary;  // null counts as empty
  Declarations declarations;
};

// The description as JSON, as kivo/describe.h documents it. Raises std::bad_alloc.
[[gnu::cold]] std::string writeDescription(const ToolInfo& tool, const Declarations& declarations,
                                           const std::vector<DescribedCommand>& commands);

}  // namespace kivo_3_3
