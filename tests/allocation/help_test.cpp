// Memory runs out while help or an error text is made: the text is whole, or a documented
// substitute.

#include <gtest/gtest.h>

#include <string>

#include "allocation/failing_memory.h"
#include "support/command.h"

namespace kivo_3_3 {

namespace {

using testing::Command;
using testing::failEachAllocation;

constexpr const char* longText = "a text too long to be kept without memory";

struct Asking {
  Asking() {
    IParser& parser = command.parser();
    parser.action("run,r", longText, vtNull, "Actions:What it can do, in a few words.");
    parser.modifier("level,l", "run", longText, vtS32, "Main")->defaultValue(17);
    parser.modifier("ratio", "run", longText, vtDouble)->defaultValue(0.5);
    parser.option("tone", longText, vtString, "Main")->allowValue("red")->allowValue("green");
    parser.option("secret", longText, vtBool, "kivo_hidden");
  }

  Command command;
  std::string text;
  const char* answer = nullptr;
};

const struct {
  const char* name;
  const char* (*ask)(IParser& parser);
} questions[] = {
    {"the tool", [](IParser& parser) { return parser.getDescription(false); }},
    {"the hidden", [](IParser& parser) { return parser.getDescription(true); }},
    {"one option", [](IParser& parser) { return parser.getDescription("tone", false); }},
    {"no such option", [](IParser& parser) { return parser.getDescription("none", false); }},
    {"an action's modifiers",
     [](IParser& parser) { return parser.getActionModifiersDescription("run", false); }},
    {"no such action",
     [](IParser& parser) { return parser.getActionModifiersDescription("none", false); }},
    {"what goes with all actions",
     [](IParser& parser) { return parser.getGlobalModifiersDescription(false); }},
};

// Whether the answer is a documented substitute for the help. The sentence before the help, if any,
// may stay.
bool tellsFailure(const std::string& answer, const std::string& whole) {
  const std::size_t remark = whole.rfind("Help for none", 0) == 0 ? whole.find('\n') + 1 : 0;
  return answer.empty() || answer == "Unknown error handled." ||
         answer == whole.substr(0, remark) ||
         answer == whole.substr(0, remark) + "Unknown error handled.";
}

TEST(MemoryRunsOut, HelpIsWholeOrSaysThatItFailedOrIsEmpty) {
  for (const auto& q : questions) {
    SCOPED_TRACE(q.name);
    Asking unlimited;
    const std::string whole = q.ask(unlimited.command.parser());
    ASSERT_FALSE(whole.empty());
    failEachAllocation<Asking>([&](Asking& scene) { scene.answer = q.ask(scene.command.parser()); },
                               [&](Asking& scene) {
                                 const std::string answer = scene.answer;
                                 EXPECT_TRUE(answer == whole || tellsFailure(answer, whole))
                                     << answer;
                                 EXPECT_EQ(whole, q.ask(scene.command.parser()));
                               });
  }
}

TEST(MemoryRunsOut, ErrorTextIsWholeOrEmpty) {
  struct Failed : Asking {
    Failed() { command.parse({"--run", "--level=a text too long to be kept without memory"}); }
  };
  const std::string whole =
      "Value validation problem in argument '--level=a text too long to be kept without memory':"
      " Option 'level' can not parse 'a text too long to be kept without memory' value, requires a"
      " type 'integer' here.";
  failEachAllocation<Failed>(
      [](Failed& scene) { scene.answer = scene.command.parser().getErrorDesc(); },
      [&](Failed& scene) {
        EXPECT_TRUE(whole == scene.answer || *scene.answer == '\0') << scene.answer;
        EXPECT_EQ(whole, scene.command.error());
      });
}

}  // namespace

}  // namespace kivo_3_3
