#include <kivo/parser.h>

#include <new>
#include <stdexcept>
#include <string>

#include "tried.h"

// Actions are given like options and call a function.

namespace kivo_3_3 {
namespace {

class ToolActions : public ::testing::Test {
 protected:
  ToolActions() {
    tool.action("list,l", "List all.", [this] {
      done += "list;";
      return 0;
    });
    tool.action("remove", "Remove one.", [this](Tool& given) {
      done += &given == &tool ? "remove;" : "another tool;";
      return 5;
    });
  }

  Tried tool{"store"};
  std::string done;
};

TEST_F(ToolActions, GiveTheStatusOfTheirFunction) {
  EXPECT_EQ(5, tool.run({"--remove"}));
  EXPECT_EQ("remove;", done);
  EXPECT_EQ("", tool.out + tool.err);
}

TEST_F(ToolActions, MayBeCutShort) {
  EXPECT_EQ(0, tool.run({"--li"}));
  EXPECT_EQ("list;", done);
}

TEST_F(ToolActions, MayBeLeftOut) {
  EXPECT_EQ(-1, tool.run({}));
  EXPECT_EQ("", done);
}

TEST_F(ToolActions, AreCalledOnceIfGivenTwice) {
  EXPECT_EQ(0, tool.run({"--list", "-l"}));
  EXPECT_EQ("list;", done);
}

TEST_F(ToolActions, DoNotGoTogether) {
  EXPECT_EQ(2, tool.run({"--list", "--remove"}));
  EXPECT_EQ("", done);
  EXPECT_NE("", tool.err);
}

TEST_F(ToolActions, ThatGoTogetherAreCalledInTheirOrder) {
  ASSERT_TRUE(tool.parser()->allowSimultaneousActions({"list", "remove"}));
  EXPECT_EQ(5, tool.run({"--list", "--remove"}));
  EXPECT_EQ("list;remove;", done);
}

TEST_F(ToolActions, AreNotCalledAfterOneThatFailed) {
  ASSERT_TRUE(tool.parser()->allowSimultaneousActions({"list", "remove"}));
  EXPECT_EQ(5, tool.run({"--remove", "--list"}));
  EXPECT_EQ("remove;", done);
}

TEST_F(ToolActions, AreNotCalledAfterAnError) {
  tool.usageStatus(0);
  EXPECT_EQ(0, tool.run({"--list", "stray"}));
  EXPECT_EQ("store: Unexpected argument: stray\nTry 'store --help'.\n", tool.err);
  EXPECT_EQ("", done);
}

TEST_F(ToolActions, AreCalledWithTheVariablesSet) {
  int level = 1, seen = 0;
  tool.option("level", level, "How much.").only("seen");
  tool.action("seen", "Look.", [&] {
    seen = level;
    return 0;
  });
  EXPECT_EQ(0, tool.run({"--seen", "--level=3"}));
  EXPECT_EQ(3, seen);
}

TEST_F(ToolActions, RefuseOptionsOfOthers) {
  int level = 1;
  tool.option("level", level, "How much.").only("remove");
  EXPECT_EQ(2, tool.run({"--list", "--level=3"}));
  EXPECT_EQ("", done);
  EXPECT_EQ(1, level);
}

TEST_F(ToolActions, RequireOptionsOfTheirOwnAlone) {
  int level = 1;
  tool.option("level", level, "How much.").only("remove").required();
  EXPECT_EQ(0, tool.run({"--list"}));
  EXPECT_EQ("list;", done);
}

TEST_F(ToolActions, MissTheirRequiredOptions) {
  int level = 1;
  tool.option("level", level, "How much.").only("remove,list").required();
  EXPECT_EQ(2, tool.run({"--list"}));
  EXPECT_EQ("store: Option '--level' is required\nTry 'store --help'.\n", tool.err);
}

TEST_F(ToolActions, NeedGroupsOfTheirOwnAlone) {
  bool one = false, two = false;
  tool.flag("one", one, "One.").only("remove");
  tool.flag("two", two, "Two.").only("remove");
  tool.exactlyOne({"one", "two"});
  EXPECT_EQ(0, tool.run({"--list"})) << tool.err;
  EXPECT_EQ("list;", done);
}

TEST_F(ToolActions, MissTheirGroups) {
  bool one = false, two = false;
  tool.flag("one", one, "One.").only("remove");
  tool.flag("two", two, "Two.").only("remove");
  tool.exactlyOne({"one", "two"});
  EXPECT_EQ(2, tool.run({"--remove"}));
  EXPECT_EQ("store: One of these is required: --one, --two\nTry 'store --help'.\n", tool.err);
  EXPECT_EQ("", done);
}

TEST_F(ToolActions, MayThrow) {
  tool.action("fall", "Fall.", []() -> int { throw std::runtime_error("fallen"); });
  EXPECT_THROW(tool.run({"--fall"}), std::runtime_error);
  EXPECT_EQ("", tool.out + tool.err);
}

TEST_F(ToolActions, MayThrowThatMemoryRanOut) {
  tool.action("fall", "Fall.", []() -> int { throw std::bad_alloc(); });
  EXPECT_THROW(tool.run({"--fall"}), std::bad_alloc);
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolActions, GoWithTheHelp) {
  EXPECT_EQ(0, tool.run({"--list", "--help"}));
  EXPECT_EQ("", done);
  EXPECT_EQ(
      "Usage: store [OPTION]...\n"
      "\n"
      "Tries a tool.\n"
      "\n"
      "Actions:\n"
      "  -l, --list    List all.\n"
      "      --remove  Remove one.\n"
      "\n"
      "Options:\n"
      "  -h, --help     Show this help.\n"
      "  -V, --version  Show the version.\n",
      tool.out);
}

TEST_F(ToolActions, AreSuggestedForAMisspeltOne) {
  EXPECT_EQ(2, tool.run({"--lits"}));
  EXPECT_NE(std::string::npos, tool.err.find("Did you mean '--list'?\n")) << tool.err;
}

TEST_F(ToolActions, AreCalledByMain) {
  const char* const words[] = {"store", "--remove", nullptr};
  EXPECT_EQ(5, tool.main(2, words));
  EXPECT_EQ("remove;", done);
}

TEST(ToolGroups, TakeAtMostOne) {
  bool one = false, two = false;
  Tried tool;
  tool.flag("one,o", one, "One.");
  tool.flag("two,t", two, "Two.");
  tool.atMostOne({"one", "t"});
  EXPECT_EQ(2, tool.run({"-o", "--two"}));
  EXPECT_EQ("tool: At most one of these may be given: --one, -t\nTry 'tool --help'.\n", tool.err);
  EXPECT_FALSE(one || two);
}

TEST(ToolGroups, MayBeEmptyIfAtMostOneIsTaken) {
  bool one = false, two = false;
  Tried tool;
  tool.flag("one", one, "One.");
  tool.flag("two", two, "Two.");
  tool.atMostOne({"one", "two"});
  EXPECT_EQ(-1, tool.run({}));
}

TEST(ToolGroups, TakeOneOptionSeveralTimes) {
  int count = 0;
  bool two = false;
  Tried tool;
  tool.count("one,o", count, "One.");
  tool.flag("two", two, "Two.");
  tool.exactlyOne({"one", "o", "two"});
  EXPECT_EQ(-1, tool.run({"-o", "-o"})) << tool.err;
  EXPECT_EQ(2, count);
}

TEST(ToolEachFunction, ThatThrowsEndsTheToolWithFour) {
  Tried tool;
  tool.each(
      "say", [](const char* text) { throw std::runtime_error(text); }, "Say it.");
  EXPECT_EQ(4, tool.run({"--say=too loud"}));
  EXPECT_EQ("tool: too loud\nTry 'tool --help'.\n", tool.err);
}

TEST(ToolEachFunction, ThatThrowsAnythingEndsTheToolWithFour) {
  Tried tool;
  tool.each(
      "say", [](const char*) { throw 1; }, "Say it.");
  EXPECT_EQ(4, tool.run({"--say=x"}));
  EXPECT_EQ("tool: The command line cannot be read\nTry 'tool --help'.\n", tool.err);
}

TEST(ToolEachFunction, ThatRunsOutOfMemoryEndsTheToolWithThree) {
  Tried tool;
  tool.each(
      "say", [](const char*) { throw std::bad_alloc(); }, "Say it.");
  EXPECT_EQ(3, tool.run({"--say=x"}));
  EXPECT_EQ("tool: Memory has run out.\n", tool.err);
}

TEST(ToolActionsAndOperands, GoTogetherAsDeclared) {
  for (const char* const wrong : {"first", "second"}) {
    Tried tool;
    std::string first, second;
    tool.action("pack", "Pack.", [] { return 7; });
    tool.action("list", "List.", [] { return 8; });
    auto one = tool.operand("first", first, "First.");
    auto two = tool.operand("second", second, "Second.");
    (std::string(wrong) == "first" ? one : two).only("pack");
    EXPECT_EQ(2, tool.run({"--list", "x", "y"}));
    EXPECT_EQ("tool: Action '--list' doesn't accept operand '" + std::string(wrong) +
                  "'\nTry 'tool --help'.\n",
              tool.err);
    EXPECT_EQ("", first + second);
  }
}

TEST(ToolActionsAndOperands, AreTakenWhereTheyGoTogether) {
  Tried tool;
  std::string first;
  std::vector<std::string> others;
  tool.action("pack", "Pack.", [&] { return first == "x" && others.size() == 1 ? 7 : 8; });
  tool.operand("first", first, "First.").only("pack");
  tool.rest("other", others, "Others.").only("pack");
  EXPECT_EQ(7, tool.run({"--pack", "x", "y"})) << tool.err;
}

}  // namespace
}  // namespace kivo_3_3
