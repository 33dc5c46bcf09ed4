#include "tool/running_command.h"

#include <new>

namespace kivo_3_3::tool_glue {

int work(ToolData& tool, const OwnedCallable& function, Tool& handle) {
  Text unused;
  bool isLast = false;
  tool.isWorking = true;
  const int status = function(&handle, &isLast, unused);
  tool.isWorking = false;
  return status;
}

RunningCommand::RunningCommand(ToolData& tool, const Command& command)
    : m_handle(ToolData::handleOf(data)) {
  data.name = tool.name;
  data.parent = &tool;
  data.command = &command;
  data.handle = &m_handle;
}

RunningCommand::~RunningCommand() { ToolData::release(m_handle); }

int RunningCommand::run() {
  const int status = work(*data.parent, data.command->function, m_handle);
  if (!data.isParsed && !data.isOutOfMemory)
    reportMistake("the command '" + data.command->words + "' returned without parse()");
  return status;
}

void RunningCommand::declare() {
  data.isDescribing = true;
  run();
  if (data.isOutOfMemory)
    throw std::bad_alloc();
}

}  // namespace kivo_3_3::tool_glue
