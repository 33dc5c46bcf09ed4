#include <string>
#include <vector>

#include "allocation/allocation_limit.h"
#include "allocation/failing_memory.h"
#include "tried.h"

// What happens when memory runs out while a tool declares and parses.

namespace kivo_3_3 {
namespace {

using testing::AllocationLimit;
using testing::Failing;

struct Variables {
  int number = 1;
  int count = 0;
  std::string text = "default";
  std::string tone = "cold";
  std::vector<std::string> words = {"default"};
  std::vector<int> numbers;
};

// Declares and parses. The status of the action is -1.
int run(Variables& variables) {
  Tool tool("tool", "Tries a tool.", "1.0");
  tool.output([](const char*, bool) {});
  tool.option("number,n", variables.number, "").range(1, 9).check([](int) { return ""; });
  tool.option("text", variables.text, "").deprecated("use an option that is not deprecated");
  tool.option("tone", variables.tone, "").choices({"warm", "cold"});
  tool.option("words", variables.words, "").split(',');
  tool.count("v", variables.count, "");
  tool.rest("numbers", variables.numbers, "");
  tool.action("go", "", [] { return -1; });
  const char* const words[] = {
      "tool",     "--go", "-n", "3", "--text=", "--words=a,a text that is long",
      "--tone=w", "-v",   "7",  "8"};
  return tool.parse(10, words).value_or(0);
}

class ToolMemory : public ::testing::TestWithParam<Failing> {};

TEST_P(ToolMemory, ThatRunsOutEndsWithStatus3AndChangesNoVariable) {
  for (long allowed = 0;; ++allowed) {
    SCOPED_TRACE(allowed);
    Variables variables;
    int status = 0;
    bool isReached = false;
    {
      const AllocationLimit limit(allowed, GetParam());
      status = run(variables);
      isReached = limit.reached();
    }
    const bool isDone = status == -1;
    EXPECT_EQ(isDone ? -1 : 3, status);
    EXPECT_EQ(isDone ? 3 : 1, variables.number);
    EXPECT_EQ(isDone ? 1 : 0, variables.count);
    EXPECT_EQ(isDone ? "" : "default", variables.text);
    EXPECT_EQ(isDone ? "warm" : "cold", variables.tone);
    EXPECT_EQ(isDone ? 2U : 1U, variables.words.size());
    EXPECT_EQ(isDone ? (std::vector<int>{7, 8}) : std::vector<int>(), variables.numbers);
    if (!isReached)
      break;
  }
}

INSTANTIATE_TEST_SUITE_P(Failing, ToolMemory, ::testing::Values(Failing::once, Failing::forEver));

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
      if (!isReached || failing == Failing::forEver) {
        EXPECT_EQ(isReached ? 3 : status, given) << "after " << allowed << " allocations";
      }
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

struct Scene {
  int times = 1;
  std::string tone = "warm";
  int messages = 0;
  std::optional<Tool> tool;
};

void declare(Scene& scene) {
  Tool& tool = scene.tool.emplace("tool", "Tries a tool.", "1.0");
  tool.output([&scene](const char*, bool) { ++scene.messages; });
  tool.option("times,t", scene.times, "How often.").range(1, 9).env("TRIED_TIMES");
  tool.option("tone", scene.tone, "How.")
      .choices({"warm", "cold"})
      .check([&scene](const std::string&) { return scene.times == 1 ? "" : "nothing"; });
  tool.atMostOne({"times", "tone"});
  tool.each(
      "go", [&scene](const char*) { ++scene.times; }, "Go.");
  tool.footer("A text that is too long to be kept without memory.");
}

TEST(ToolWithoutMemory, IsMissedAtTheParseIfDeclaringRunsOutOfIt) {
  testing::failEachAllocation<Scene>(declare, [](Scene& scene) {
    const std::optional<int> status = scene.tool->parse({"--tone", "cold"});
    EXPECT_EQ(3, status.value_or(3));
    EXPECT_EQ(status ? "warm" : "cold", scene.tone);
  });
}

TEST(ToolWithoutMemory, EndsWithThreeEvenIfItCannotBeTold) {
  Tool tool("tool", "Tries a tool.");
  tool.output([](const char*, bool) { throw std::bad_alloc(); });
  tool.each(
      "say", [](const char*) { throw std::bad_alloc(); }, "Say it.");
  const char* const words[] = {"tool", "--say=x"};
  EXPECT_EQ(3, tool.parse(2, words).value_or(-1));
}

TEST(ToolWithoutMemory, ReadsNoListOfArguments) {
  for (const Failing failing : {Failing::once, Failing::forEver}) {
    for (long allowed = 0, status = 0; status != -1; ++allowed) {
      bool given = false;
      Tool tool("tool", "Tries a tool.");
      tool.output([](const char*, bool) {});
      tool.flag("given", given, "");
      const AllocationLimit limit(allowed, failing);
      status = tool.parse({"--given"}).value_or(-1);
      ASSERT_TRUE(status == 3 || status == -1) << allowed;
      EXPECT_EQ(status == -1, given);
    }
  }
}

// The parser of the command line reads the environment too, and may run out of memory there.
TEST(ToolWithoutMemory, ReadsNoEnvironment) {
  setenv("TRIED_TEXT", "a text that is too long to be kept without memory of its own", 1);
  for (long allowed = 0, status = 0; status != -1; ++allowed) {
    std::string text = "default";
    {
      Tool tool("tool", "Tries a tool.");
      tool.output([](const char*, bool) {});
      tool.option("text", text, "").env("TRIED_TEXT");
      const char* const words[] = {"tool"};
      const AllocationLimit limit(allowed, Failing::forEver);
      status = tool.parse(1, words).value_or(-1);
    }
    ASSERT_TRUE(status == 3 || status == -1) << allowed;
    EXPECT_EQ(status == 3, text == "default");
  }
  unsetenv("TRIED_TEXT");
}

}  // namespace
}  // namespace kivo_3_3
