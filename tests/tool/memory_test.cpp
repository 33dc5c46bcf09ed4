#include <kivo/tool.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "allocation/failing_memory.h"

// Memory runs out while a tool is declared and parses.

namespace kivo_3_3 {
namespace {

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

TEST(ToolMemory, IsMissedAtTheParseIfDeclaringRunsOutOfIt) {
  testing::failEachAllocation<Scene>(declare, [](Scene& scene) {
    const std::optional<int> status = scene.tool->parse({"--tone", "cold"});
    EXPECT_EQ(3, status.value_or(3));
    EXPECT_EQ(status ? "warm" : "cold", scene.tone);
  });
}

}  // namespace
}  // namespace kivo_3_3
