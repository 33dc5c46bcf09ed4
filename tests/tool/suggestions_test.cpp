#include <string>

#include "tried.h"

// What a misspelt name may have meant.

namespace kivo_3_3 {
namespace {

// What is printed for an option.
std::string told(const char* argument) {
  Tried tool;
  int value = 0;
  std::string tone;
  tool.option("times,ab", value, "Times.");
  tool.option("timer", value, "Timer.");
  tool.option("timex", value, "Timex.").hidden();
  tool.option("tone", tone, "Tone.").choices({"friendly", "formal", "two words"});
  tool.action("report", "Report.", [] { return 0; });
  EXPECT_EQ(2, tool.run({argument}));
  const std::string start = "tool: ", end = "\nTry 'tool --help'.\n";
  EXPECT_EQ(start + end, tool.err.substr(0, 6) + tool.err.substr(tool.err.size() - end.size()));
  return tool.err.substr(6, tool.err.size() - start.size() - end.size());
}

TEST(ToolSuggestions, AtMostTwoOptionsAreSuggested) {
  EXPECT_EQ("Unknown option: --timez. Did you mean '--times' or '--timer'?", told("--timez"));
}

TEST(ToolSuggestions, OfThreeNearNamesTwoAreSuggested) {
  bool given = false;
  Tried tool;
  for (const char* name : {"times", "timer", "timed"})
    tool.flag(name, given, "");
  EXPECT_EQ(2, tool.run({"--timez"}));
  EXPECT_EQ(
      "tool: Unknown option: --timez. Did you mean '--times' or '--timer'?\n"
      "Try 'tool --help'.\n",
      tool.err);
}

TEST(ToolSuggestions, HiddenOptionsAreNotSuggested) {
  bool given = false;
  Tried tool;
  tool.flag("secret", given, "").hidden();
  EXPECT_EQ(2, tool.run({"--sceret"}));
  EXPECT_EQ("tool: Unknown option: --sceret\nTry 'tool --help'.\n", tool.err);
}

TEST(ToolSuggestions, ActionsAreSuggested) {
  EXPECT_EQ("Unknown option: --reprot. Did you mean '--report'?", told("--reprot"));
}

TEST(ToolSuggestions, NothingIsSuggestedForADistantOrShortName) {
  EXPECT_EQ("Unknown option: --tuna", told("--tuna"));
  EXPECT_EQ("Unknown option: --ac", told("--ac"));
}

TEST(ToolSuggestions, AnAmbiguousNameHasNone) {
  EXPECT_EQ(std::string::npos, told("--time").find("Did you mean"));
}

// What is printed for a text that is no choice.
std::string refusal(const std::string& text) {
  return "Value validation problem in argument '--tone=" + text +
         "': Option 'tone' does not allow value '" + text +
         "'. Possible values follows: 'friendly', 'formal', 'two words'";
}

TEST(ToolSuggestions, ChoicesAreSuggested) {
  EXPECT_EQ(refusal("freindly") + ". Did you mean 'friendly'?", told("--tone=freindly"));
  EXPECT_EQ(refusal("two wards") + ". Did you mean 'two words'?", told("--tone=two wards"));
  EXPECT_EQ(refusal("other"), told("--tone=other"));
}

TEST(ToolSuggestions, ChoicesOfAnOptionWhoseFirstNameACommandUses) {
  Tried tool;
  std::string tone;
  bool loud = false;
  tool.option("tone,voice", tone, "").choices({"friendly", "formal"});
  tool.command("say", "", [&](Tool& inner) {
    inner.flag("tone", loud, "");
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(2, tool.run({"say", "--voice=frmal"}));
  EXPECT_NE(std::string::npos, tool.err.find("Did you mean 'formal'?")) << tool.err;
}

TEST(ToolSuggestions, ChoicesOfOperandsAreSuggested) {
  Tried tool;
  std::string tone;
  tool.operand("tone", tone, "Tone.").choices({"friendly", "formal"});
  EXPECT_EQ(2, tool.run({"frmal"}));
  EXPECT_EQ(
      "tool: Operand 'tone' does not take 'frmal', expected: friendly, formal. "
      "Did you mean 'formal'?\nTry 'tool --help'.\n",
      tool.err);
}

TEST(ToolSuggestions, CommandsAreSuggested) {
  Tried tool;
  tool.command("unpack", "Unpack.", [](Tool& command) { return command.parse().value_or(0); });
  EXPECT_EQ(2, tool.run({"umpack"}));
  EXPECT_EQ("tool: Unknown command: umpack. Did you mean 'unpack'?\nTry 'tool --help'.\n",
            tool.err);
}

TEST(ToolSuggestions, OnlyTheFirstHundredCharactersAreLookedAt) {
  const std::string common(100, 'x');
  Tried tool;
  int value = 0;
  tool.option((common + "a").c_str(), value, "Long.");
  EXPECT_EQ(2, tool.run({("--" + common + std::string(100'000, 'b')).c_str()}));
  const std::string end = ". Did you mean '--" + common + "a'?\nTry 'tool --help'.\n";
  EXPECT_EQ(end, tool.err.substr(tool.err.size() - end.size()));
}

TEST(ToolSuggestions, NamesThatTurnABooleanOffAreSuggested) {
  Tried tool;
  bool color = true;
  tool.option("color", color, "In colour.");
  EXPECT_EQ(2, tool.run({"--no-colr"}));
  EXPECT_EQ("tool: Unknown option: --no-colr. Did you mean '--no-color'?\nTry 'tool --help'.\n",
            tool.err);
}

}  // namespace
}  // namespace kivo_3_3
