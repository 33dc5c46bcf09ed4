#include <stdexcept>
#include <string>

#include "tried.h"

// What is printed for a wrong command line, and the status.

namespace kivo_3_3 {
namespace {

TEST(ToolErrors, AnErrorNamesTheToolAndItsHelp) {
  Tried tool;
  int times = 1;
  tool.option("times", times, "Times.").required();
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("tool: Option '--times' is required\nTry 'tool --help'.\n", tool.err);
  EXPECT_EQ("", tool.out);
}

TEST(ToolErrors, WhatIsRequiredIsNamedAsItIsTyped) {
  int number = 1;
  Tried tool;
  tool.operand("times", number, "").required();
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("tool: Operand 'times' is required\nTry 'tool --help'.\n", tool.err);
  Tried other;
  other.option("t,times", number, "").required();
  EXPECT_EQ(2, other.run({}));
  EXPECT_EQ("tool: Option '-t' is required\nTry 'tool --help'.\n", other.err);
}

TEST(ToolErrors, ADeprecatedOptionIsToldOfOnceAsItIsTyped) {
  bool flag = false;
  int number = 1;
  Tried tool;
  tool.flag("old,o", flag, "").deprecated("use --new");
  tool.option("n,number", number, "").deprecated("count yourself");
  EXPECT_EQ(-1, tool.run({"-o", "--number=3", "--old"}));
  EXPECT_EQ(
      "tool: Option '--old' is deprecated: use --new\n"
      "tool: Option '-n' is deprecated: count yourself\n",
      tool.err);
}

TEST(ToolErrors, TheStatusOfAWrongCommandLineCanBeChanged) {
  Tried tool;
  tool.usageStatus(64);
  EXPECT_EQ(64, tool.run({"--nothing"}));
  EXPECT_EQ(64, tool.fail("No."));
  EXPECT_EQ("tool: Unknown option: --nothing\nTry 'tool --help'.\ntool: No.\nTry 'tool --help'.\n",
            tool.err);
}

TEST(ToolErrors, ACommandCanChangeTheStatusAndTheOutput) {
  Tried tool;
  std::string told;
  tool.command("go", "Go.", [&](Tool& command) {
    command.usageStatus(65);
    command.output([&](const char* text, bool) { told += text; });
    return command.parse().value_or(0);
  });
  EXPECT_EQ(65, tool.run({"go", "--nothing"}));
  EXPECT_EQ("tool: Unknown option: --nothing\nTry 'tool go --help'.\n", told);
  EXPECT_EQ("", tool.err);
}

TEST(ToolErrors, AStrayWordIsAnUnexpectedArgument) {
  Tried tool;
  EXPECT_EQ(2, tool.run({"word"}));
  EXPECT_EQ("tool: Unexpected argument: word\nTry 'tool --help'.\n", tool.err);
}

TEST(ToolErrors, AFunctionThatThrowsEndsWithFour) {
  Tried tool;
  int value = 0;
  tool.option("value", value, "Value.").check([](int) -> const char* {
    throw std::runtime_error("Broken");
  });
  EXPECT_EQ(4, tool.run({"--value=1"}));
  EXPECT_EQ("tool: Broken\nTry 'tool --help'.\n", tool.err);
}

TEST(ToolErrors, AFunctionMayThrowAnything) {
  Tried tool;
  int value = 0;
  tool.option("value", value, "Value.").check([](int) -> const char* { throw 1; });
  EXPECT_EQ(4, tool.run({"--value=1"}));
  EXPECT_EQ("tool: The command line cannot be read\nTry 'tool --help'.\n", tool.err);
}

TEST(ToolErrors, WhatAnActionThrowsPassesThrough) {
  Tried tool;
  tool.action("go", "Go.", []() -> int { throw std::runtime_error("Broken"); });
  EXPECT_THROW(tool.run({"--go"}), std::runtime_error);
  EXPECT_EQ("", tool.err);
}

TEST(ToolErrors, GroupsNameTheirOptions) {
  Tried tool;
  bool a = false, b = false;
  tool.flag("aa", a, "A.");
  tool.flag("bb", b, "B.");
  tool.exactlyOne({"aa", "bb"});
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("tool: One of these is required: --aa, --bb\nTry 'tool --help'.\n", tool.err);
}

TEST(ToolErrors, ADeprecatedOperandIsCalledOne) {
  Tried tool;
  std::string file;
  tool.operand("file", file, "A file.").deprecated("use --file");
  EXPECT_EQ(-1, tool.run({"x"}));
  EXPECT_EQ("tool: Operand 'file' is deprecated: use --file\n", tool.err);
}

}  // namespace
}  // namespace kivo_3_3
