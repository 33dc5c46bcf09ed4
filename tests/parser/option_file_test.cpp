// Arguments from texts: how a text is split, and option files on a command line.

#include "parser/option_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/white_space.h"
#include "support/arguments.h"
#include "support/command.h"
#include "support/global_locale.h"
#include "support/recording_handler.h"
#include "support/stored.h"
#include "support/temporary_folder.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using testing::givenTo;
using testing::RecordingHandler;
using testing::TemporaryFolder;
using Arguments = std::vector<string>;

Arguments split(const char* text) {
  const WhiteSpace isSpace;
  return testing::leftOf(parseStreamToArgs(text, isSpace));
}

TEST(Splitting, MakesOneArgumentALine) {
  EXPECT_EQ((Arguments{"-a", "-b value "}), split("-a\n\n  #note\n;x\n  -b value \r"));
}

TEST(Splitting, CutsAtLineFeedsAndStripsOnlyTheFront) {
  const struct {
    const char* text;
    Arguments args;
  } cases[] = {
      {"", {}},
      {"\n", {}},
      {"\n\n\n", {}},
      {" \t\v\f\r \n  ", {}},  // nothing but white space
      {"-a", {"-a"}},          // the last line needs no line feed
      {"-a -b", {"-a -b"}},
      {"-a\n-b", {"-a", "-b"}},
      {"-a\r\n-b\r\r\n", {"-a", "-b"}},  // carriage returns at the end are dropped
      {"-a\rb\n", {"-a\rb"}},            // those inside stay
      {"-a\r \n", {"-a\r "}},            // those before a blank stay
      {" \t\v\f\r-a\n", {"-a"}},
      {"-a \t\n", {"-a \t"}},
      {"--name=two words\n", {"--name=two words"}},
      {"\"a b\" 'c' \\n\n", {"\"a b\" 'c' \\n"}},  // nothing is quoted or escaped
      {"a,b\n", {"a,b"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(c.args, split(c.text));
  }
}

TEST(Splitting, CommentSignCountsOnlyAtTheBeginning) {
  const struct {
    const char* text;
    Arguments args;
  } cases[] = {
      {"#", {}},
      {";", {}},
      {"#-a\n-b", {"-b"}},
      {"; -a\n-b", {"-b"}},
      {"  # -a", {}},
      {"\t;-a\n", {}},
      {"-a #x", {"-a #x"}},
      {"-a;x", {"-a;x"}},
      {"\r#x\n-a", {"-a"}},
      {"//x", {"//x"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(c.args, split(c.text));
  }
}

TEST(Splitting, WholeTextOfMinusOneIsAQuestionMark) {
  EXPECT_EQ((Arguments{"?"}), split("-1"));
  EXPECT_EQ((Arguments{"-1"}), split("-1\n"));
  EXPECT_EQ((Arguments{"-1"}), split(" -1"));
  EXPECT_EQ((Arguments{"-1", "-1"}), split("-1\n-1"));
}

TEST(Splitting, NullTextIsEmpty) { EXPECT_EQ(Arguments{}, split(nullptr)); }

TEST(Splitting, WhiteSpaceIsWhatTheGlobalLocaleSays) {
  const testing::GlobalLocale locale(testing::localeWithUnderscoreAsSpace());
  EXPECT_EQ((Arguments{"-a_", " #x"}), split("__-a_\n_#x\n #x\n___\n"));
}

TEST(ParseStream, ParsesOneArgumentALine) {
  Command command;
  command.option("name", vtString);
  command.option("level", vtS32);
  EXPECT_EQ(0, command.parseStream("--name=two words\n# note\n--level\n3\n--\nrest here\n"));
  EXPECT_EQ("name=two words@+1 level=3@+3 | rest here@+5", command.render());
}

TEST(ParseStream, AppliesNoDefaults) {
  Command command;
  command.option("level", vtS32)->defaultValue(2);
  EXPECT_EQ(0, command.parseStream("# nothing"));
  EXPECT_EQ("", command.render());
  EXPECT_EQ(0, command.positionsDrawn());
}

TEST(ParseStream, KeepsTheDefaultsOfAnEarlierParse) {
  Command command;
  command.option("level", vtS32)->defaultValue(2);
  EXPECT_EQ(0, command.parse({}));
  EXPECT_EQ(0, command.parser().parseStream("--level=3", &command.result()));
  EXPECT_EQ("level(2)@+1 level=3@+2", command.render());
}

TEST(ParseStream, FirstLineIsAnArgumentNotTheNameOfATool) {
  Command command(parserFlags::unknownArgumentIsError);
  EXPECT_EQ(2, command.parseStream("tool\n--level=3"));
  EXPECT_STREQ("Unknown option: tool", command.error());
}

TEST(ParseStream, NullTextParsesNothing) {
  Command command;
  command.action("run");
  EXPECT_EQ(0, command.parseStream(nullptr));
  command.option("level", vtS32)->defaultValue(2);
  EXPECT_EQ(0, command.parse({}));
  EXPECT_EQ(2, command.parser().parseStream(nullptr, &command.result()));
  EXPECT_STREQ("No action defined.", command.error());
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  EXPECT_EQ(0, command.parseStream(nullptr));
}

TEST(ParseStream, NullResultIsCheckedAndAnnounced) {
  Command command;
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ(0, command.parser().parseStream("--level=3", nullptr));
  EXPECT_EQ("option level; value level=3", handler.events);
  EXPECT_EQ(2, command.parser().parseStream("--level", nullptr));
  EXPECT_STREQ("Option 'level' requires a value in argument: '--level'", command.error());
}

TEST(OptionFileOption, IsAStringOptionInItsGroup) {
  Command command;
  EXPECT_TRUE(command.parser().addOptionFileOption("Reads more", "files:Files"));
  EXPECT_TRUE(command.parser().isOptionDeclared("option-file", false, "files"));
  EXPECT_FALSE(command.parser().isOptionDeclared("option-file", true, nullptr));
  EXPECT_TRUE(command.parser().addOptionFileOption(nullptr, nullptr));  // rejected, yet true
  EXPECT_TRUE(command.parser().isOptionDeclared("option-file", false, "files"));
}

// A parser with the option for option files, and a folder for such files.
class OptionFiles : public ::testing::Test {
 protected:
  OptionFiles() {
    command.option("level", vtS32);
    command.optionFiles();
  }

  // Parses with these option files on the command line.
  int read(const Arguments& files) {
    Arguments args;
    for (const string& file : files)
      args.push_back("--option-file=" + folder.path(file));
    return command.parse(args);
  }

  // The stored values of `level`, in order.
  string levels() {
    string text;
    for (Value v = command.result().get("level", 0, lastPosition); v.isEmpty == 0;
         v = command.result().next("level"))
      text += v.text;
    return text;
  }

  void write(const char* name, const string& text) { folder.write(name, text); }
  string include(const char* name) { return "--option-file=" + folder.path(name) + "\n"; }
  string unreadable(const char* name) {
    return "Error reading option file '" + folder.path(name) + "'";
  }

  TemporaryFolder folder;
  Command command;
};

TEST_F(OptionFiles, AreParsedIntoTheSameResultAfterTheCommandLine) {
  write("a", "# levels\n--level=1\n  --level=2\r\n");
  EXPECT_EQ(0, command.parse({"--option-file", folder.path("a"), "--level=9"}));
  EXPECT_EQ("912", levels());
}

TEST_F(OptionFiles, AreNotReadWithoutAResult) {
  const string file = "--option-file=" + folder.path("none");
  const char* const argv[] = {"tool", file.c_str()};
  EXPECT_EQ(0, command.parser().parseArgsVector(2, argv, nullptr));
}

TEST_F(OptionFiles, EndAtTheirFirstZeroByte) {
  write("a", string("--level=1\n--level=2\0\n--level=3\n", 31));
  EXPECT_EQ(0, command.parse({"--option-file", folder.path("a")}));
  EXPECT_EQ("12", levels());
}

TEST_F(OptionFiles, AreReadInTheOrderGiven) {
  write("a", "--level=1");
  write("b", "--level=2");
  EXPECT_EQ(0, read({"b", "a", "b"}));  // one file may be read twice
  EXPECT_EQ("212", levels());
}

TEST_F(OptionFiles, OneGivenTwiceMayNameAnother) {
  write("a", "--level=1\n" + include("b"));
  write("b", "--level=2");
  EXPECT_EQ(0, read({"a", "a"}));
  EXPECT_EQ("1122", levels());
}

TEST_F(OptionFiles, MayBeGivenInOneArgument) {
  write("a", "--level=1");
  write("b", "--level=2");
  EXPECT_EQ(0, command.parse({"--option-file=" + folder.path("a") + "," + folder.path("b")}));
  EXPECT_EQ("12", levels());
}

TEST_F(OptionFiles, NameFurtherFilesThatAreReadInTurn) {
  write("a", "--level=1\n" + include("c") + "--level=2");
  write("b", "--level=3");
  write("c", "--level=4");
  EXPECT_EQ(0, read({"a", "b"}));
  EXPECT_EQ("1234", levels());  // a file is read after those named before it
  EXPECT_EQ(3u, givenTo(command.result(), "option-file").values.size());
}

TEST_F(OptionFiles, AddLeftoverArguments) {
  write("a", "--level=1\n--\nfrom file\n--level=2");
  EXPECT_EQ(0, command.parse({"--option-file=" + folder.path("a"), "--", "from line"}));
  EXPECT_EQ("1", levels());
  const auto& arguments = command.result().arguments();
  ASSERT_EQ(3u, arguments.size());
  EXPECT_STREQ("from line", arguments[0].text);
  EXPECT_STREQ("from file", arguments[1].text);
  EXPECT_STREQ("--level=2", arguments[2].text);
}

TEST_F(OptionFiles, ValueIsNotTakenAcrossTheEndOfAFile) {
  write("a", "--level\n");
  write("b", "3\n");
  EXPECT_EQ(2, read({"a", "b"}));
  EXPECT_STREQ("Option 'level' requires a value in argument: '--level'", command.error());
}

TEST_F(OptionFiles, MissingOneEndsTheParse) {
  write("a", "--level=1");
  EXPECT_EQ(6, read({"a", "missing"}));
  EXPECT_EQ(unreadable("missing"), command.error());
  EXPECT_EQ("1", levels());  // what was stored before stays
}

TEST_F(OptionFiles, MissingOneEndsTheParseBeforeTheRulesForActions) {
  command.action("run");
  EXPECT_EQ(6, read({"missing"}));
}

TEST_F(OptionFiles, DirectoryCannotBeRead) {
  EXPECT_EQ(6, read({"."}));
  EXPECT_EQ(unreadable("."), command.error());
}

// /proc/self/mem can be opened, but its first byte cannot be read.
TEST_F(OptionFiles, OneThatOpensButCannotBeReadIsUnreadable) {
  ASSERT_TRUE(std::filesystem::exists("/proc/self/mem"));
  EXPECT_EQ("6: Error reading option file '/proc/self/mem'",
            command.parsed({"--option-file=/proc/self/mem"}));
}

TEST_F(OptionFiles, EmptyOneGivesNothing) {
  write("empty", "");
  write("notes", "# notes\n; only\n\n");
  EXPECT_EQ(0, read({"empty", "notes"}));
  EXPECT_EQ("", levels());
}

TEST_F(OptionFiles, FileOfMinusOneIsAQuestionMark) {
  Command strict(parserFlags::unknownArgumentIsError);
  strict.optionFiles();
  write("a", "-1");
  EXPECT_EQ("2: Unknown option: ?", strict.parsed({"--option-file=" + folder.path("a")}));
}

TEST_F(OptionFiles, FailureInsideIsTheFailureOfTheParse) {
  write("a", "--level=1\n--level=x\n--level=2");
  EXPECT_EQ(2, read({"a"}));
  EXPECT_STREQ(
      "Value validation problem in argument '--level=x': Option 'level' can not parse 'x' value, "
      "requires a type 'integer' here.",
      command.error());
  EXPECT_EQ("1", levels());
}

TEST_F(OptionFiles, HandlerMayRefuseWhatTheyHold) {
  RecordingHandler handler;
  handler.refusedValues = {"7"};
  command.parser().addHandler(&handler);
  write("a", "--level=7");
  EXPECT_EQ(1, read({"a"}));
  EXPECT_STREQ("Value '7' is not valid for option 'level' in argument '--level=7'",
               command.error());
}

TEST_F(OptionFiles, RulesForActionsAreCheckedOnceAfterAll) {
  command.action("run");
  write("a", "--level=1");
  write("b", "--run");
  EXPECT_EQ(0, read({"a", "b"}));
  EXPECT_EQ(2, read({"a"}));
  EXPECT_STREQ("No action defined.", command.error());
}

TEST_F(OptionFiles, DefaultFileIsRead) {
  write("a", "--level=1\n" + include("b"));
  write("b", "--level=2");
  Command withDefault;
  withDefault.option("level", vtS32);
  withDefault.option("option-file", vtString)->defaultValue(folder.path("a").c_str());
  withDefault.parser().addOptionFileOption("", nullptr);  // rejected, but files are read now
  EXPECT_EQ(0, withDefault.parse({"x"}));
  EXPECT_EQ(2u, givenTo(withDefault.result(), "level").values.size());
  EXPECT_EQ(0, withDefault.parse({}));  // no arguments: only the defaults are stored
  EXPECT_FALSE(withDefault.result().options().find("level"));
}

TEST_F(OptionFiles, DefaultFileThatNamesItselfIsReadOnce) {
  write("a", "--level=1\n" + include("a"));
  Command withDefault;
  withDefault.option("level", vtS32);
  withDefault.option("option-file", vtString)->defaultValue(folder.path("a").c_str());
  withDefault.parser().addOptionFileOption("", nullptr);  // rejected, but files are read now
  EXPECT_EQ(6, withDefault.parse({"x"}));
  EXPECT_EQ(unreadable("a"), withDefault.error());
  EXPECT_EQ(1u, givenTo(withDefault.result(), "level").values.size());
}

TEST_F(OptionFiles, OptionOfThatNameAloneReadsNothing) {
  Command other;
  other.option("option-file", vtString);
  EXPECT_EQ("option-file=missing@+1", other.parsed({"--option-file=missing"}));
}

TEST_F(OptionFiles, FlagOfThatNameNamesNoFile) {
  Command other;
  other.option("option-file", vtNull);
  other.optionFiles();  // rejected, but files would be read now
  EXPECT_EQ(0, other.parse({"--option-file"}));
}

TEST_F(OptionFiles, TextsHandedToParseStreamMayNameThem) {
  write("a", "--level=1");
  EXPECT_EQ(0, command.parseStream(("--level=5\n" + include("a")).c_str()));
  EXPECT_EQ("51", levels());
}

TEST_F(OptionFiles, HandlerMayQueryTheResultWhileTheyAreRead) {
  RecordingHandler handler;
  handler.alsoDo = [&] {
    command.result().present("level", 0, lastPosition);
    command.result().get("unknown", 0, 1);
  };
  command.parser().addHandler(&handler);
  write("a", "--level=1");
  write("b", "--level=2");
  write("c", "--level=3");
  EXPECT_EQ(0, read({"a", "b", "c"}));
  EXPECT_EQ("123", levels());
}

TEST_F(OptionFiles, SecondParseIntoTheSameResultReadsThemAgain) {
  write("a", "--level=1");
  EXPECT_EQ(0, read({"a"}));
  EXPECT_EQ(0, command.parseMore({"--level=2"}));
  EXPECT_EQ("121", levels());
}

TEST_F(OptionFiles, RingOfOneIsUnreadable) {
  write("a", "--level=1\n" + include("a") + "--level=2");
  EXPECT_EQ(6, read({"a"}));
  EXPECT_EQ(unreadable("a"), command.error());
  EXPECT_EQ("12", levels());
}

TEST_F(OptionFiles, RingThroughOthersIsUnreadable) {
  write("a", "--level=1\n" + include("b"));
  write("b", "--level=2\n" + include("c"));
  write("c", "--level=3\n" + include("a"));
  EXPECT_EQ(6, read({"a"}));
  EXPECT_EQ(unreadable("a"), command.error());
  EXPECT_EQ("123", levels());
}

TEST_F(OptionFiles, RingThatDoesNotHoldTheFirstFileIsUnreadable) {
  write("a", "--level=1\n" + include("b"));
  write("b", "--level=2\n" + include("c"));
  write("c", "--level=3\n" + include("b"));
  EXPECT_EQ(6, read({"a"}));
  EXPECT_EQ(unreadable("b"), command.error());
  EXPECT_EQ("123", levels());
}

TEST_F(OptionFiles, RingThatBeginsWithADefaultIsUnreadable) {
  write("a", "--level=1\n" + include("a"));
  Command other;
  other.option("option-file", vtString)->defaultValue(folder.path("a").c_str());
  other.optionFiles();
  EXPECT_EQ(6, other.parse({"x"}));
  EXPECT_EQ(unreadable("a"), other.error());
}

TEST_F(OptionFiles, RingUnderAnotherSpellingIsARing) {
  write("a", "--level=1\n" + include("./a"));
  EXPECT_EQ(6, read({"a"}));
  EXPECT_EQ(unreadable("./a"), command.error());
  EXPECT_EQ("1", levels());
}

TEST_F(OptionFiles, RingThroughALinkIsARing) {
  write("a", "--level=1\n" + include("link"));
  std::filesystem::create_symlink(folder.path("a"), folder.path("link"));
  EXPECT_EQ(6, read({"a"}));
  EXPECT_EQ(unreadable("link"), command.error());
  EXPECT_EQ("1", levels());
}

TEST_F(OptionFiles, FileNamedByTwoOthersIsNoRing) {
  write("a", include("shared"));
  write("b", include("shared") + include("c"));
  write("c", include("shared"));
  write("shared", "--level=1");
  EXPECT_EQ(0, read({"a", "b", "shared"}));
  EXPECT_EQ("1111", levels());
}

TEST_F(OptionFiles, FileNamedTwiceByOneIsNoRing) {
  write("a", include("b") + include("b"));
  write("b", "--level=1\n" + include("c"));
  write("c", "--level=2");
  EXPECT_EQ(0, read({"a"}));
  EXPECT_EQ("1122", levels());
}

TEST_F(OptionFiles, ManyAreReadOneAfterTheOther) {
  for (int i = 0; i < 200; ++i)
    write(std::to_string(i).c_str(),
          "--level=1\n" + (i < 199 ? include(std::to_string(i + 1).c_str()) : ""));
  EXPECT_EQ(0, read({"0"}));
  EXPECT_EQ(200u, levels().size());
}

}  // namespace

}  // namespace kivo_3_3
