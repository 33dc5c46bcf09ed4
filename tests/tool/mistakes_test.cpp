#include <kivo/parser.h>

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/assertion_recorder.h"
#include "tried.h"

// What the author of a tool declares wrong reaches the assertion handler.

namespace kivo_3_3 {
namespace {

using testing::AssertionRecorder;

enum class Tone { none, low, high };

class ToolMistakes : public ::testing::Test {
 protected:
  // The mistakes that a parse reports.
  std::string reported(std::initializer_list<const char*> arguments = {}) {
    const AssertionRecorder assertions;
    static_cast<void>(tool.run(arguments));
    return assertions.expressions();
  }

  Tried tool;
  bool one = false, two = false;
  std::string text;
  std::vector<std::string> texts;
};

TEST_F(ToolMistakes, AreNotReportedForARightTool) {
  tool.option("text", text, "A text.").choices({"low", "high"});
  tool.flag("one", one, "One.").only("list");
  tool.action("list,l", "List all.", [] { return 0; });
  tool.flag("two", two, "Two.").only("list,l");
  tool.atMostOne({"one", "two"});
  EXPECT_EQ("", reported());
}

TEST_F(ToolMistakes, ANameDeclaredTwice) {
  tool.flag("one,o", one, "One.");
  tool.option("output,o", text, "A text.");
  EXPECT_EQ("the name 'o' is declared twice, by flag 'one,o' and by option 'output,o'", reported());
}

TEST_F(ToolMistakes, ANameTwiceInOneDeclaration) {
  tool.flag("one,one", one, "One.");
  EXPECT_EQ("the name 'one' is declared twice, by flag 'one,one' and by flag 'one,one'",
            reported());
}

TEST_F(ToolMistakes, ANameThatTurnsOffAnotherOption) {
  tool.option("one", one, "One.");
  tool.flag("no-one", two, "Two.");
  EXPECT_EQ("the name 'no-one' is declared twice, by option 'one' and by flag 'no-one'",
            reported());
}

TEST_F(ToolMistakes, AnOperandDeclaredTwice) {
  tool.operand("file", text, "One.");
  tool.rest("file", texts, "Others.");
  EXPECT_EQ("the name 'file' is declared twice, by operand 'file' and by rest 'file'", reported());
}

TEST_F(ToolMistakes, AnOperandWithoutOneName) {
  tool.operand(nullptr, text, nullptr);
  tool.rest("a,b", texts, "Others.");
  EXPECT_EQ("operand '' needs one name; rest 'a,b' needs one name", reported({"x", "y"}));
  EXPECT_EQ("x", text);
  EXPECT_EQ(std::vector<std::string>{"y"}, texts);
}

TEST_F(ToolMistakes, AnOperandAfterTheRest) {
  tool.rest("files", texts, "All.");
  tool.operand("file", text, "One.");
  EXPECT_EQ("operand 'file' comes after rest 'files', which takes all operands", reported());
}

TEST_F(ToolMistakes, TooManyNames) {
  tool.flag("one,first,f,1", one, "One.").env("HOME");
  EXPECT_EQ("flag 'one,first,f,1' has too many names or a third one that is long", reported());
}

TEST_F(ToolMistakes, AnEmptyName) {
  tool.flag("", one, "One.");
  EXPECT_EQ("flag '' has a name that cannot be typed: ''", reported());
}

TEST_F(ToolMistakes, AnOptionWithoutAName) {
  tool.flag(nullptr, one, nullptr);
  tool.flag("", two, "Two.");
  tool.option("text", text, "A text.");
  EXPECT_EQ(
      "flag '' has a name that cannot be typed: ''; flag '' has a name that cannot be typed: ''",
      reported({"--text=x"}));
  EXPECT_EQ("x", text);
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolMistakes, AnOptionWhoseOtherNamesCountAllTheSame) {
  tool.flag("one,,a b", one, "One.");
  EXPECT_EQ(
      "flag 'one,,a b' has a name that cannot be typed: ''; "
      "flag 'one,,a b' has a name that cannot be typed: 'a b'",
      reported({"--one"}));
  EXPECT_TRUE(one);
}

TEST_F(ToolMistakes, AnOptionOfTheToolWhoseOtherNameACommandUses) {
  tool.option("a b,o", one, "One.");
  tool.command("pack", "Pack files.", [this](Tool& inner) {
    inner.flag("o", two, "Two.");
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(
      "option 'a b,o' has a name that cannot be typed: 'a b'; "
      "option 'a b,o' has a name that cannot be typed: 'a b'",
      reported({"-o", "pack", "-o"}));
  EXPECT_TRUE(one && two);
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolMistakes, AnOptionDeclaredTwiceWhoseNameACommandUses) {
  bool three = false;
  tool.flag("o", one, "One.");
  tool.flag("o", two, "Two.");
  tool.command("pack", "Pack files.", [&](Tool& inner) {
    inner.flag("o", three, "Three.");
    return inner.parse().value_or(0);
  });
  EXPECT_EQ("the name 'o' is declared twice, by flag 'o' and by flag 'o'",
            reported({"-o", "pack", "-o"}));
  EXPECT_TRUE(one && three);
  EXPECT_FALSE(two);
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolMistakes, AnOptionDeclaredThreeTimes) {
  for (bool* flag : {&one, &two, &two})
    tool.flag("one", *flag, "One.");
  EXPECT_EQ(
      "the name 'one' is declared twice, by flag 'one' and by flag 'one'; "
      "the name 'one' is declared twice, by flag 'one' and by flag 'one'",
      reported({"--one"}));
  EXPECT_TRUE(one);
  EXPECT_FALSE(two);
}

TEST_F(ToolMistakes, ANameThatIsOnTheParserToo) {
  tool.parser()->option("first,t", "", vtNull);
  tool.option("text,t", text, "A text.");
  EXPECT_EQ("the name 't' is declared twice, by option 'text,t' and on parser()",
            reported({"-t", "--text=x"}));
  EXPECT_EQ("x", text);
}

TEST_F(ToolMistakes, AnOptionWhoseOnlyNameIsOnTheParserToo) {
  tool.parser()->action("one", "", vtNull);
  tool.flag("one", one, "One.");
  EXPECT_EQ("the name 'one' is declared twice, by flag 'one' and on parser()", reported({"--one"}));
  EXPECT_FALSE(one);
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolMistakes, NoneForHelpThatIsOnTheParser) {
  tool.parser()->option("help", "", vtNull);
  EXPECT_EQ("", reported({"--help"}));
  EXPECT_EQ("", tool.out + tool.err);
}

TEST_F(ToolMistakes, NamesThatNobodyCanType) {
  tool.option("text, t", text, "A text.");
  tool.flag("-one,a=b", one, "One.");
  EXPECT_EQ(
      "option 'text, t' has a name that cannot be typed: ' t'; "
      "flag '-one,a=b' has a name that cannot be typed: '-one'; "
      "flag '-one,a=b' has a name that cannot be typed: 'a=b'",
      reported());
}

TEST_F(ToolMistakes, AnUnknownActionInOnly) {
  tool.action("list", "List all.", [] { return 0; });
  tool.flag("one", one, "One.").only("list,lst");
  EXPECT_EQ("flag 'one' goes only with 'lst', which is not declared", reported());
}

TEST_F(ToolMistakes, OnlyWithAnOption) {
  tool.action("list", "List all.", [] { return 0; });
  tool.flag("two", two, "Two.");
  tool.flag("one", one, "One.").only("two");
  EXPECT_EQ("flag 'one' goes only with 'two', which is no action but flag 'two'", reported());
}

TEST_F(ToolMistakes, OnlyWithoutActions) {
  tool.flag("one", one, "One.").only("list");
  EXPECT_EQ("flag 'one' goes only with 'list', which is not declared", reported());
}

TEST_F(ToolMistakes, AnActionOfTheEnvironment) {
  setenv("TRIED_GO", "1", 1);
  auto go = tool.action("go", "Go.", [] { return 7; });
  go.env("TRIED_GO").required();
  EXPECT_EQ("action 'go' cannot be given by the environment variable 'TRIED_GO'", reported());
  EXPECT_EQ("tool: Option '--go' is required\nTry 'tool --help'.\n", tool.err);
  EXPECT_EQ(0U, go.given());
  unsetenv("TRIED_GO");
}

TEST_F(ToolMistakes, ARangeWithoutNumbers) {
  int number = 5;
  double real = 0.5;
  tool.option("number", number, "A number.").range(9, 1);
  tool.option("real", real, "A number.").range(0.5, 0.5);
  EXPECT_EQ("option 'number' takes no number from 9 to 1", reported({"--number=5"}));
  EXPECT_EQ("tool: Option 'number' does not take '5', expected: 9 to 1\nTry 'tool --help'.\n",
            tool.err);
}

TEST_F(ToolMistakes, ADeprecatedChoiceThatStandsForNone) {
  tool.option("tone", text, "How.").choices({"low"}).deprecatedChoice("loud", "high");
  tool.option("free", text, "Any.").deprecatedChoice("loud", "high");
  EXPECT_EQ("option 'tone' takes 'loud' as 'high', which is none of its choices", reported());
}

TEST_F(ToolMistakes, NoneForTextsThatAreNull) {
  tool.section(nullptr);
  tool.option("text", text, nullptr).env(nullptr).placeholder(nullptr).only(nullptr);
  tool.flag("one", one, nullptr).deprecated(nullptr).shownDefault(nullptr);
  tool.config("config", nullptr, nullptr);
  tool.footer(nullptr);
  EXPECT_EQ("", reported({"--text=x", "--one"}));
  EXPECT_EQ("x", text);
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolMistakes, AToolWithoutAName) {
  Tried unnamed(nullptr, nullptr, nullptr);
  EXPECT_EQ("Usage: [OPTION]...\n\nOptions:\n  -h, --help  Show this help.\n", unnamed.help());
  EXPECT_EQ(2, unnamed.run({"--version"}));
  EXPECT_EQ(": Unknown option: --version\nTry ' --help'.\n", unnamed.err);
}

TEST_F(ToolMistakes, NullsInListsOfNames) {
  tool.option("text", text, "A text.").choices({static_cast<const char*>(nullptr), "low"});
  tool.atMostOne({nullptr, "text"});
  tool.exactlyOne({});
  tool.command(nullptr, nullptr, [](Tool& inner) { return inner.parse().value_or(0); });
  EXPECT_EQ(
      "command '' needs words with single blanks between and no dash before; "
      "the group ',text' has the name '', which is no option",
      reported());
}

TEST_F(ToolMistakes, ADefaultOutsideTheChoices) {
  text = "loud";
  tool.option("tone", text, "How.").choices({"low", "high"});
  EXPECT_EQ("the default 'loud' of option 'tone' is none of its choices", reported());
}

TEST_F(ToolMistakes, AListWithADefaultOutsideTheChoices) {
  texts = {"low", "loud"};
  tool.option("tone", texts, "How.").choices({"low", "high"});
  EXPECT_EQ("the default 'loud' of option 'tone' is none of its choices", reported());
}

TEST_F(ToolMistakes, AnEnumeratorOutsideTheChoices) {
  Tone tone = Tone::none;
  tool.option("tone", tone, "How.").choices({{"low", Tone::low}, {"high", Tone::high}});
  EXPECT_EQ("the default '' of option 'tone' is none of its choices", reported());
}

TEST_F(ToolMistakes, NoneForANumberAmongItsChoices) {
  int number = 2;
  tool.option("number", number, "How many.").choices({{"one", 1}, {"two", 2}});
  EXPECT_EQ("", reported());
}

TEST_F(ToolMistakes, ANumberOutsideItsChoices) {
  int number = 3;
  tool.option("number", number, "How many.").choices({{"one", 1}, {"two", 2}});
  EXPECT_EQ("the default '3' of option 'number' is none of its choices", reported());
}

TEST_F(ToolMistakes, NoneForAnOptionalWithoutValue) {
  std::optional<Tone> tone;
  tool.option("tone", tone, "How.").choices({{"low", Tone::low}, {"high", Tone::high}});
  EXPECT_EQ("", reported());
}

TEST_F(ToolMistakes, ActionsAndCommandsInOneTool) {
  tool.action("list,l", "List all.", [] { return 0; });
  tool.command("pack", "Pack files.", [](Tool& inner) { return inner.parse().value_or(0); });
  EXPECT_EQ("action 'list,l' and command 'pack' are in one tool", reported({"pack"}));
}

TEST_F(ToolMistakes, TwoCommandsWithTheSameWords) {
  tool.command("pack", "Pack files.", [](Tool& inner) { return inner.parse().value_or(0); });
  tool.command("pack", "Pack all.", [](Tool& inner) { return inner.parse().value_or(0); });
  EXPECT_EQ(
      "command 'pack' is declared twice, with the help 'Pack files.' and with the help 'Pack all.'",
      reported({"pack"}));
}

TEST_F(ToolMistakes, ACommandThatNobodyCanType) {
  for (const char* words : {"", " add", "add  one", "add ", "add -x", "--add", "add\tx", "\nx"})
    tool.command(words, "", [](Tool& inner) { return inner.parse().value_or(0); });
  EXPECT_EQ(
      "command '' needs words with single blanks between and no dash before; "
      "command ' add' needs words with single blanks between and no dash before; "
      "command 'add  one' needs words with single blanks between and no dash before; "
      "command 'add ' needs words with single blanks between and no dash before; "
      "command 'add -x' needs words with single blanks between and no dash before; "
      "command '--add' needs words with single blanks between and no dash before; "
      "command 'add\tx' needs words with single blanks between and no dash before; "
      "command '\nx' needs words with single blanks between and no dash before",
      reported());
}

TEST_F(ToolMistakes, ACommandInsideOfACommand) {
  tool.command("outer", "", [](Tool& inner) {
    inner.command("inner", "", [](Tool& innermost) { return innermost.parse().value_or(0); });
    return inner.parse().value_or(0);
  });
  EXPECT_EQ("command 'inner' is declared inside of command 'outer'", reported({"outer"}));
}

TEST_F(ToolMistakes, AGroupWithAnUnknownName) {
  tool.flag("one", one, "One.");
  tool.atMostOne({"one", "two"});
  EXPECT_EQ("the group 'one,two' has the name 'two', which is no option", reported());
}

TEST_F(ToolMistakes, ACommandThatReturnsWithoutParse) {
  tool.command("pack", "Pack files.", [](Tool&) { return 7; });
  EXPECT_EQ("the command 'pack' returned without parse()", reported({"pack"}));
}

TEST_F(ToolMistakes, ASecondParse) {
  tool.flag("one", one, "One.");
  EXPECT_EQ("", reported());
  EXPECT_EQ("parse() is called twice by 'tool'", reported({"--one"}));
  EXPECT_FALSE(one);
}

TEST_F(ToolMistakes, ASecondParseOfACommand) {
  tool.command("pack", "Pack files.", [](Tool& inner) {
    static_cast<void>(inner.parse());
    return inner.parse().value_or(0);
  });
  EXPECT_EQ("parse() is called twice by 'tool pack'", reported({"pack"}));
}

TEST_F(ToolMistakes, OfACommandAreReportedWhenItIsParsed) {
  tool.flag("two", two, "Two.");
  tool.command("pack", "Pack files.", [this](Tool& inner) {
    inner.flag("one", one, "One.").only("list");
    inner.atMostOne({"one", "two", "three"});
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(
      "flag 'one' goes only with 'list', which is not declared; "
      "the group 'one,two,three' has the name 'three', which is no option",
      reported({"pack"}));
}

TEST_F(ToolMistakes, MayBeThrown) {
  tool.flag("one,one", one, "One.");
  const auto before = BEDROCK::set_assertion_handler(
      [](const char* mistake, const char*, int) { throw std::logic_error(mistake); });
  EXPECT_THROW(tool.run({}), std::logic_error);
  BEDROCK::set_assertion_handler(before);
}

TEST_F(ToolMistakes, ANameThatIsTheNoFormOfABooleanDeclaredLater) {
  tool.flag("no-color", one, "Without colours.");
  tool.option("color", two, "In colour.");
  EXPECT_EQ("the name 'color' is declared twice, by flag 'no-color' and by option 'color'",
            reported());
}

TEST_F(ToolMistakes, AValueThatIsSplitForAVariableOfOne) {
  tool.option("text", text, "A text.").split(',');
  EXPECT_EQ("option 'text' is split, but its variable takes one value", reported());
}

TEST_F(ToolMistakes, ChoicesAndChecksWhereThereIsNoValue) {
  tool.flag("one", one, "One.").choices({{"yes", true}});
  EXPECT_EQ("flag 'one' has choices, but takes no value", reported());
  Tried acting;
  acting.action("go", "Go.", [] { return 0; }).check([](bool) { return ""; });
  const AssertionRecorder assertions;
  EXPECT_EQ(0, acting.run({"--go"}));
  EXPECT_EQ("action 'go' has a check, but takes no value", assertions.expressions());
}

}  // namespace
}  // namespace kivo_3_3
