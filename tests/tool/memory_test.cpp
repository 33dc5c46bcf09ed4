#include <string>
#include <vector>

#include "allocation/allocation_limit.h"
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
  std::string tone = "default";
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
    EXPECT_EQ(isDone ? "warm" : "default", variables.tone);
    EXPECT_EQ(isDone ? 2U : 1U, variables.words.size());
    EXPECT_EQ(isDone ? (std::vector<int>{7, 8}) : std::vector<int>(), variables.numbers);
    if (!isReached)
      break;
  }
}

INSTANTIATE_TEST_SUITE_P(Failing, ToolMemory, ::testing::Values(Failing::once, Failing::forEver));

}  // namespace
}  // namespace kivo_3_3
