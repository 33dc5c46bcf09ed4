#pragma once

#include "tool/tool_data.h"

namespace kivo_3_3::tool_glue {

/// Calls the function of an action or a command. What it throws passes through.
int work(ToolData& tool, const OwnedCallable& function, Tool& handle);

/// A command while its function runs.
class RunningCommand {
 public:
  RunningCommand(ToolData& tool, const Command& command);
  RunningCommand(const RunningCommand&) = delete;
  RunningCommand& operator=(const RunningCommand&) = delete;
  ~RunningCommand();

  /// Calls the function and returns its status.
  int run();
  /// Calls the function for its declarations alone. Throws std::bad_alloc too.
  void declare();

  ToolData data;

 private:
  Tool m_handle;
};

}  // namespace kivo_3_3::tool_glue
