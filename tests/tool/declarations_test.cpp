#include <kivo/parser.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/console_capture.h"
#include "tried.h"

// What a tool declares, and what the modifiers of a declaration ask for.

namespace kivo_3_3 {
namespace {

enum class Tone { warm, cold };

std::string refused(const std::string& reason) {
  return "tool: " + reason + "\nTry 'tool --help'.\n";
}

TEST(ToolDeclarations, AFlagTellsWhetherItWasGiven) {
  bool given = false;
  bool missing = false;
  Tried tool;
  tool.flag("given,g", given, "");
  tool.flag("missing", missing, "");
  EXPECT_EQ(-1, tool.run({"-g", "--given"}));
  EXPECT_TRUE(given);
  EXPECT_FALSE(missing);
}

TEST(ToolDeclarations, AFlagHasNoValueAndNoOppositeName) {
  bool flag = false;
  Tried tool;
  tool.flag("flag", flag, "");
  EXPECT_EQ(2, tool.run({"--no-flag"}));
  EXPECT_EQ(refused("Unknown option: --no-flag"), tool.err);
  Tried other;
  other.flag("flag", flag, "");
  EXPECT_EQ(2, other.run({"--flag=1"}));
  EXPECT_EQ(refused("Option 'flag'does not requires a value in argument: '--flag=1'"), other.err);
}

TEST(ToolDeclarations, ACountTellsHowOftenItWasGiven) {
  int count = 5;
  int missing = 5;
  Tried tool;
  tool.count("verbose,v", count, "");
  tool.count("missing", missing, "");
  EXPECT_EQ(-1, tool.run({"-v", "--verbose", "-v"}));
  EXPECT_EQ(3, count);
  EXPECT_EQ(5, missing);
}

TEST(ToolDeclarations, ACountKeepsItsRangeAndItsChecks) {
  int count = 0;
  Tried tool;
  tool.count("v", count, "").range(2, 3);
  EXPECT_EQ(2, tool.run({"-v", "-v", "-v", "-v"}));
  EXPECT_EQ(refused("Option 'v' does not take '4', expected: 2 to 3"), tool.err);
  Tried right;
  right.count("v", count, "").range(2, 3);
  EXPECT_EQ(-1, right.run({"-v", "-v"}));
  Tried odd;
  odd.count("v", count, "").check([](int times) { return times % 2 == 0 ? "" : "an even number"; });
  EXPECT_EQ(2, odd.run({"-v"}));
  EXPECT_EQ(refused("Option 'v' does not take '1', expected: an even number"), odd.err);
}

TEST(ToolDeclarations, AFlagKeepsItsChecks) {
  bool flag = false;
  Tried tool;
  tool.flag("now", flag, "").check([](bool) { return "another day"; });
  EXPECT_EQ(2, tool.run({"--now"}));
  EXPECT_EQ(refused("Option 'now' does not take '1', expected: another day"), tool.err);
}

TEST(ToolDeclarations, EachIsCalledInTheOrderOfTheCommandLineAcrossOptions) {
  std::string called;
  int number = 0;
  Tried tool;
  tool.each(
          "add,a", [&](const char* text) { called += std::string("+") + text; }, "")
      .split(',');
  tool.each(
      "drop,d",
      [&](const char* text) { called += std::string("-") + text + std::to_string(number); }, "");
  tool.option("number", number, "");
  EXPECT_EQ(-1, tool.run({"-a", "x,y", "-d", "z", "--add=w", "--number=3"}));
  EXPECT_EQ("+x+y-z3+w", called);
}

TEST(ToolDeclarations, EachKeepsItsChoicesAndItsChecks) {
  std::string called;
  const testing::ConsoleCapture console;
  const auto call = [&](const char* text) { called += text; };
  Tried tool;
  tool.each("tone", call, "").choices({"warm", "cold"}).deprecatedChoice("mild", "warm");
  EXPECT_EQ(-1, tool.run({"--tone=c", "--tone=mild"}));
  EXPECT_EQ("coldwarm", called);
  Tried other;
  other.each("x", call, "").check([](const char* text) { return *text == 'a' ? "" : "an a"; });
  EXPECT_EQ(2, other.run({"-x", "abc", "-x", "b"}));
  EXPECT_EQ(refused("Option 'x' does not take 'b', expected: an a"), other.err);
  EXPECT_EQ("coldwarm", called);
}

TEST(ToolDeclarations, WhatEachThrowsEndsWithStatus4) {
  Tried tool;
  tool.each(
      "x", [](const char* text) { throw std::runtime_error(text); }, "");
  EXPECT_EQ(4, tool.run({"-x", "reason"}));
  EXPECT_EQ(refused("reason"), tool.err);
  Tried other;
  other.each(
      "x", [](const char*) { throw 1; }, "");
  EXPECT_EQ(4, other.run({"-x", "y"}));
  EXPECT_EQ(refused("The command line cannot be read"), other.err);
}

TEST(ToolDeclarations, WhatACheckThrowsEndsWithStatus4) {
  const std::function<const char*(int)> checks[] = {
      [](int) -> const char* { throw std::runtime_error("reason"); },
      [](int) -> const char* { throw 1; }};
  const char* const printed[] = {"reason", "The command line cannot be read"};
  for (int which : {0, 1}) {
    int number = 1;
    Tried tool;
    tool.option("n", number, "").check(checks[which]);
    EXPECT_EQ(4, tool.run({"-n", "2"}));
    EXPECT_EQ(refused(printed[which]), tool.err);
    EXPECT_EQ(1, number);
  }
}

TEST(ToolDeclarations, MemoryThatRunsOutInACheckEndsWithStatus3) {
  int number = 1;
  Tried tool;
  tool.option("n", number, "").check([](int) -> const char* { throw std::bad_alloc(); });
  EXPECT_EQ(3, tool.run({"-n", "2"}));
  EXPECT_EQ(1, number);
}

TEST(ToolDeclarations, ARangeContainsBothOfItsEnds) {
  for (const char* text : {"--n=1", "--n=12"}) {
    int number = 5;
    Tried tool;
    tool.option("n", number, "").range(1, 12);
    EXPECT_EQ(-1, tool.run({text})) << tool.err;
  }
  for (const char* text : {"0", "13"}) {
    int number = 5;
    Tried tool;
    tool.option("n", number, "").range(1, 12);
    EXPECT_EQ(2, tool.run({(std::string("--n=") + text).c_str()}));
    EXPECT_EQ(refused("Option 'n' does not take '" + std::string(text) + "', expected: 1 to 12"),
              tool.err);
  }
}

TEST(ToolDeclarations, RangesAreForNumbersOfEveryKind) {
  double real = 0.5;
  std::vector<unsigned char> list;
  std::optional<long long> wide;
  Tried tool;
  tool.option("real", real, "").range(0.25, 0.75);
  tool.option("list", list, "").range(1, 9).split(',');
  tool.option("wide", wide, "").range(-5, 5);
  EXPECT_EQ(2, tool.run({"--real=0.25", "--wide=-5", "--list=1,9,10"}));
  EXPECT_EQ(refused("Option 'list' does not take '10', expected: 1 to 9"), tool.err);
}

TEST(ToolDeclarations, ChoicesMayBeCutShortUnlessAmbiguous) {
  std::string tone;
  Tried tool;
  tool.option("tone", tone, "").choices({"warm", "wet", "cold"});
  EXPECT_EQ(-1, tool.run({"--tone=c"}));
  EXPECT_EQ("cold", tone);
  Tried other;
  other.option("tone", tone, "").choices({"warm", "wet", "cold"});
  EXPECT_EQ(2, other.run({"--tone=w"}));
  EXPECT_EQ(refused("Value validation problem in argument '--tone=w': Ambiguous value for option"
                    " 'tone'. Possible values follows: 'warm', 'wet', 'cold'"),
            other.err);
}

TEST(ToolDeclarations, ChoicesDoNotSplitAtCommas) {
  std::vector<std::string> tones;
  Tried tool;
  tool.option("tone", tones, "").choices({"a,b", "c"});
  EXPECT_EQ(-1, tool.run({"--tone=a,b", "--tone=c"}));
  EXPECT_EQ((std::vector<std::string>{"a,b", "c"}), tones);
}

TEST(ToolDeclarations, ADeprecatedChoiceGivesTheValueOfTheOtherOne) {
  std::string text;
  Tone tone = Tone::warm;
  Tone operand = Tone::warm;
  const testing::ConsoleCapture console;
  Tried tool;
  tool.option("text", text, "").choices({"old", "new"}).deprecatedChoice("ancient", "new");
  tool.option("tone", tone, "")
      .deprecatedChoice("icy", "cold")
      .choices({{"warm", Tone::warm}, {"cold", Tone::cold}});
  tool.operand("operand", operand, "")
      .deprecatedChoice("icy", "cold")
      .choices({{"warm", Tone::warm}, {"cold", Tone::cold}});
  EXPECT_EQ(-1, tool.run({"--text=ancient", "--tone=ic", "icy"})) << tool.err;
  EXPECT_EQ("new", text);
  EXPECT_EQ(Tone::cold, tone);
  EXPECT_EQ(Tone::cold, operand);
}

TEST(ToolDeclarations, ADeprecatedChoiceIsToldOfOnceAsTheToolTellsOfErrors) {
  const testing::ConsoleCapture console;
  std::vector<std::string> tones;
  std::string voice;
  Tried tool;
  tool.option("tone,t", tones, "").choices({"warm", "cold"}).deprecatedChoice("mild", "warm");
  tool.operand("voice", voice, "").choices({"high", "low"}).deprecatedChoice("deep", "low");
  EXPECT_EQ(-1, tool.run({"--tone=mild", "-t=m", "--tone=cold", "de"}));
  EXPECT_EQ((std::vector<std::string>{"warm", "warm", "cold"}), tones);
  EXPECT_EQ("low", voice);
  EXPECT_EQ(
      "tool: Option '--tone': 'mild' is deprecated: use 'warm'\n"
      "tool: Operand 'voice': 'deep' is deprecated: use 'low'\n",
      tool.err);
  EXPECT_EQ("", tool.out + console.out() + console.err());
}

TEST(ToolDeclarations, ADeprecatedChoiceIsNotToldOfBesideAnError) {
  std::string tone;
  Tried tool;
  tool.option("tone", tone, "").choices({"warm"}).deprecatedChoice("mild", "warm");
  EXPECT_EQ(2, tool.run({"--tone=mild", "stray"}));
  EXPECT_EQ(refused("Unexpected argument: stray"), tool.err);
}

// What is printed for a tone, some of which are deprecated.
std::string toldOfTone(const char* tone) {
  std::string text = "none";
  Tried tool;
  tool.option("tone", text, "")
      .shownDefault("none")
      .choices({"warm", "wet", "wetter", "none"})
      .deprecatedChoice("weak", "wet")
      .deprecatedChoice("mild", "warm");
  return tool.run({"--tone", tone}) == -1 ? text : tool.err;
}

TEST(ToolDeclarations, ChoicesBesideDeprecatedOnesMayBeCutShortUnlessAmbiguous) {
  EXPECT_EQ("warm", toldOfTone("wa"));
  EXPECT_EQ("wet", toldOfTone("wet"));
  EXPECT_EQ("warm", toldOfTone("m"));
  EXPECT_EQ(refused("Option 'tone' does not take 'we', expected: warm, wet, wetter, none"),
            toldOfTone("we"));
  EXPECT_EQ(refused("Option 'tone' does not take 'warn', expected: warm, wet, wetter, none."
                    " Did you mean 'warm'?"),
            toldOfTone("warn"));
}

TEST(ToolDeclarations, ADeprecatedTextMayStandBesideAnyOther) {
  const testing::ConsoleCapture console;
  int number = 1;
  std::string text;
  Tried tool;
  tool.option("number", number, "").deprecatedChoice("few", "3").range(1, 9);
  tool.option("text", text, "").deprecatedChoice("old", "new");
  EXPECT_EQ(-1, tool.run({"--number=few", "--text=ol"}));
  EXPECT_EQ(3, number);
  EXPECT_EQ("ol", text);
  EXPECT_EQ("tool: Option '--number': 'few' is deprecated: use '3'\n", tool.err);
  EXPECT_EQ("", console.err());
  Tried other;
  other.option("number", number, "").deprecatedChoice("few", "3").range(1, 9);
  EXPECT_EQ(2, other.run({"--number=10"}));
  EXPECT_EQ(refused("Option 'number' does not take '10', expected: 1 to 9"), other.err);
}

TEST(ToolDeclarations, DeprecatedChoicesOfAListAreSplitAsOthers) {
  std::vector<Tone> tones;
  Tried tool;
  tool.option("tone", tones, "")
      .choices({{"warm", Tone::warm}, {"cold", Tone::cold}})
      .deprecatedChoice("icy", "cold")
      .split('+');
  EXPECT_EQ(-1, tool.run({"--tone=icy+warm", "--tone=c"}));
  EXPECT_EQ((std::vector<Tone>{Tone::cold, Tone::warm, Tone::cold}), tones);
}

TEST(ToolDeclarations, ChecksGetTheValueAndTellWhatTheyExpect) {
  int even = 0;
  std::string word;
  std::vector<std::string> words;
  Tried tool;
  tool.option("even", even, "")
      .check([](const int& number) { return number % 2 == 0 ? nullptr : "an even number"; })
      .check([](int number) { return number < 9 ? std::string() : std::string("less than 9"); });
  tool.option("word", word, "").check([](const std::string&) { return ""; });
  tool.rest("words", words, "").check([](const std::string& one) {
    return one.size() == 3 ? "" : "three letters";
  });
  EXPECT_EQ(2, tool.run({"--even=8", "--word=x", "abc", "abcd"}));
  EXPECT_EQ(refused("Operand 'words' does not take 'abcd', expected: three letters"), tool.err);
  for (const char* text : {"7", "10"}) {
    Tried other;
    other.option("even", even, "")
        .check([](const int& number) { return number % 2 == 0 ? nullptr : "an even number"; })
        .check([](int number) { return number < 9 ? std::string() : std::string("less than 9"); });
    EXPECT_EQ(2, other.run({(std::string("--even=") + text).c_str()}));
    EXPECT_EQ(refused(std::string("Option 'even' does not take '") + text +
                      "', expected: " + (*text == '7' ? "an even number" : "less than 9")),
              other.err);
  }
}

TEST(ToolDeclarations, AChoiceIsCheckedAndRangedToo) {
  int level = 1;
  Tried tool;
  tool.option("level", level, "").choices({"1", "20"}).range(1, 9);
  EXPECT_EQ(2, tool.run({"--level=20"}));
  EXPECT_EQ(refused("Option 'level' does not take '20', expected: 1 to 9"), tool.err);
}

// A variable of the environment for the lifetime of this object.
class Environment {
 public:
  Environment(const char* name, const char* text) : m_name(name) { setenv(name, text, 1); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() { unsetenv(m_name); }

 private:
  const char* m_name;
};

TEST(ToolDeclarations, AValueThatLosesIsCheckedAndDeliveredToNobody) {
  int number = 1;
  std::string called;
  const auto call = [&](const char* text) { called += text; };
  const Environment first("TRIED_NUMBER", "5");
  const Environment second("TRIED_EACH", "lost");
  Tried tool;
  tool.option("number", number, "").env("TRIED_NUMBER").range(1, 9);
  tool.each("each", call, "").env("TRIED_EACH");
  EXPECT_EQ(-1, tool.run({"--number=2", "--each=won"}));
  EXPECT_EQ(2, number);
  EXPECT_EQ("won", called);
  Tried other;
  other.option("number", number, "").env("TRIED_NUMBER").range(1, 4);
  EXPECT_EQ(2, other.run({"--number=3"}));
  EXPECT_EQ(refused("Environment variable TRIED_NUMBER: Option 'number' does not take '5',"
                    " expected: 1 to 4"),
            other.err);
  EXPECT_EQ(2, number);
}

TEST(ToolDeclarations, ATruthOfTheEnvironmentIsCheckedToo) {
  bool truth = false;
  const Environment variable("TRIED_TRUTH", "1");
  const auto check = [](bool given) { return given ? "another day" : ""; };
  Tried tool;
  tool.option("truth", truth, "").env("TRIED_TRUTH").check(check);
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ(refused("Environment variable TRIED_TRUTH: Option 'truth' does not take 'true',"
                    " expected: another day"),
            tool.err);
  EXPECT_FALSE(truth);
  Tried other;
  other.option("truth", truth, "").env("TRIED_TRUTH");
  EXPECT_EQ(-1, other.run({}));
  EXPECT_TRUE(truth);
}

TEST(ToolDeclarations, GivenTellsHowOften) {
  int number = 0;
  bool truth = false;
  std::vector<std::string> list;
  std::vector<std::string> rest;
  Tried tool;
  const auto given = tool.option("number", number, "");
  const auto turned = tool.option("truth", truth, "");
  const auto listed = tool.option("list", list, "").split(',');
  const auto others = tool.rest("rest", rest, "");
  EXPECT_EQ(0U, given.given());
  EXPECT_EQ(-1, tool.run({"--number=1", "--number=2", "--no-truth", "--list=a,b", "x", "y", "z"}));
  EXPECT_EQ(2U, given.given());
  EXPECT_EQ(1U, turned.given());
  EXPECT_EQ(1U, listed.given());
  EXPECT_EQ(3U, others.given());
}

TEST(ToolDeclarations, OperandsTakeArgumentsInOrderAndTheRestTakesAllOthers) {
  std::string first;
  int second = 0;
  std::vector<double> rest;
  Tried tool;
  tool.operand("first", first, "");
  tool.operand("second", second, "");
  tool.rest("rest", rest, "");
  EXPECT_EQ(-1, tool.run({"a", "2", "0.5", "--", "-1.5"}));
  EXPECT_EQ("a", first);
  EXPECT_EQ(2, second);
  EXPECT_EQ((std::vector<double>{0.5, -1.5}), rest);
}

TEST(ToolDeclarations, OperandsHaveEveryType) {
  bool truth = false;
  char letter = ' ';
  std::uint64_t wide = 0;
  long double most = 0;
  std::vector<int> list;
  std::optional<std::string> text;
  std::string late = "default";
  Tried tool;
  tool.operand("truth", truth, "");
  tool.operand("letter", letter, "");
  tool.operand("wide", wide, "");
  tool.operand("most", most, "");
  tool.operand("list", list, "").split(',').range(1, 3);
  tool.operand("text", text, "");
  tool.operand("late", late, "");
  EXPECT_EQ(-1, tool.run({"1", "x", "0x1F", hasLongDouble ? "1e400" : "1e300", "1,2,3", "t"}))
      << tool.err;
  EXPECT_TRUE(truth);
  EXPECT_EQ('x', letter);
  EXPECT_EQ(31U, wide);
  EXPECT_EQ(std::strtold(hasLongDouble ? "1e400" : "1e300", nullptr), most);
  EXPECT_EQ((std::vector<int>{1, 2, 3}), list);
  EXPECT_EQ(std::optional<std::string>("t"), text);
  EXPECT_EQ("default", late);
}

template <class T, class Amend>
std::string refusedOperand(const char* text, Amend amend) {
  T value{};
  Tried tool;
  amend(tool.operand("x", value, ""));
  EXPECT_EQ(2, tool.run({"--", text}));
  EXPECT_EQ(T{}, value);
  return tool.err;
}

TEST(ToolDeclarations, AnOperandOfAnotherTypeIsRefused) {
  const auto none = [](auto&&) {};
  const auto wrong = [](const std::string& text, const char* expected) {
    return refused("Operand 'x' does not take '" + text + "', expected: " + expected);
  };
  EXPECT_EQ(wrong("a", "-2147483648 to 2147483647"), refusedOperand<int>("a", none));
  EXPECT_EQ(wrong("", "-2147483648 to 2147483647"), refusedOperand<int>("", none));
  EXPECT_EQ(wrong("-1", "0 to 65535"), refusedOperand<unsigned short>("-1", none));
  EXPECT_EQ(wrong("1ab", "0 to 18446744073709551615"), refusedOperand<std::uint64_t>("1ab", none));
  EXPECT_EQ(wrong("2", "1 or 0"), refusedOperand<bool>("2", none));
  EXPECT_EQ(wrong("ab", "one character"), refusedOperand<char>("ab", none));
  EXPECT_EQ(wrong("", "one character"), refusedOperand<char>("", none));
  EXPECT_EQ(wrong("9", "1 to 3"), refusedOperand<int>("9", [](auto&& x) { x.range(1, 3); }));
  for (const char* text : {"d", ""})
    EXPECT_EQ(wrong(text, "b, c"), refusedOperand<std::string>(text, [](auto&& x) {
                x.choices({"b", "c"});
              }));
  EXPECT_EQ(wrong("1,x", "-2147483648 to 2147483647"),
            refusedOperand<std::vector<int>>("1,x", [](auto&& x) { x.split(','); }));
}

TEST(ToolDeclarations, AnArgumentWithoutAnOperandIsUnexpected) {
  int number = 0;
  Tried tool;
  tool.operand("number", number, "");
  EXPECT_EQ(2, tool.run({"1", "two"}));
  EXPECT_EQ(refused("Unexpected argument: two"), tool.err);
  EXPECT_EQ(0, number);
}

TEST(ToolDeclarations, ATypographicDashBeginsAnOperandThatIsNoOption) {
  std::string one;
  Tried tool;
  tool.operand("one", one, "");
  EXPECT_EQ(2, tool.run({"\xE2\x80\x93x", "two"}));
  EXPECT_EQ(refused("Unexpected argument: two"), tool.err);
  Tried other;
  other.operand("one", one, "");
  EXPECT_EQ(-1, other.run({"\xE2\x80\x93x"}));
  EXPECT_EQ("\xE2\x80\x93x", one);
}

TEST(ToolDeclarations, AnUnknownOptionIsToldBeforeWhatMayBeItsValue) {
  int number = 0;
  Tried tool;
  tool.option("number", number, "");
  EXPECT_EQ(2, tool.run({"--nubmer", "5"}));
  EXPECT_EQ(refused("Unknown option: --nubmer. Did you mean '--number'?"), tool.err);
}

TEST(ToolDeclarations, AnOperandIsNoOptionAndDisturbsNoAbbreviation) {
  std::string file;
  std::string first;
  Tried tool;
  tool.operand("fi", file, "");
  tool.option("first", first, "");
  EXPECT_EQ(-1, tool.run({"--fi=x", "y"}));
  EXPECT_EQ("x", first);
  EXPECT_EQ("y", file);
  Tried other;
  other.operand("file", file, "");
  EXPECT_EQ(2, other.run({"--file=x"}));
  EXPECT_EQ(refused("Unknown option: --file=x"), other.err);
}

TEST(ToolDeclarations, AnOptionOfTheParserDisturbsNoDeclaration) {
  int number = 0;
  Tried tool;
  tool.option("number", number, "");
  tool.parser()->option("own", "", vtString);
  EXPECT_EQ(-1, tool.run({"--own", "x", "--number=3"}));
  EXPECT_EQ(3, number);
}

TEST(ToolDeclarations, ModifiersChainInAnyOrder) {
  std::vector<int> list;
  const auto expected = refused("Option 'list' does not take '3', expected: an even number");
  const auto even = [](int number) { return number % 2 == 0 ? "" : "an even number"; };
  Tried tool;
  tool.option("list", list, "").check(even).split(',').range(1, 9).placeholder("N").required();
  EXPECT_EQ(2, tool.run({"--list=2,3"}));
  EXPECT_EQ(expected, tool.err);
  Tried other;
  other.option("list", list, "").required().placeholder("N").range(1, 9).split(',').check(even);
  EXPECT_EQ(2, other.run({"--list=2,3"}));
  EXPECT_EQ(expected, other.err);
}

}  // namespace
}  // namespace kivo_3_3
