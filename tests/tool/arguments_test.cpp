#include <ctime>
#include <string>
#include <vector>

#include "support/console_capture.h"
#include "tried.h"

// Empty values, lone dashes, and the words with which the layer hands them to the parser.

namespace kivo_3_3 {
namespace {

std::string refused(const std::string& reason) {
  return "tool: " + reason + "\nTry 'tool --help'.\n";
}

// The command line, with each value in brackets: "text=[x] rest=[a][b]".
std::string read(std::vector<const char*> words) {
  std::string text = "default";
  std::vector<std::string> rest;
  std::string each;
  Tried tool;
  tool.option("text,t", text, "");
  tool.each(
      "each,e", [&](const char* one) { each += std::string("[") + one + ']'; }, "");
  tool.rest("rest", rest, "");
  words.insert(words.begin(), "tool");
  if (tool.parse(static_cast<int>(words.size()), words.data()))
    return tool.err;
  std::string all = "text=[" + text + "] each=" + each + " rest=";
  for (const std::string& one : rest)
    all += '[' + one + ']';
  return all;
}

TEST(ToolArguments, AnEmptyValueIsTheEmptyText) {
  EXPECT_EQ("text=[] each= rest=", read({"--text="}));
  EXPECT_EQ("text=[] each= rest=", read({"--text", ""}));
  EXPECT_EQ("text=[] each= rest=", read({"-t="}));
  EXPECT_EQ("text=[] each= rest=", read({"-t", ""}));
  EXPECT_EQ("text=[] each= rest=", read({"--te", ""}));
  EXPECT_EQ("text=[] each= rest=[x]", read({"--text=", "x"}));
  EXPECT_EQ("text=[x] each=[][y][] rest=", read({"-e=", "-e", "y", "--text=x", "--each", ""}));
}

TEST(ToolArguments, AnEmptyOperandIsTheEmptyText) {
  EXPECT_EQ("text=[default] each= rest=[][a][]", read({"", "a", "--", ""}));
}

TEST(ToolArguments, AnEmptyValueIsNoValueForOtherTypes) {
  int number = 3;
  for (const std::initializer_list<const char*> words :
       {std::initializer_list<const char*>{"--number="}, {"--number", ""}}) {
    Tried tool;
    tool.option("number", number, "");
    EXPECT_EQ(2, tool.run(words));
    EXPECT_EQ(refused(std::string("Option 'number' requires a value in argument: '") +
                      *words.begin() + "'"),
              tool.err);
  }
  Tried tool;
  tool.option("number", number, "");
  EXPECT_EQ(-1, tool.run({"--number=", "5"}));
  EXPECT_EQ(5, number);
}

TEST(ToolArguments, AnEmptyItemOfAListIsNone) {
  std::vector<std::string> list;
  std::vector<std::string> whole;
  std::vector<std::string> rest;
  Tried tool;
  tool.option("list", list, "").split(',');
  tool.option("whole", whole, "").split(',');
  tool.rest("rest", rest, "").split(',');
  EXPECT_EQ(-1, tool.run({"--list=a,,b", "--whole=", "", "x,y"}));
  EXPECT_EQ((std::vector<std::string>{"a", "b"}), list);
  EXPECT_EQ((std::vector<std::string>{""}), whole);
  EXPECT_EQ((std::vector<std::string>{"", "x", "y"}), rest);
}

TEST(ToolArguments, ALoneDashIsAValue) {
  EXPECT_EQ("text=[-] each= rest=", read({"--text=-"}));
  EXPECT_EQ("text=[-] each= rest=", read({"--text", "-"}));
  EXPECT_EQ("text=[-] each= rest=", read({"-t", "-"}));
  EXPECT_EQ("text=[] each= rest=[-]", read({"--text=", "-"}));
  EXPECT_EQ("text=[default] each=[-][x][-] rest=", read({"-e", "-", "-e", "x", "-e=-"}));
}

TEST(ToolArguments, ALoneDashIsRefusedAsAnyOtherValue) {
  int number = 3;
  Tried tool;
  tool.option("number,n", number, "");
  EXPECT_EQ(2, tool.run({"-n", "-"}));
  EXPECT_EQ(refused("Value validation problem in argument '--number=-': Option 'number' can not"
                    " parse '-' value, requires a type 'integer' here."),
            tool.err);
  std::string tone;
  Tried other;
  other.option("tone", tone, "").choices({"-", "x"});
  EXPECT_EQ(-1, other.run({"--tone", "-"}));
  EXPECT_EQ("-", tone);
}

TEST(ToolArguments, ALoneDashIsAnOperand) {
  EXPECT_EQ("text=[default] each= rest=[-][a][-][-]", read({"-", "a", "-", "--", "-"}));
}

TEST(ToolArguments, ALoneDashWithoutAnOperandIsUnexpected) {
  Tried tool;
  EXPECT_EQ(2, tool.run({"-"}));
  EXPECT_EQ(refused("Unexpected argument: -"), tool.err);
  Tried other;
  EXPECT_EQ(2, other.run({"--", ""}));
  EXPECT_EQ(refused("Unexpected argument: "), other.err);
}

TEST(ToolArguments, WhatStandsAfterTwoDashesIsOperands) {
  EXPECT_EQ("text=[x] each= rest=[a][--text=y][--][--help][-t]",
            read({"--text=x", "a", "--", "--text=y", "--", "--help", "-t"}));
}

TEST(ToolArguments, HelpWinsOverErrorsButNotOverValues) {
  for (const std::initializer_list<const char*> words :
       {std::initializer_list<const char*>{"--number=x", "--help"},
        {"--wrong", "-h"},
        {"--number", "-h"},
        {"stray", "--he"}}) {
    int number = 0;
    Tried tool;
    tool.option("number", number, "");
    EXPECT_EQ(0, tool.run(words));
    EXPECT_EQ(tool.help(), tool.out);
  }
  EXPECT_EQ("text=[--help] each= rest=[-h]", read({"--text=--help", "--", "-h"}));
}

TEST(ToolArguments, AValueThatLooksLikeAnOptionIsToldSo) {
  EXPECT_EQ(refused("Option 'text' received value from the next argument: '--each', but it seems to"
                    " be an option. Use '-option=value' declaration form or make sure that value is"
                    " not missed"),
            read({"--text", "--each", "x"}));
  EXPECT_EQ(refused("Option 'text' received value from the next argument: '--', but it seems to"
                    " be an option. Use '-option=value' declaration form or make sure that value is"
                    " not missed"),
            read({"--text", "--", "x"}));
  EXPECT_EQ(refused("Option 'text' requires a value in argument: '--text'"), read({"--text"}));
}

TEST(ToolArguments, TheTraceSwitchIsNoOperandIfItComesFirst) {
  const testing::ConsoleCapture console;
  EXPECT_EQ("text=[default] each= rest=[x]", read({"kivooption=kivologenable=1", "x"}));
  EXPECT_NE("", console.out() + console.err());
  EXPECT_EQ("text=[default] each= rest=[x][kivooption=kivologenable=1]",
            read({"x", "kivooption=kivologenable=1"}));
}

TEST(ToolArguments, AnotherSwitchOfTheLibraryIsAnOperand) {
  Tried tool;
  EXPECT_EQ(2, tool.run({"kivooption=other"}));
  EXPECT_EQ(refused("Unexpected argument: kivooption=other"), tool.err);
  EXPECT_EQ("text=[default] each= rest=[kivooption=other][x]", read({"kivooption=other", "x"}));
}

TEST(ToolArguments, MarksAreNoWordsOfTheCommandLine) {
  EXPECT_EQ(
      "text=[\1] each=[\1"
      "0][] rest=[\1"
      "0][][\1"
      "1][\1"
      "2x][-]",
      read({"--text=\1", "-e",
            "\1"
            "0",
            "-e=",
            "\1"
            "0",
            "",
            "\1"
            "1",
            "\1"
            "2x",
            "-"}));
  EXPECT_EQ(
      "text=[] each=[\1\1][\1"
      "99999999999] rest=[]",
      read({"-t=", "-e=\1\1",
            "-e=\1"
            "99999999999",
            ""}));
}

TEST(ToolArguments, AMarkIsNotSplit) {
  for (const char separator : {'0', '\1'}) {
    std::vector<std::string> list;
    std::string text = "default";
    Tried tool;
    tool.option("list", list, "").split(separator);
    tool.option("text", text, "");
    EXPECT_EQ(2, tool.run({"--text=", "--list="}));
    EXPECT_EQ(refused("Option 'list' requires a value in argument: '--list='"), tool.err);
  }
}

// The seconds of processor time that the work takes.
template <class Work>
double secondsOf(Work work) {
  const std::clock_t begin = std::clock();
  work();
  return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

TEST(ToolArguments, ManyDashesAndEmptyValuesAreReadInLinearTime) {
  constexpr std::size_t many = 200'000;
  constexpr double most = 20;  // seconds; a quadratic walk takes minutes
  for (const char* word : {"-", "", "-t=", "\1"}) {
    SCOPED_TRACE(word);
    std::vector<std::string> rest;
    std::vector<std::string> texts;
    Tried tool;
    tool.option("texts,t", texts, "");
    tool.rest("rest", rest, "");
    const std::vector<const char*> words(many, word);
    EXPECT_LT(secondsOf([&] { EXPECT_FALSE(tool.parse(static_cast<int>(many), words.data())); }),
              most);
    EXPECT_EQ(many - 1, rest.size() + texts.size());
  }
}

TEST(ToolArguments, ManyNumbersAsOperandsAreReadInLinearTime) {
  constexpr std::size_t many = 100'000;
  constexpr double most = 20;  // seconds; an emulated processor takes ten
  std::vector<int> rest;
  Tried tool;
  tool.rest("rest", rest, "");
  const std::vector<const char*> words(many, "12");
  EXPECT_LT(secondsOf([&] { EXPECT_FALSE(tool.parse(static_cast<int>(many), words.data())); }),
            most);
  EXPECT_EQ(std::vector<int>(many - 1, 12), rest);
}

TEST(ToolArguments, AValueMayBeVeryLong) {
  constexpr std::size_t length = 10'000'000;
  for (const char character : {'x', '\1', '-', '9', ','}) {
    const std::string value = 'y' + std::string(length, character);
    const std::string argument = "--text=" + value;
    EXPECT_EQ("text=[" + value + "] each=[] rest=[" + value + "]",
              read({argument.c_str(), "-e=", value.c_str()}));
  }
}

TEST(ToolArguments, AVeryLongNumberIsRefused) {
  const std::string digits(10'000'000, '9');
  unsigned long wide = 0;
  long double most = 0;
  Tried tool;
  tool.option("wide", wide, "");
  EXPECT_EQ(2, tool.run({"--wide", digits.c_str()}));
  Tried other;
  other.option("most", most, "");
  EXPECT_EQ(2, other.run({"--most", digits.c_str()}));
  if (hasLongDouble) {
    EXPECT_EQ(refused("Option 'most' does not take '" + digits +
                      "', expected: -1.18973e+4932 to 1.18973e+4932"),
              other.err);
  }
}

}  // namespace
}  // namespace kivo_3_3
