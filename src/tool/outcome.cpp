#include "tool/outcome.h"

#include <kivo/status.h>

#include <new>

#include "tool/console.h"

namespace kivo_3_3::tool_glue {
namespace {

constexpr int notWritten = 1;

}  // namespace

int printed(const ToolData& tool, const std::string& text) {
  return print(tool, text, false) ? status::success : notWritten;
}

void printError(const ToolData& tool, const std::string& reason) {
  const std::string& name = tool.root().name;
  print(tool, name + ": " + reason + "\nTry '" + tool.calledName() + " --help'.\n", true);
}

int refused(const ToolData& tool, const std::string& reason) {
  printError(tool, reason);
  return tool.root().usageStatus;
}

int statusOf(const ToolData& tool, int parserStatus, const std::string& reason) {
  if (parserStatus == status::exceptionCaught)
    throw std::bad_alloc();
  if (parserStatus != status::unidentifiedProblem)
    return refused(tool, reason);
  printError(tool, reason.empty() ? "The command line cannot be read" : reason);
  return parserStatus;
}

int statusOfThrown(const ToolData& tool, const std::exception_ptr& thrown) {
  std::string reason;
  try {
    std::rethrow_exception(thrown);
  } catch (const std::exception& problem) {
    reason = problem.what();
  } catch (...) {
    reason.clear();
  }
  return statusOf(tool, status::unidentifiedProblem, reason);
}

}  // namespace kivo_3_3::tool_glue
