#include <stdlib.h>
#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "tried.h"

// The environment and a configuration file stand below the command line.

namespace kivo_3_3 {
namespace {

// A tool with one option of each kind, and a file for its configuration.
class ToolSources : public ::testing::Test {
 protected:
  ToolSources() {
    char folder[] = "/tmp/kivo-tool-XXXXXX";
    m_folder = mkdtemp(folder);
    path = m_folder + "/rc";
    tool.option("times,t", times, "How often.").range(1, 9).env("TRIED_TIMES");
    tool.option("name", names, "Whom.").env("TRIED_NAME");
    tool.option("tone", tone, "How.").choices({"formal", "friendly"}).env("TRIED_TONE");
    tool.option("loud", loud, "Be loud.").env("TRIED_LOUD");
    tool.flag("quick", quick, "Be quick.").env("TRIED_QUICK");
    tool.count("more,m", more, "Tell more.").env("TRIED_MORE");
    tool.config("config", path.c_str(), "Where the options are.").env("TRIED_CONFIG");
  }
  ~ToolSources() override {
    for (const char* name : {"TIMES", "NAME", "TONE", "LOUD", "QUICK", "MORE", "CONFIG"})
      unsetenv((std::string("TRIED_") + name).c_str());
    std::remove(path.c_str());
    std::remove(m_folder.c_str());
  }
  void write(const std::string& text) const { std::ofstream(path, std::ios::binary) << text; }
  // The reason of an error whose place is in the configuration file.
  std::string reason() const {
    const std::string start = "tool: " + path + ':';
    const std::string end = "\nTry 'tool --help'.\n";
    EXPECT_EQ(start, tool.err.substr(0, start.size())) << tool.err;
    return tool.err.substr(start.size(), tool.err.size() - start.size() - end.size());
  }

  int times = 1;
  std::vector<std::string> names{"Nobody"};
  std::string tone = "formal";
  bool loud = false, quick = false;
  int more = 5;
  std::string path;
  Tried tool;

 private:
  std::string m_folder;
};

using Strings = std::vector<std::string>;

TEST_F(ToolSources, AFileCountsMoreThanTheDefault) {
  write("--times=3\n--name\nAda\n--name=Bob\n--loud\n--quick\n-m\n-m\n");
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  EXPECT_EQ(3, times);
  EXPECT_EQ((Strings{"Ada", "Bob"}), names);
  EXPECT_TRUE(loud);
  EXPECT_TRUE(quick);
  EXPECT_EQ(2, more);
}

TEST_F(ToolSources, TheEnvironmentCountsMoreThanAFile) {
  write("--times=3\n--name=Ada\n--name=Bob\n--loud\n--quick\n-m\n-m\n");
  setenv("TRIED_TIMES", "4", 1);
  setenv("TRIED_NAME", "Eve", 1);
  setenv("TRIED_LOUD", "0", 1);
  setenv("TRIED_QUICK", "false", 1);
  setenv("TRIED_MORE", "0", 1);
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  EXPECT_EQ(4, times);
  EXPECT_EQ((Strings{"Eve"}), names);
  EXPECT_FALSE(loud);
  EXPECT_FALSE(quick);
  EXPECT_EQ(0, more);
}

TEST_F(ToolSources, TheCommandLineCountsMost) {
  write("--times=3\n--name=Ada\n");
  setenv("TRIED_TIMES", "4", 1);
  setenv("TRIED_NAME", "Eve", 1);
  EXPECT_EQ(-1, tool.run({"--times=5", "--name=Joe"}));
  EXPECT_EQ(5, times);
  EXPECT_EQ((Strings{"Joe"}), names);
}

TEST_F(ToolSources, AValueThatLosesIsChecked) {
  setenv("TRIED_TIMES", "10", 1);
  EXPECT_EQ(2, tool.run({"--times=5"}));
  EXPECT_EQ(
      "tool: Environment variable TRIED_TIMES: Option 'times' does not take '10', expected: 1 to "
      "9\nTry 'tool --help'.\n",
      tool.err);
  EXPECT_EQ(1, times);
}

TEST_F(ToolSources, TruthsOfTheEnvironmentAreFourTexts) {
  for (const char* text : {"1", "true"}) {
    Tried fresh;
    bool on = false;
    fresh.option("on", on, "On.").env("TRIED_LOUD");
    setenv("TRIED_LOUD", text, 1);
    EXPECT_EQ(-1, fresh.run({}));
    EXPECT_TRUE(on) << text;
  }
  setenv("TRIED_LOUD", "yes", 1);
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ(
      "tool: Environment variable TRIED_LOUD: expected 1, 0, true or false\nTry 'tool --help'.\n",
      tool.err);
}

TEST_F(ToolSources, ATruthOfTheEnvironmentSetsAFlag) {
  setenv("TRIED_QUICK", "true", 1);
  setenv("TRIED_LOUD", "1", 1);
  EXPECT_EQ(-1, tool.run({}));
  EXPECT_TRUE(quick);
  EXPECT_TRUE(loud);
}

TEST_F(ToolSources, ACountOfTheEnvironmentIsANumber) {
  setenv("TRIED_MORE", "3", 1);
  EXPECT_EQ(-1, tool.run({}));
  EXPECT_EQ(3, more);
}

TEST_F(ToolSources, ACountOfTheEnvironmentHasALimit) {
  for (const char* text : {"-1", "1x", "1000001", "99999999999999999999"}) {
    Tried fresh;
    int count = 0;
    fresh.count("c", count, "Count.").env("TRIED_MORE");
    setenv("TRIED_MORE", text, 1);
    EXPECT_EQ(2, fresh.run({})) << text;
    EXPECT_EQ(
        "tool: Environment variable TRIED_MORE: expected a number up to 1000000\nTry 'tool "
        "--help'.\n",
        fresh.err);
  }
}

TEST_F(ToolSources, ACountOfTheEnvironmentReachesItsLimit) {
  setenv("TRIED_MORE", "1000000", 1);
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  EXPECT_EQ(1'000'000, more);
}

TEST_F(ToolSources, TheLastFileThatIsNamedIsRead) {
  write("--times=3\n");
  EXPECT_EQ(-1, tool.run({"--config=/dev/null", ("--config=" + path).c_str()})) << tool.err;
  EXPECT_EQ(3, times);
}

TEST_F(ToolSources, LineEndsOfOtherSystemsBelongToNoValue) {
  write("--name=Ada\r\n\t --name\r\nBob\r\r\n  \r\n");
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  EXPECT_EQ((Strings{"Ada", "Bob"}), names);
}

TEST_F(ToolSources, AnEmptyVariableCountsAsUnset) {
  for (const char* name : {"TRIED_TIMES", "TRIED_LOUD", "TRIED_MORE", "TRIED_NAME"})
    setenv(name, "", 1);
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  EXPECT_EQ((Strings{"Nobody"}), names);
}

TEST_F(ToolSources, ADefaultFileMayBeAbsentANamedOneMayNot) {
  EXPECT_EQ(2, tool.run({"--config=/tmp/kivo-absent"}));
  EXPECT_EQ("tool: Cannot read '/tmp/kivo-absent': No such file or directory\nTry 'tool --help'.\n",
            tool.err);
}

TEST_F(ToolSources, AFileMayBeNamedByTheEnvironment) {
  setenv("TRIED_CONFIG", "/", 1);
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("tool: Cannot read '/': Is a directory\nTry 'tool --help'.\n", tool.err);
}

TEST_F(ToolSources, AnEndlessFileIsRefused) {
  EXPECT_EQ(2, tool.run({"--config=/dev/zero"}));
  EXPECT_EQ("tool: Cannot read '/dev/zero': File too large\nTry 'tool --help'.\n", tool.err);
}

TEST_F(ToolSources, ErrorsOfAFileNameItsLine) {
  write("# a comment\n; another\n\n  --times=3\r\n--tims=4\n");
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("5: Unknown option: --tims=4. Did you mean '--times'?", reason());
  EXPECT_EQ(1, times);
}

TEST_F(ToolSources, AMisspeltOptionOfAFileHasASuggestion) {
  write("\n--qiuck\n");
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("2: Unknown option: --qiuck. Did you mean '--quick'?", reason());
}

TEST_F(ToolSources, AValueInTheNextLineIsReadWithItsOption) {
  write("--times\n\n12\n");
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("1: Option 'times' does not take '12', expected: 1 to 9", reason());
}

TEST_F(ToolSources, TheNextOptionIsNoValue) {
  write("--times\n--loud\n");
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("1: Option 'times' requires a value in argument: '--times'", reason());
}

TEST_F(ToolSources, AFileGivesEmptyTextsAndDashes) {
  write("--name=\n--name\n-\n--name=x");
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  EXPECT_EQ((Strings{"", "-", "x"}), names);
}

TEST_F(ToolSources, AFileCannotGiveHelpOrAnotherFile) {
  write("--help\n");
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("1: A configuration file cannot give '--help'", reason());
}

TEST_F(ToolSources, AFileCannotNameAnotherOne) {
  write("--config=/dev/null\n");
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("1: A configuration file cannot give '--config'", reason());
}

TEST_F(ToolSources, OperandsOfAFileAreCounted) {
  std::string first = "none";
  tool.operand("first", first, "The first.");
  write("one\n--\n--two\n");
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("3: Unexpected argument: --two", reason());
  EXPECT_EQ("none", first);
}

TEST_F(ToolSources, AFileGivesOperands) {
  Strings all;
  tool.rest("all", all, "All.");
  write("one\n-\n--\n--two\nkivooption=kivologenable=1\n");
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  EXPECT_EQ((Strings{"one", "-", "--two", "kivooption=kivologenable=1"}), all);
}

TEST_F(ToolSources, ABinaryFileIsRefused) {
  write(std::string("--name=a\0b\n", 11));
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("1: A line of text cannot hold a zero byte", reason());
}

TEST_F(ToolSources, LongLinesAndVariablesAreRead) {
  const std::string text(10'000'000, 'x');
  write("--name=x\n--tone=" + text + '\n');
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("2: Value validation problem in argument '--tone=xxx", reason().substr(0, 51));
  EXPECT_EQ((Strings{"Nobody"}), names);
}

TEST_F(ToolSources, APipeIsReadAsAFile) {
  ASSERT_EQ(0, mkfifo(path.c_str(), 0600));
  std::FILE* const both = std::fopen(path.c_str(), "r+");
  ASSERT_NE(nullptr, both);
  std::fclose(both);
  std::FILE* const other = popen(("echo --times=7 > '" + path + "'").c_str(), "r");
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  pclose(other);
  EXPECT_EQ(7, times);
}

TEST_F(ToolSources, ADeprecatedChoiceOfAFileIsReplacedWithoutAWarning) {
  std::string color = "red";
  tool.option("color", color, "Which.").choices({"red", "blue"}).deprecatedChoice("b", "blue");
  write("--color=b\n");
  testing::internal::CaptureStderr();
  EXPECT_EQ(-1, tool.run({}));
  EXPECT_EQ("", testing::internal::GetCapturedStderr() + tool.err);
  EXPECT_EQ("blue", color);
}

TEST_F(ToolSources, ADeprecatedChoiceOfTheEnvironmentIsReplacedWithoutAWarning) {
  std::string color = "red";
  tool.option("color", color, "Which.")
      .choices({"red", "blue"})
      .deprecatedChoice("azure", "blue")
      .env("TRIED_NAME");
  setenv("TRIED_NAME", "az", 1);
  testing::internal::CaptureStderr();
  EXPECT_EQ(-1, tool.run({}));
  EXPECT_EQ("", testing::internal::GetCapturedStderr() + tool.err);
  EXPECT_EQ("blue", color);
}

TEST(ToolSourcesAtHome, WithoutAHomeThereIsNoFile) {
  const char* const home = getenv("HOME");
  const std::string kept = home != nullptr ? home : "";
  for (const bool isSet : {true, false}) {
    isSet ? setenv("HOME", "", 1) : unsetenv("HOME");
    Tried tool;
    tool.config("config", "~/", "Options.");
    EXPECT_EQ(-1, tool.run({})) << tool.err;
  }
  setenv("HOME", "/dev/null", 1);  // nothing is below it
  Tried tool;
  tool.config("config", "~/rc", "Options.");
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  setenv("HOME", "/", 1);
  Tried plain;
  plain.config("config", "~usr", "Options.");  // of a user who is called usr
  EXPECT_EQ(-1, plain.run({})) << plain.err;
  setenv("HOME", "/usr", 1);
  Tried other;
  other.config("config", "~/", "Options.");
  EXPECT_EQ(2, other.run({}));
  EXPECT_EQ("tool: Cannot read '/usr/': Is a directory\nTry 'tool --help'.\n", other.err);
  setenv("HOME", kept.c_str(), 1);
}

TEST_F(ToolSources, WhatDoesNotGoWithTheActionIsPassedOver) {
  int level = 0;
  bool isDone = false;
  tool.action("go", "Go.", [&] { return (isDone = true) ? 0 : 1; });
  tool.action("stay", "Stay.", [] { return 0; });
  tool.option("level", level, "How far.").only("stay").env("TRIED_TIMES").required();
  write("--level=7\n");
  EXPECT_EQ(0, tool.run({"--go"})) << tool.err;
  EXPECT_TRUE(isDone);
  EXPECT_EQ(0, level);
}

TEST_F(ToolSources, AVariableThatDoesNotGoWithTheActionIsPassedOver) {
  int level = 1;
  setenv("TRIED_LOUD", "no number", 1);
  Tried fresh;
  fresh.action("go", "Go.", [] { return 7; });
  fresh.action("going", "Go on.", [] { return 8; });
  fresh.option("level", level, "How far.").only("going").env("TRIED_LOUD").required();
  EXPECT_EQ(7, fresh.run({"--go"})) << fresh.err;
  EXPECT_EQ(1, level);
}

TEST_F(ToolSources, AFileGivesNoAction) {
  tool.action("go", "Go.", [] { return 0; });
  write("--go\n");
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("1: An action is given on the command line alone: --go", reason());
}

TEST_F(ToolSources, AVariableGivesAnOperand) {
  std::string file = "none";
  std::vector<int> numbers;
  Tried fresh;
  fresh.operand("file", file, "A file.").env("TRIED_NAME").required();
  fresh.rest("number", numbers, "Numbers.").env("TRIED_TIMES").range(1, 9);
  setenv("TRIED_NAME", "there", 1);
  setenv("TRIED_TIMES", "7", 1);
  EXPECT_EQ(-1, fresh.run({})) << fresh.err;
  EXPECT_EQ("there", file);
  EXPECT_EQ((std::vector<int>{7}), numbers);
}

TEST_F(ToolSources, AnOperandOfTheCommandLineCountsMoreThanItsVariable) {
  std::string file;
  Tried fresh;
  fresh.operand("file", file, "A file.").env("TRIED_NAME");
  setenv("TRIED_NAME", "there", 1);
  EXPECT_EQ(-1, fresh.run({"here"})) << fresh.err;
  EXPECT_EQ("here", file);
}

TEST_F(ToolSources, ErrorsOfAnOperandTellTheVariable) {
  Tried fresh;
  fresh.operand("tone", tone, "How.").choices({"formal", "friendly"}).env("TRIED_TONE");
  setenv("TRIED_TONE", "frmal", 1);
  EXPECT_EQ(2, fresh.run({}));
  EXPECT_EQ(
      "tool: Environment variable TRIED_TONE: Operand 'tone' does not take 'frmal', expected: "
      "formal, friendly. Did you mean 'formal'?\nTry 'tool --help'.\n",
      fresh.err);
}

// Options without a value that may not be given as often.
class ToolSourcesOfUses : public ToolSources {
 protected:
  ToolSourcesOfUses() {
    fresh.count("more", more, "Tell more.").range(0, 2).env("TRIED_MORE");
    fresh.flag("quick", quick, "Be quick.").env("TRIED_QUICK").check([](bool) {
      return "patience";
    });
    fresh.config("config", path.c_str(), "Where the options are.");
  }
  Tried fresh;
};

TEST_F(ToolSourcesOfUses, ErrorsOfACountTellTheVariable) {
  setenv("TRIED_MORE", "3", 1);
  EXPECT_EQ(2, fresh.run({"--more"}));  // a number that loses is checked all the same
  EXPECT_EQ(
      "tool: Environment variable TRIED_MORE: Option 'more' does not take '3', expected: 0 to 2\n"
      "Try 'tool --help'.\n",
      fresh.err);
}

TEST_F(ToolSourcesOfUses, ErrorsOfAFlagTellTheVariable) {
  setenv("TRIED_QUICK", "1", 1);
  EXPECT_EQ(2, fresh.run({}));
  EXPECT_EQ(
      "tool: Environment variable TRIED_QUICK: Option 'quick' does not take '1', expected: "
      "patience\nTry 'tool --help'.\n",
      fresh.err);
}

TEST_F(ToolSourcesOfUses, ACheckIsCalledOnceForEachSource) {
  const auto checkedBy = [this](std::initializer_list<const char*> arguments) {
    Tried counting;
    std::vector<int> checked;
    counting.count("more", more, "Tell more.").env("TRIED_MORE").check([&](int count) {
      checked.push_back(count);
      return "";
    });
    counting.config("config", path.c_str(), "Where the options are.");
    EXPECT_EQ(-1, counting.run(arguments)) << counting.err;
    return checked;
  };
  setenv("TRIED_MORE", "3", 1);
  write("--more\n--more\n");
  EXPECT_EQ((std::vector<int>{3, 2, 1}), checkedBy({"--more"}));
  EXPECT_EQ((std::vector<int>{3, 2}), checkedBy({}));
  write("");
  EXPECT_EQ(std::vector<int>{3}, checkedBy({}));
}

TEST_F(ToolSourcesOfUses, FilesAreCountedTogether) {
  const std::string second = path + "2";
  fresh.config("second", second.c_str(), "More options.");
  write("--more\n--more\n");
  std::ofstream(second) << "\n--more\n";
  EXPECT_EQ(2, fresh.run({}));
  EXPECT_EQ("tool: " + second +
                ":2: Option 'more' does not take '3', expected: 0 to 2\nTry 'tool --help'.\n",
            fresh.err);
  std::remove(second.c_str());
}

TEST_F(ToolSourcesOfUses, ErrorsTellTheLineOfTheLastUse) {
  write("--more\n--more\n\n--more\n# end\n");
  EXPECT_EQ(2, fresh.run({"--more"}));
  EXPECT_EQ("tool: " + path +
                ":4: Option 'more' does not take '3', expected: 0 to 2\nTry 'tool --help'.\n",
            fresh.err);
}

TEST_F(ToolSources, DeprecatedOptionsAreWarnedOfOnTheCommandLineAlone) {
  Tried fresh;
  fresh.option("times", times, "How often.").env("TRIED_TIMES").deprecated("use --more");
  fresh.config("config", path.c_str(), "Where the options are.");
  setenv("TRIED_TIMES", "7", 1);
  write("--times=8\n");
  EXPECT_EQ(-1, fresh.run({}));
  EXPECT_EQ(7, times);
  EXPECT_EQ("", fresh.err);
}

TEST_F(ToolSources, WhatAFileGivesForAnotherActionWasNotGiven) {
  int level = 1;
  Tried fresh;
  fresh.action("go", "Go.", [] { return 7; });
  fresh.action("stay", "Stay.", [] { return 8; });
  const auto option = fresh.option("level", level, "How far.").only("stay");
  fresh.config("config", path.c_str(), "Where the options are.");
  write("--level=7\n");
  EXPECT_EQ(7, fresh.run({"--go"})) << fresh.err;
  EXPECT_EQ(0U, option.given());
  EXPECT_EQ(1, level);
}

TEST_F(ToolSources, AFileOfAnotherActionIsNotRead) {
  Tried fresh;
  fresh.action("go", "Go.", [] { return 7; });
  fresh.action("stay", "Stay.", [] { return 8; });
  fresh.config("config", path.c_str(), "Where the options are.").only("stay");
  write("--unheard\n");
  EXPECT_EQ(7, fresh.run({"--go"})) << fresh.err;
  Tried again;
  again.action("stay", "Stay.", [] { return 8; });
  again.config("config", path.c_str(), "Where the options are.").only("stay");
  EXPECT_EQ(2, again.run({"--stay"}));
}

}  // namespace
}  // namespace kivo_3_3
