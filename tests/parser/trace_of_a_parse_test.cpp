// The whole trace of parses, compared with files.
// The expected traces are in the folder "traces". With KIVO_RENEW=1 in the environment the tests
// rewrite these files instead; read the difference before you keep it.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iostream>

#include "base/trace.h"
#include "support/command.h"
#include "support/console_capture.h"
#include "support/golden_file.h"
#include "support/recording_handler.h"
#include "support/temporary_folder.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using testing::ConsoleCapture;
using testing::RecordingHandler;
using testing::TemporaryFolder;
using Arguments = std::vector<string>;

constexpr const char* traceSwitch = "kivooption=kivologenable=1";

// What `act` writes to standard output; standard error must stay silent.
string traceOf(const std::function<void()>& act) {
  const ConsoleCapture console;
  act();
  EXPECT_EQ("", console.err());
  return console.out();
}

void declare(Command& command) {
  command.option("level,l", vtS32);
  command.option("name", vtString);
  command.option("raw", vtString)->tokenize('\0');
  command.option("flag", vtNull);
  command.option("verbose,v", vtBool);
  command.option("version", vtNull);
}

Arguments traced(Arguments args) {
  args.insert(args.begin(), traceSwitch);
  return args;
}

class TraceOfAParse : public ::testing::Test {
 protected:
  ~TraceOfAParse() override { internal::kivoLogEnabled = false; }

  static void compare(const string& fileName, const std::function<void()>& act) {
    testing::compareWithFile(string(TRACES_FOLDER) + "/" + fileName, traceOf(act));
  }
};

TEST_F(TraceOfAParse, MixOfArguments) {
  Command command(parserFlags::dashArgumentsAreNeverPositional);
  declare(command);
  command.option("files", vtString)->positional();
  compare("mix_of_arguments.txt", [&] {
    EXPECT_EQ(0, command.parse(traced({"--level=3", "-l", "4", "--name a,,b", "--raw=x,y",
                                       "--flag=", "--no-verb", "one,two", "-zz", "", "--", "left",
                                       "--level=9"})));
  });
  EXPECT_EQ(
      "level=3@+1 level=4@+3 name=a,b@+5 raw=x,y@+8 flag@+10 verbose=0@+11 files=one,two@+13 "
      "files@+16 | left@+17 --level=9@+18",
      command.render());
}

TEST_F(TraceOfAParse, BoundLeftovers) {
  Command command(parserFlags::leftoverArgumentsArePositional |
                  parserFlags::dashArgumentsAreNeverPositional);
  command.option("files", vtString)->positional();
  compare("bound_leftovers.txt", [&] {
    EXPECT_EQ(0, command.parse(traced({"--", "a,b", "-x", ""})));
  });
}

// The message in the trace is the error text of the last failure, although this parse succeeds.
TEST_F(TraceOfAParse, LeftoversWithAnOldMessage) {
  Command command(parserFlags::leftoverArgumentsArePositional |
                  parserFlags::unknownArgumentIsError);
  command.option("level", vtS32);
  compare("leftovers_with_an_old_message.txt", [&] {
    EXPECT_EQ(2, command.parse({"x"}));
    EXPECT_EQ(0, command.parse(traced({"--", "y"})));
  });
}

TEST_F(TraceOfAParse, FailingLeftovers) {
  Command command(parserFlags::leftoverArgumentsArePositional);
  command.option("level", vtS32)->positional();
  compare("failing_leftovers.txt", [&] {
    EXPECT_EQ(2, command.parse(traced({"--", "7", "x", "8"})));
    EXPECT_EQ(2, command.parse(traced({"--", ","})));
  });
}

TEST_F(TraceOfAParse, Failures) {
  Command command(parserFlags::unknownArgumentIsError);
  RecordingHandler handler;
  handler.refusedValues = {"66"};
  command.parser().addHandler(&handler);
  declare(command);
  const Arguments cases[] = {{"--unknown"},     {"--ver"},       {"--=1"},        {"--level"},
                             {"--level", "-5"}, {"--level", ""}, {"--flag=1"},    {"--verbose=1"},
                             {"--level=1,x"},   {"--name=,"},    {"--name=1,66"}, {"--raw=66"}};
  compare("failures.txt", [&] {
    for (const Arguments& args : cases) {
      std::cout << "$ " << ::testing::PrintToString(args) << "\n";
      EXPECT_NE(0, command.parse(traced(args)));
    }
  });
}

TEST_F(TraceOfAParse, OptionFiles) {
  const TemporaryFolder folder;
  folder.write("silent", "--level=1\n--\nleft in silence");
  folder.write("traced", string(traceSwitch) + "\n--level=2\n--\nleft");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  Command command;
  declare(command);
  command.optionFiles();
  compare("option_files.txt", [&] {
    std::cout << "$ on, then off\n";
    EXPECT_EQ(0, command.parse(traced({"--option-file=silent", "--flag"})));
    std::cout << "$ off, then on, then off\n";
    EXPECT_EQ(0, command.parse({"--option-file=traced,silent", "--flag"}));
    std::cout << "$ on, then off, then on, and unreadable\n";
    EXPECT_EQ(6, command.parse(traced({"--option-file=silent,traced,missing"})));
  });
  std::filesystem::current_path(before);
}

TEST_F(TraceOfAParse, RejectedDeclaration) {
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] { command.parser().option("v,level", "", vtS32, nullptr); };
  command.parser().addHandler(&handler);
  declare(command);
  compare("rejected_declaration.txt", [&] {
    command.parser().option("level", "", vtS32, nullptr);  // the trace is still off
    EXPECT_EQ(0, command.parse(traced({"--flag", "unknown"})));
    command.parser().option("new,no-verbose", "", vtS32, nullptr);  // the trace is still on
    command.parser().option("a,b,long", "", vtS32, nullptr);        // rejected without a trace
    command.parser().option("new", "", vtS32, nullptr);             // not rejected
  });
}

TEST_F(TraceOfAParse, IsNothingWithoutTheSwitch) {
  Command command(parserFlags::leftoverArgumentsArePositional);
  declare(command);
  command.option("files", vtString)->positional();
  EXPECT_EQ("", traceOf([&] {
              EXPECT_EQ(0, command.parse({"--level=3", "x", "--flag", "--", "left"}));
              EXPECT_EQ(2, command.parse({"--level"}));
              EXPECT_EQ(0, command.parseStream("--level=3\nx\n--\nleft"));
              command.parser().option("level", "", vtS32, nullptr);
            }));
}

TEST_F(TraceOfAParse, SwitchIsNeitherRecognizedNorStored) {
  Command command(parserFlags::unknownArgumentIsError);
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  command.option("files", vtString)->positional();
  string stored;
  const string trace = traceOf([&] { stored = command.parsed({traceSwitch, "x"}); });
  EXPECT_EQ("files=x@+1", stored);
  EXPECT_EQ("option files; value files=x", handler.events);
  EXPECT_EQ(string::npos, trace.find("kivolog"));
}

TEST_F(TraceOfAParse, EndsWithTheNextParse) {
  Command command;
  command.option("level", vtS32);
  traceOf([&] { command.parse({traceSwitch}); });
  EXPECT_TRUE(internal::kivoLogEnabled);
  EXPECT_EQ("", traceOf([&] { command.parse({"--level=3"}); }));
  EXPECT_FALSE(internal::kivoLogEnabled);
}

TEST_F(TraceOfAParse, StaysAsItWasWhereThereIsNothingToParse) {
  Command command;
  command.option("level", vtS32);
  traceOf([&] { command.parse({traceSwitch}); });
  command.parse({});  // the arguments are not walked, so the switch is not looked for
  EXPECT_TRUE(internal::kivoLogEnabled);
  command.parseStream("");
  EXPECT_FALSE(internal::kivoLogEnabled);
}

TEST_F(TraceOfAParse, IsSwitchedOnByTheFirstLineOfATextAndByNothingElse) {
  Command command;
  command.option("flag", vtNull);
  EXPECT_EQ(
      "PositionalOptionsParser: recognizing argument 'x'\n"
      "AbbreviationParser: recognizing argument 'x'\n"
      "ignoring x\n",
      traceOf([&] { command.parseStream("# a comment\n  kivooption=kivologenable=1\nx"); }));
  EXPECT_EQ("", traceOf([&] { command.parseStream("x\nkivooption=kivologenable=1\nx"); }));
  EXPECT_EQ("", traceOf([&] { command.parse({"kivooption=kivologenable=1 ", "x"}); }));
  EXPECT_EQ("", traceOf([&] { command.parse({"--", traceSwitch, "x"}); }));
}

TEST_F(TraceOfAParse, SecondSwitchIsAnUnknownArgument) {
  Command command;
  EXPECT_EQ(
      "PositionalOptionsParser: recognizing argument 'kivooption=kivologenable=1'\n"
      "AbbreviationParser: recognizing argument 'kivooption=kivologenable=1'\n"
      "ignoring kivooption=kivologenable=1\n",
      traceOf([&] {
        command.parse({traceSwitch, traceSwitch});
      }));
}

TEST_F(TraceOfAParse, ParseThatAHandlerStartsSwitchesItOff) {
  Command inner;
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] { inner.parse({"x"}); };
  command.parser().addHandler(&handler);
  EXPECT_EQ(
      "PositionalOptionsParser: recognizing argument 'y'\n"
      "AbbreviationParser: recognizing argument 'y'\n",
      traceOf([&] {
        command.parse({traceSwitch, "y", "z"});
      }));
}

}  // namespace

}  // namespace kivo_3_3
