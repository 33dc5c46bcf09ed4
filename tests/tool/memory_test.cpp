#include <gtest/gtest.h>
#include <kivo/tool.h>

#include <string>
#include <vector>

#include "allocation/allocation_limit.h"

// Memory that runs out gives status 3, at whichever allocation.

namespace kivo_3_3 {
namespace {

using testing::AllocationLimit;
using testing::Failing;

int show(Tool& tool) {
  std::string name;
  tool.option("name,n", name, "Which.");
  tool.exactlyOne({"name", "verbose"});
  return tool.parse().value_or(7);
}

// A tool that works without memory of its own.
int runCommands(const std::vector<const char*>& arguments) {
  bool verbose = false;
  int level = 5;
  Tool tool("archive", "Packs and unpacks all files of a folder.", "2.1");
  tool.output([](const char*, bool) {});
  tool.option("verbose,v", verbose, "Tell what is done.");
  tool.option("level,l", level, "How hard to try.").range(1, 9).placeholder("NUMBER");
  tool.command("show", "Show all.", show);
  tool.command("show one", "Show one.", [](Tool& inner) { return inner.parse().value_or(8); });
  return tool.parse(static_cast<int>(arguments.size()), arguments.data()).value_or(9);
}

int runActions(const std::vector<const char*>& arguments) {
  bool all = false;
  Tool tool("store", "Keeps what it gets, in a folder.", "2.1");
  tool.output([](const char*, bool) {});
  tool.action("list", "List all.", [] { return 7; });
  tool.flag("all", all, "Even more.").only("list");
  return tool.parse(static_cast<int>(arguments.size()), arguments.data()).value_or(9);
}

void expectThreeWithoutMemory(int (*run)(const std::vector<const char*>&), int status,
                              const std::vector<const char*>& arguments) {
  for (const Failing failing : {Failing::once, Failing::forEver}) {
    bool isReached = true;
    for (long allowed = 0; isReached; ++allowed) {
      int given = 0;
      {
        const AllocationLimit limit(allowed, failing);
        given = run(arguments);
        isReached = limit.reached();
      }
      // If memory is there again, a suggestion may be missing or a handler not be notified.
      if (!isReached || failing == Failing::forEver)
        EXPECT_EQ(isReached ? 3 : status, given) << "after " << allowed << " allocations";
    }
  }
}

TEST(ToolWithoutMemory, RunsNoCommand) {
  expectThreeWithoutMemory(runCommands, 7, {"tool", "-l", "3", "show", "--name", "one"});
}

TEST(ToolWithoutMemory, RefusesNoCommand) {
  expectThreeWithoutMemory(runCommands, 2, {"tool", "--verbose", "shwo"});
}

TEST(ToolWithoutMemory, PrintsNoHelp) {
  expectThreeWithoutMemory(runCommands, 0, {"tool", "show", "--help"});
}

TEST(ToolWithoutMemory, DescribesNothing) {
  expectThreeWithoutMemory(runCommands, 0, {"tool", "kivooption=kivodescribe=json"});
}

TEST(ToolWithoutMemory, RunsNoAction) {
  expectThreeWithoutMemory(runActions, 7, {"tool", "--list", "--all"});
}

TEST(ToolWithoutMemory, HasNoHelpAsText) {
  for (long allowed = 0; allowed < 40; ++allowed) {
    Tool tool("store", "Keeps what it gets, in a folder.", "2.1");
    const AllocationLimit limit(allowed, Failing::forEver);
    EXPECT_EQ("", tool.help());
    EXPECT_EQ(nullptr, tool.parser());
  }
}

}  // namespace
}  // namespace kivo_3_3
