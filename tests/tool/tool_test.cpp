#include <string>
#include <vector>

#include "tried.h"

// A tool as its author writes it: declarations, one call, variables.

namespace kivo_3_3 {
namespace {

TEST(Tool, GivesVariablesTheirValues) {
  unsigned int times = 1;
  std::string tone = "friendly";
  std::vector<std::string> names;
  Tried tool("greet");
  tool.option("times,t", times, "How often to greet.");
  tool.option("tone", tone, "How to greet.").choices({"friendly", "formal"});
  tool.rest("name", names, "Whom to greet.");
  EXPECT_EQ(-1, tool.run({"-t", "3", "Ada", "--tone=form", "Grace"}));
  EXPECT_EQ(3U, times);
  EXPECT_EQ("formal", tone);
  EXPECT_EQ((std::vector<std::string>{"Ada", "Grace"}), names);
  EXPECT_EQ("", tool.out + tool.err);
}

}  // namespace
}  // namespace kivo_3_3
