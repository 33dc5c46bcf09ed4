#include <chrono>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "tried.h"

// Commands are found by their words, and each has options and operands of its own.

namespace kivo_3_3 {
namespace {

// An archive whose commands note what they got.
class ToolCommands : public ::testing::Test {
 protected:
  ToolCommands() {
    tool.flag("verbose,v", verbose, "Tell what is done.");
    tool.option("level,l", level, "How hard to try.").range(1, 9);
    tool.command("pack", "Pack files.", [this](Tool& inner) { return note(inner, "pack"); });
    tool.command("patch", "Patch a file.", [this](Tool& inner) { return note(inner, "patch"); });
    tool.command("remote add", "Add a remote.", [this](Tool& inner) { return note(inner, "add"); });
    tool.command("remote list", "List the remotes.",
                 [this](Tool& inner) { return note(inner, "list"); });
    tool.command("show", "Show all.", [this](Tool& inner) { return note(inner, "show"); });
    tool.command("show one", "Show one.", [this](Tool& inner) { return note(inner, "show one"); });
  }

  int note(Tool& inner, const std::string& name) {
    std::vector<std::string> files;
    inner.rest("file", files, "What.");
    if (const std::optional<int> exit = inner.parse())
      return *exit;
    called = name;
    for (const std::string& file : files)
      called += ' ' + file;
    return 7;
  }

  Tried tool{"archive"};
  bool verbose = false;
  int level = 5;
  std::string called;
};

TEST_F(ToolCommands, GiveTheStatusOfTheirFunction) {
  EXPECT_EQ(7, tool.run({"pack", "a", "b"}));
  EXPECT_EQ("pack a b", called);
  EXPECT_EQ("", tool.out + tool.err);
}

TEST_F(ToolCommands, MayHaveSeveralWords) {
  EXPECT_EQ(7, tool.run({"remote", "add", "origin"}));
  EXPECT_EQ("add origin", called);
}

TEST_F(ToolCommands, MayBeCutShort) {
  EXPECT_EQ(7, tool.run({"rem", "l"}));
  EXPECT_EQ("list", called);
}

TEST_F(ToolCommands, InFullAreNotAmbiguous) {
  tool.command("package", "Make a package.",
               [this](Tool& inner) { return note(inner, "package"); });
  EXPECT_EQ(7, tool.run({"pack", "a"}));
  EXPECT_EQ("pack a", called);
}

TEST_F(ToolCommands, AreRefusedIfCutTooShort) {
  EXPECT_EQ(2, tool.run({"pa", "a"}));
  EXPECT_EQ(
      "archive: Ambiguous command 'pa', it may be: 'pack', 'patch'\n"
      "Try 'archive --help'.\n",
      tool.err);
}

TEST_F(ToolCommands, AreSuggestedForAMisspeltOne) {
  EXPECT_EQ(2, tool.run({"pakc"}));
  EXPECT_EQ(
      "archive: Unknown command: pakc. Did you mean 'pack'?\n"
      "Try 'archive --help'.\n",
      tool.err);
}

TEST_F(ToolCommands, AreSuggestedAmongThoseThatGoOn) {
  EXPECT_EQ(2, tool.run({"remote", "lits"}));
  EXPECT_EQ(
      "archive: Unknown command: remote lits. Did you mean 'list'?\n"
      "Try 'archive --help'.\n",
      tool.err);
}

TEST_F(ToolCommands, AreNotMeantByAnEmptyWord) {
  EXPECT_EQ(2, tool.run({"remote", ""}));
  EXPECT_EQ("archive: Unknown command: remote \nTry 'archive --help'.\n", tool.err);
}

TEST(ToolCommand, AloneIsNotMeantByAnEmptyWord) {
  Tried tool("archive");
  tool.command("pack", "Pack files.", [](Tool& inner) { return inner.parse().value_or(7); });
  EXPECT_EQ(2, tool.run({""}));
  EXPECT_EQ("archive: Unknown command: \nTry 'archive --help'.\n", tool.err);
}

TEST_F(ToolCommands, AreRequired) {
  EXPECT_EQ(2, tool.run({"-v"}));
  EXPECT_EQ("archive: A command is required\nTry 'archive --help'.\n", tool.err);
}

TEST_F(ToolCommands, AreListedForAFirstWordAlone) {
  EXPECT_EQ(0, tool.run({"-v", "remote"}));
  EXPECT_EQ(
      "  remote add   Add a remote.\n"
      "  remote list  List the remotes.\n",
      tool.out);
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolCommands, AreNotListedForAFirstWordWithAMistake) {
  EXPECT_EQ(2, tool.run({"remote", "--verbos=1"}));
  EXPECT_EQ("", tool.out);
  EXPECT_NE("", tool.err);
}

TEST_F(ToolCommands, DoNotBeginAfterTwoDashes) {
  EXPECT_EQ(2, tool.run({"--", "pack"}));
  EXPECT_EQ("archive: Unexpected argument: pack\nTry 'archive --help'.\n", tool.err);
}

TEST_F(ToolCommands, DoNotGoOnAfterTwoDashes) {
  EXPECT_EQ(7, tool.run({"show", "--", "one"}));
  EXPECT_EQ("show one", called);
}

TEST_F(ToolCommands, WithTheMostWordsWin) {
  EXPECT_EQ(7, tool.run({"show", "o"}));
  EXPECT_EQ("show one", called);
}

TEST_F(ToolCommands, AreWholeIfTheNextWordDoesNotGoOn) {
  EXPECT_EQ(7, tool.run({"show", "two", "one"}));
  EXPECT_EQ("show two one", called);
}

TEST_F(ToolCommands, HaveTheOptionsOfTheTool) {
  EXPECT_EQ(7, tool.run({"--level", "3", "remote", "-v", "add", "here", "--le=4"}));
  EXPECT_EQ("add here", called);
  EXPECT_TRUE(verbose);
  EXPECT_EQ(4, level);
}

TEST_F(ToolCommands, AreNotTheValueOfAnOption) {
  EXPECT_EQ(2, tool.run({"--level", "pack", "show"}));
  EXPECT_EQ("", called);
  EXPECT_EQ(5, level);
}

TEST_F(ToolCommands, AreNotReachedWithAWrongOptionBefore) {
  EXPECT_EQ(2, tool.run({"--lev=12", "pack"}));
  EXPECT_EQ(
      "archive: Option 'level' does not take '12', expected: 1 to 9\n"
      "Try 'archive pack --help'.\n",
      tool.err);
}

TEST_F(ToolCommands, AreFoundAfterAnUnknownOption) {
  EXPECT_EQ(2, tool.run({"--bogus", "pack", "a"}));
  EXPECT_EQ("archive: Unknown option: --bogus\nTry 'archive pack --help'.\n", tool.err);
  EXPECT_EQ("", called);
}

TEST_F(ToolCommands, AreRequiredAfterAnUnknownOption) {
  EXPECT_EQ(2, tool.run({"--verbsoe"}));
  EXPECT_EQ(
      "archive: Unknown option: --verbsoe. Did you mean '--verbose'?\n"
      "Try 'archive --help'.\n",
      tool.err);
}

TEST_F(ToolCommands, MayComeAfterAHelpOfTheToolsOwn) {
  std::string topic;
  tool.option("help,h", topic, "Tells about a topic.");
  EXPECT_EQ(7, tool.run({"--help", "show", "pack", "-h=x"})) << tool.err;
  EXPECT_EQ("pack", called);
  EXPECT_EQ("x", topic);
}

TEST_F(ToolCommands, HideNamesOfTheToolInTheirHelp) {
  std::string text;
  tool.command("dig", "Dig.", [&](Tool& inner) {
    inner.option("level,verbose,v", text, "How deep.");
    return inner.parse().value_or(7);
  });
  EXPECT_EQ(0, tool.run({"dig", "--help"}));
  EXPECT_EQ(
      "Usage: archive dig [OPTION]...\n"
      "\n"
      "Dig.\n"
      "\n"
      "Options:\n"
      "  -v, --level, --verbose=LEVEL  How deep.\n"
      "  -l=LEVEL                      How hard to try. From 1 to 9. Default: 5.\n"
      "  -h, --help                    Show this help.\n"
      "  -V, --version                 Show the version.\n",
      tool.out);
}

TEST_F(ToolCommands, TakeALoneDashAsOperand) {
  EXPECT_EQ(7, tool.run({"pack", "-"}));
  EXPECT_EQ("pack -", called);
}

TEST_F(ToolCommands, TakeASwitchOfTheLibraryAsOperand) {
  EXPECT_EQ(7, tool.run({"pack", "kivooption=kivodescribe=json"}));
  EXPECT_EQ("pack kivooption=kivodescribe=json", called);
}

TEST_F(ToolCommands, TakeTheSwitchForTracesAsOperand) {
  EXPECT_EQ(7, tool.run({"pack", "kivooption=kivologenable=1"}));
  EXPECT_EQ("pack kivooption=kivologenable=1", called);
}

TEST_F(ToolCommands, AreNotFoundAfterAnUnknownSwitch) {
  EXPECT_EQ(2, tool.run({"kivooption=nothing", "pack", "a"}));
  EXPECT_EQ("archive: Unknown command: kivooption=nothing\nTry 'archive --help'.\n", tool.err);
}

TEST_F(ToolCommands, HaveHelpOfTheirOwn) {
  EXPECT_EQ(0, tool.run({"pack", "--help"}));
  EXPECT_EQ(0U, tool.out.find("Usage: archive pack [OPTION]... [FILE...]\n\nPack files.\n"))
      << tool.out;
  EXPECT_EQ("", called);
}

TEST_F(ToolCommands, HaveHelpThatWinsOverErrors) {
  EXPECT_EQ(0, tool.run({"--level=99", "pack", "--bogus", "-h"}));
  EXPECT_EQ(0U, tool.out.find("Usage: archive pack ")) << tool.out;
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolCommands, HaveNoHelpBeforeTheirWords) {
  EXPECT_EQ(0, tool.run({"--help", "pack"}));
  EXPECT_EQ(0U, tool.out.find("Usage: archive [OPTION]... COMMAND ...\n")) << tool.out;
}

TEST_F(ToolCommands, ThatAreUnknownDoNotHideTheHelp) {
  EXPECT_EQ(0, tool.run({"bogus", "--level", "3", "more", "--help"}));
  EXPECT_EQ(0U, tool.out.find("Usage: archive [OPTION]... COMMAND ...\n")) << tool.out;
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolCommands, ThatAreUnknownHideTheHelpAfterTwoDashes) {
  EXPECT_EQ(2, tool.run({"bogus", "--", "--help"}));
  EXPECT_EQ("archive: Unknown command: bogus\nTry 'archive --help'.\n", tool.err);
}

TEST_F(ToolCommands, ShareTheVersionOfTheTool) {
  EXPECT_EQ(0, tool.run({"pack", "-V"}));
  EXPECT_EQ("archive 1.0\n", tool.out);
}

TEST_F(ToolCommands, ReportErrorsWithTheWayToTheirHelp) {
  EXPECT_EQ(2, tool.run({"pack", "--bogus"}));
  EXPECT_NE(std::string::npos, tool.err.find("\nTry 'archive pack --help'.\n")) << tool.err;
}

TEST(ToolCommandOptions, MayShareNamesAmongCommands) {
  int times = 0;
  std::string text;
  Tried tool;
  tool.command("count", "Count.", [&](Tool& inner) {
    inner.option("value", times, "A number.");
    return inner.parse().value_or(0);
  });
  tool.command("say", "Say.", [&](Tool& inner) {
    inner.option("value", text, "A text.");
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(0, tool.run({"say", "--value=x"}));
  EXPECT_EQ("x", text);
  EXPECT_EQ(0, times);
}

TEST(ToolCommandOptions, HideThoseOfTheToolOfTheSameName) {
  std::string ofTool;
  bool ofCommand = false;
  Tried tool;
  tool.option("output,o", ofTool, "Of the tool.");
  tool.command("pack", "Pack files.", [&](Tool& inner) {
    inner.flag("output", ofCommand, "Of the command.");
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(0, tool.run({"pack", "--output", "-o", "x"}));
  EXPECT_TRUE(ofCommand);
  EXPECT_EQ("x", ofTool);
}

TEST(ToolCommandOptions, DoNotChangeWhatWasTypedBeforeTheCommand) {
  std::string ofTool;
  bool ofCommand = false;
  Tried tool;
  tool.option("output", ofTool, "Of the tool.");
  tool.command("pack", "Pack files.", [&](Tool& inner) {
    inner.flag("output", ofCommand, "Of the command.");
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(0, tool.run({"--output", "x", "pack"})) << tool.err;
  EXPECT_EQ("x", ofTool);
  EXPECT_FALSE(ofCommand);
}

TEST(ToolCommandOptions, DoNotMakeAmbiguousWhatWasTypedBeforeTheCommand) {
  bool ofTool = true, ofCommand = false;
  Tried tool;
  tool.option("verbose", ofTool, "Of the tool.");
  tool.command("pack", "Pack files.", [&](Tool& inner) {
    inner.flag("verbatim,no-verbs", ofCommand, "Of the command.");
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(0, tool.run({"--no-verb", "pack"})) << tool.err;
  EXPECT_FALSE(ofTool);
  EXPECT_FALSE(ofCommand);
}

TEST(ToolCommandOptions, MayBeTurnedOffBeforeTheCommandByANameThatBeginsAnother) {
  bool ofTool = true;
  Tried tool;
  tool.option("verb,no-verbs", ofTool, "Of the tool.");
  tool.command("pack", "Pack files.", [](Tool& inner) { return inner.parse().value_or(7); });
  EXPECT_EQ(7, tool.run({"--no-verb", "pack"})) << tool.err;
  EXPECT_FALSE(ofTool);
}

TEST(ToolCommandOptions, TakeTheNextWordWhereLongerCommandsGoOn) {
  std::string name;
  Tried tool;
  tool.command("remote", "Show a remote.", [&](Tool& inner) {
    inner.option("name", name, "Which.");
    return inner.parse().value_or(7);
  });
  tool.command("remote add", "Add a remote.",
               [](Tool& inner) { return inner.parse().value_or(8); });
  EXPECT_EQ(7, tool.run({"remote", "--name", "add", "--name", "add"})) << tool.err;
  EXPECT_EQ("add", name);
}

TEST(ToolCommandFunction, MayThrow) {
  Tried tool;
  tool.command("fall", "Fall.", [](Tool& inner) -> int {
    bool flag = false;
    inner.flag("flag", flag, "A flag.");
    if (const std::optional<int> exit = inner.parse())
      return *exit;
    throw std::runtime_error("fallen");
  });
  EXPECT_THROW(tool.run({"fall", "--flag"}), std::runtime_error);
  EXPECT_EQ("", tool.out + tool.err);
}

TEST(ToolCommandFunction, MayThrowThatMemoryRanOut) {
  Tried tool;
  tool.command("fall", "Fall.", [](Tool&) -> int { throw std::bad_alloc(); });
  EXPECT_THROW(tool.run({"fall"}), std::bad_alloc);
}

TEST(ToolCommandFunction, MayFail) {
  Tried tool("archive");
  tool.usageStatus(64);
  tool.command("pack", "Pack files.", [](Tool& inner) {
    return inner.parse().value_or(inner.fail("there is nothing to pack"));
  });
  EXPECT_EQ(64, tool.run({"pack"}));
  EXPECT_EQ("archive: there is nothing to pack\nTry 'archive pack --help'.\n", tool.err);
}

TEST(ToolCommandFunction, MayAskForItsHelp) {
  std::string help;
  Tried tool("archive");
  tool.command("pack", "Pack files.", [&](Tool& inner) {
    help = inner.help();
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(0, tool.run({"pack"}));
  EXPECT_EQ(0U, help.find("Usage: archive pack [OPTION]...\n\nPack files.\n")) << help;
}

TEST(ToolCommandGroups, MayNameOptionsOfTheTool) {
  bool quiet = false, loud = false;
  Tried tool("archive");
  tool.flag("quiet", quiet, "Say less.");
  tool.command("pack", "Pack files.", [&](Tool& inner) {
    inner.flag("loud", loud, "Say more.");
    inner.exactlyOne({"quiet", "loud"});
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(2, tool.run({"--quiet", "pack", "--loud"}));
  EXPECT_EQ(
      "archive: At most one of these may be given: --quiet, --loud\n"
      "Try 'archive pack --help'.\n",
      tool.err);
}

TEST(ToolCommandGroups, OfTheToolHoldForEachCommand) {
  bool quiet = false, loud = false;
  Tried tool("archive");
  tool.flag("quiet,q", quiet, "Say less.");
  tool.flag("loud,l", loud, "Say more.");
  tool.exactlyOne({"q", "loud"});
  tool.command("pack", "Pack files.", [](Tool& inner) { return inner.parse().value_or(0); });
  EXPECT_EQ(2, tool.run({"pack"}));
  EXPECT_EQ(
      "archive: One of these is required: -q, --loud\n"
      "Try 'archive pack --help'.\n",
      tool.err);
}

TEST(ToolManyCommands, TakeNoLongerThanTheirNumber) {
  constexpr int many = 10000;
  Tried tool;
  for (int number = 0; number < many; ++number)
    tool.command(("command" + std::to_string(number)).c_str(), "One of many.",
                 [number](Tool& inner) { return inner.parse().value_or(number); });
  const auto before = std::chrono::steady_clock::now();
  EXPECT_EQ(9999, tool.run({"command9999"}));
  EXPECT_GT(std::chrono::seconds(5), std::chrono::steady_clock::now() - before);
}

}  // namespace
}  // namespace kivo_3_3
