// The steps of one parse: defaults, arguments, leftover arguments, and the arguments that are left
// when the parse fails.

#include <gtest/gtest.h>

#include <stdexcept>

#include "parser/basic_parser.h"
#include "recognizers/argument_parser.h"
#include "support/arguments.h"
#include "support/command.h"
#include "support/recording_handler.h"
#include "support/stored.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using testing::givenTo;
using testing::leftOf;
using testing::RecordingHandler;
using testing::WindowOn;
using Arguments = std::vector<string>;

constexpr int unknownIsError = parserFlags::unknownArgumentIsError;
constexpr int leftoversToo = parserFlags::leftoverArgumentsArePositional;
constexpr int noDashes = parserFlags::dashArgumentsAreNeverPositional;

BasicParser& basic(Command& command) { return static_cast<BasicParser&>(command.parser()); }

int parseWith(Command& command, int argc, const char* const* argv) {
  return command.parser().parseArgsVector(argc, argv, &command.result());
}

TEST(ParseArgsVector, WithoutArgumentsStoresTheDefaultsAlone) {
  for (const int argc : {1, 0, -1}) {
    SCOPED_TRACE(argc);
    Command command;
    command.option("level", vtS32)->defaultValue(2);
    command.action("run");  // the rules for actions are not applied
    const char* argv[] = {"tool", "--run"};
    EXPECT_EQ(0, parseWith(command, argc, argv));
    EXPECT_EQ(1u, command.result().options().names().size());
    EXPECT_STREQ("2", command.result().get("level", 0, lastPosition).text);
  }
}

TEST(ParseArgsVector, SkipsTheNameOfTheTool) {
  Command command(unknownIsError);
  command.option("level", vtS32);
  const char* named[] = {"--level=1", "--level=2"};
  EXPECT_EQ(0, parseWith(command, 2, named));
  EXPECT_EQ(1u, givenTo(command.result(), "level").positions.size());
  const char* nameless[] = {nullptr, "--level=2"};
  EXPECT_EQ(0, parseWith(command, 2, nameless));
  EXPECT_EQ(2u, givenTo(command.result(), "level").positions.size());
}

TEST(ParseArgsVector, NullEndsTheArguments) {
  Command command;
  command.option("flag", vtNull);
  const char* argv[] = {"tool", "--flag", nullptr, "--flag"};
  EXPECT_EQ(0, parseWith(command, 4, argv));
  EXPECT_EQ(1u, givenTo(command.result(), "flag").positions.size());
  EXPECT_EQ(0, parseWith(command, 4, nullptr));
  const char* nothing[] = {"tool", nullptr, "--flag", "--flag"};
  EXPECT_EQ(0, parseWith(command, 4, nothing));
  EXPECT_EQ(1u, givenTo(command.result(), "flag").positions.size());
}

TEST(ParseArgsVector, NullArgvHoldsNoArguments) {
  Command command;
  command.action("run");
  command.option("level", vtS32)->defaultValue(3);
  EXPECT_EQ(0, parseWith(command, 1, nullptr));
  EXPECT_EQ(2, parseWith(command, 2, nullptr));
  EXPECT_STREQ("No action defined.", command.error());
}

TEST(ParseArgsVector, DefaultsComeBeforeEveryArgument) {
  Command command;
  command.option("level", vtS32)->defaultValue(2);
  command.option("depth", vtS32)->defaultValue(5);
  EXPECT_EQ("level(2)@+1 depth(5)@+2 depth=7@+3 level=3@+5",
            command.parsed({"--depth=7", "--level=3"}));
}

TEST(ParseArgsVector, DefaultThatCannotBeStoredLeavesTheErrorTextAlone) {
  Command command(unknownIsError);
  command.parse({"x"});
  command.option("", vtS32)->defaultValue(2);
  EXPECT_EQ(3, command.parse({"y"}));
  EXPECT_STREQ("Unknown option: x", command.error());
}

TEST(Separator, ArgumentsAfterItAreKept) {
  Command command;
  command.option("files", vtString)->positional();
  EXPECT_EQ("files=a@+1 | b@+3 c@+4", command.parsed({"a", "--", "b", "c"}));
}

TEST(Separator, IsDroppedOnlyOnce) {
  Command command;
  EXPECT_EQ("| a@+1 --@+2 b@+3 --@+4", command.parsed({"--", "a", "--", "b", "--"}));
  EXPECT_EQ("", command.parsed({"--"}));
}

TEST(Separator, NothingAfterItIsRecognized) {
  Command command(unknownIsError);
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ("| --level=x@+1 unknown@+2 @+3", command.parsed({"--", "--level=x", "unknown", ""}));
  EXPECT_EQ("", handler.events);
}

TEST(Separator, IsSpelledWithHyphens) {
  Command command(unknownIsError);
  EXPECT_EQ("2: Unknown option: \u2013", command.parsed({"\u2013", "x"}));
  EXPECT_EQ("2: Unknown option: ---", command.parsed({"---", "x"}));
}

TEST(UnknownArgument, IsDroppedByDefault) {
  Command command;
  command.option("level", vtS32);
  EXPECT_EQ("level=3@+1", command.parsed({"x", "--unknown=1", "--level=3", "-", ""}));
}

TEST(UnknownArgument, NeverFailsWithoutTheFlagWhateverHandlersSay) {
  Command command;
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  EXPECT_EQ(0, command.parse({"x"}));
  handler.acceptsUnknown = false;
  EXPECT_EQ(0, command.parse({"y"}));
  EXPECT_EQ("unknown x; unknown y", handler.events);
}

TEST(UnknownArgument, IsAnErrorOnDemand) {
  Command command(unknownIsError);
  command.option("level", vtS32);
  const char* const cases[] = {"x", "--unknown=1", "-", "", "---", "a b"};
  for (const char* argument : cases) {
    SCOPED_TRACE(argument);
    EXPECT_EQ(2, command.parse({"--level=3", argument, "z"}));
    EXPECT_EQ("Unknown option: " + string(argument), command.error());
    EXPECT_EQ("level=3@+1", command.render());
    EXPECT_EQ(2, command.positionsDrawn());
  }
}

TEST(UnknownArgument, IsIgnoredIfAHandlerReturnsFalse) {
  Command command(unknownIsError);
  RecordingHandler handlers[2];
  handlers[1].acceptsUnknown = false;
  for (RecordingHandler& handler : handlers)
    command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ("level=3@+1", command.parsed({"x", "--level=3"}));
  EXPECT_EQ("unknown x; option level; value level=3", handlers[0].events);
}

TEST(TraceSwitch, IsAnOrdinaryArgumentAnywhereButFirst) {
  const char* const traceSwitch = "kivooption=kivologenable=1";
  Command command(unknownIsError);
  command.option("flag", vtNull);
  EXPECT_EQ("2: Unknown option: kivooption=kivologenable=1",
            command.parsed({"--flag", traceSwitch}));
  EXPECT_EQ("2: Unknown option: kivooption=kivologenable=0",
            command.parsed({"kivooption=kivologenable=0"}));
  command.option("files", vtString)->positional();
  EXPECT_EQ("flag@+1 files=kivooption=kivologenable=1@+2", command.parsed({"--flag", traceSwitch}));
}

TEST(LeftoverBinding, GivesEachArgumentToThePositionalOptionToo) {
  Command command(leftoversToo);
  command.option("files", vtString)->positional();
  EXPECT_EQ("files=a@+1 files=b@+4 files=c,d@+7 | b@+3 c,d@+6",
            command.parsed({"a", "--", "b", "c,d"}));
}

TEST(LeftoverBinding, TakesWhatBeginsWithADash) {
  Command command(leftoversToo | noDashes);
  command.option("files,f", vtString)->positional();
  EXPECT_EQ("files=-x@+2 files=--files=y@+5 files=--@+8 | -x@+1 --files=y@+4 --@+7",
            command.parsed({"--", "-x", "--files=y", "--"}));
}

TEST(LeftoverBinding, WithoutAPositionalOptionArgumentsAreMerelyKept) {
  Command command(leftoversToo | unknownIsError);
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  EXPECT_EQ("| x@+1 y@+2", command.parsed({"--", "x", "y"}));
  EXPECT_EQ("", handler.events);
}

TEST(LeftoverBinding, InvalidArgumentEndsTheParseAndTakesNothing) {
  Command command(leftoversToo);
  command.option("level", vtS32)->positional();
  Arguments args = {"7", "--", "8", "x", "9"};
  EXPECT_EQ(2, command.parseVector(args));
  EXPECT_STREQ(
      "Value validation problem in argument 'x': Option 'level' can not parse 'x' value, requires "
      "a type 'integer' here.",
      command.error());
  EXPECT_EQ((Arguments{"--", "8", "x", "9"}), args);
  EXPECT_EQ("level=7@+1 level=8@+4 | 8@+3 x@+6", command.render());
  EXPECT_EQ(7, command.positionsDrawn());
}

TEST(LeftoverBinding, RefusedArgumentEndsTheParse) {
  Command command(leftoversToo);
  RecordingHandler handler;
  handler.refusedValues = {"b"};
  command.parser().addHandler(&handler);
  command.option("files", vtString)->positional();
  EXPECT_EQ("1: Value 'b' is not valid for option 'files' in argument 'b'",
            command.parsed({"--", "a", "b", "c"}));
  EXPECT_EQ("files=a@+2 | a@+1 b@+4", command.render());
  EXPECT_EQ(6, command.positionsDrawn());
}

TEST(ArgumentsLeft, NoneAfterSuccess) {
  Command command;
  command.option("level", vtS32);
  Arguments args = {"--level", "3", "x", "--", "y"};
  EXPECT_EQ(0, command.parseVector(args));
  EXPECT_TRUE(args.empty());
  EXPECT_EQ("level=3@+1 | y@+3", command.render());
}

TEST(ArgumentsLeft, BeginWithTheOneThatFailed) {
  const struct {
    int status;
    Arguments args;
    const char* stored;
    int drawn;
    std::size_t taken;
  } cases[] = {
      {2, {"--level=1", "x", "y", "--", "z"}, "level=1@+1", 2, 1},   // unknown
      {2, {"--level=1", "--le", "y"}, "level=1@+1", 2, 1},           // ambiguous
      {2, {"--level=1", "--=", "y"}, "level=1@+1", 2, 1},            // no name
      {2, {"--level=1", "--level"}, "level=1@+1", 2, 1},             // no value
      {2, {"--level", "-5", "y"}, "", 0, 0},                         // seems to be an option
      {2, {"--verbose=1"}, "", 0, 0},                                // boolean with a value
      {2, {"--flag=1"}, "", 0, 0},                                   // takes no value
      {2, {"--level=1", "--level", "x", "y"}, "level=1@+1", 3, 1},   // does not convert
      {2, {"--level=1,x", "y"}, "", 2, 0},                           // second token
      {2, {"--level=,", "y"}, "", 1, 0},                             // no token
      {1, {"--level=1", "--level", "66", "y"}, "level=1@+1", 4, 1},  // refused
      {1, {"--level=1,66,2", "y"}, "", 3, 0},                        // second token refused
  };
  Command command(unknownIsError);
  RecordingHandler handler;
  handler.refusedValues = {"66"};
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  command.option("length", vtS32);
  command.option("verbose", vtBool);
  command.option("flag", vtNull);
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.args));
    Arguments args = c.args;
    EXPECT_EQ(c.status, command.parseVector(args));
    EXPECT_EQ(Arguments(c.args.begin() + static_cast<std::ptrdiff_t>(c.taken), c.args.end()), args);
    EXPECT_EQ(c.stored, command.render());
    EXPECT_EQ(c.drawn, command.positionsDrawn());
  }
}

TEST(ArgumentsLeft, FailureKeepsTheDefaults) {
  Command command(unknownIsError);
  command.option("level", vtS32)->defaultValue(2);
  EXPECT_EQ(2, command.parse({"x"}));
  EXPECT_EQ("level(2)@+1", command.render());
}

TEST(PhaseOne, LeavesTheSeparatorAndWhatFollows) {
  Command command;
  command.option("level", vtS32);
  WindowOn args({"--level=1", "x", "++", "--level=2", "--"});
  string error = "untouched";
  EXPECT_EQ(0, basic(command).parse_phase_one("++", args, &command.result(), error));
  EXPECT_EQ((Arguments{"++", "--level=2", "--"}), leftOf(args));
  EXPECT_EQ("untouched", error);
}

TEST(PhaseOne, WritesItsMessageToTheGivenString) {
  Command command(unknownIsError);
  WindowOn args({"x"});
  string error;
  EXPECT_EQ(2, basic(command).parse_phase_one("--", args, &command.result(), error));
  EXPECT_EQ("Unknown option: x", error);
  EXPECT_STREQ("", command.error());
}

TEST(PhaseOne, TakesNothingFromAnEmptyWindow) {
  Command command;
  WindowOn args({});
  string error;
  EXPECT_EQ(0, basic(command).parse_phase_one("--", args, &command.result(), error));
  EXPECT_TRUE(args.empty());
}

TEST(Collecting, TakesTheSeparatorAndAllArgumentsAfterIt) {
  Command command;
  WindowOn args({"++", "c", "++"});
  string error;
  EXPECT_EQ(0, basic(command).collectNonparsingArguments("++", args, &command.result(), error));
  EXPECT_TRUE(args.empty());
  EXPECT_EQ("| c@+1 ++@+2", command.render());
}

TEST(Collecting, WithoutASeparatorNothingIsStored) {
  Command command(leftoversToo);
  command.option("files", vtString)->positional();
  WindowOn args({"a", "b"});
  string error;
  EXPECT_EQ(0, basic(command).collectNonparsingArguments("--", args, &command.result(), error));
  EXPECT_EQ((Arguments{"a", "b"}), leftOf(args));
  EXPECT_EQ("", command.render());
}

TEST(WithoutAResult, EverythingIsCheckedAndAnnouncedAndNothingStored) {
  Command command(unknownIsError | leftoversToo);
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  command.option("level", vtS32)->positional()->defaultValue(2);
  const char* argv[] = {"tool", "--level=3", "4", "--", "5"};
  const int before = IArgumentParser::m_idx;
  EXPECT_EQ(0, command.parser().parseArgsVector(5, argv, nullptr));
  EXPECT_EQ(before + 7, IArgumentParser::m_idx);  // three options and values, one leftover
  EXPECT_EQ("option level; value level=3; option level; value level=4; option level; value level=5",
            handler.events);
}

TEST(WithoutAResult, FailuresAreReported) {
  Command command(unknownIsError);
  command.option("level", vtS32);
  command.optionFiles();
  const struct {
    const char* argument;
    const char* message;
  } cases[] = {
      {"--level", "Option 'level' requires a value in argument: '--level'"},
      {"--level=,", "No value parsed in argument ',' for option 'level'"},
      {"x", "Unknown option: x"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.argument);
    const char* argv[] = {"tool", c.argument};
    EXPECT_EQ(2, command.parser().parseArgsVector(2, argv, nullptr));
    EXPECT_STREQ(c.message, command.error());
  }
}

TEST(SameResult, CollectsSeveralParses) {
  Command command;
  command.option("level", vtS32);
  EXPECT_EQ(0, command.parse({"--level=1", "--", "a"}));
  EXPECT_EQ(0, command.parseMore({"--level=2", "--", "b"}));
  EXPECT_EQ("level=1@+1 level=2@+4 | a@+3 b@+6", command.render());
}

TEST(SameResult, OptionOfAnotherParserIsNotFound) {
  Command first;
  first.option("level", vtS32);
  first.parse({"--level=1"});
  Command second;
  second.option("depth", vtS32);
  const char* argv[] = {"tool", "--depth=1"};
  EXPECT_EQ(1, second.parser().parseArgsVector(2, argv, &first.result()));
  EXPECT_STREQ("", second.error());
}

TEST(SameResult, DefaultOfAnotherParserIsNotFound) {
  Command first;
  first.option("level", vtS32)->defaultValue(2);
  EXPECT_EQ(0, first.parse({}));
  Command second;
  second.option("depth", vtS32);
  const char* argv[] = {"tool", "--depth=1"};
  EXPECT_EQ(1, second.parser().parseArgsVector(2, argv, &first.result()));
}

TEST(ThrowingHandler, EndsTheParseWithStatusFour) {
  for (const char* argument : {"--level=1", "x"}) {
    SCOPED_TRACE(argument);
    Command command;
    RecordingHandler handler;
    handler.alsoDo = [] { throw std::runtime_error("from a handler"); };
    command.parser().addHandler(&handler);
    command.option("level", vtS32);
    EXPECT_EQ("4: Unidentified problem detected.", command.parsed({argument}));
    EXPECT_EQ(4, command.parseStream(argument));
    handler.alsoDo = [] {};
    EXPECT_EQ("level=2@+1", command.parsed({"--level=2"}));
  }
}

TEST(ThrowingHandler, LeavesTheCurrentArgumentAndThoseAfterIt) {
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] {
    if (handler.events.find("value level=2") != string::npos)
      throw std::runtime_error("from a handler");
  };
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  Arguments args = {"--level=1", "--level", "2", "--level=3", "--", "x"};
  EXPECT_EQ(4, command.parseVector(args));
  EXPECT_EQ((Arguments{"--level", "2", "--level=3", "--", "x"}), args);
  EXPECT_EQ("level=1@+1", command.render());
  EXPECT_EQ(4, command.positionsDrawn());
}

TEST(ThrowingHandler, MayThrowAfterTheSeparatorToo) {
  Command command(leftoversToo);
  RecordingHandler handler;
  handler.alsoDo = [] { throw std::runtime_error("from a handler"); };
  command.parser().addHandler(&handler);
  command.option("files", vtString)->positional();
  EXPECT_EQ("4: Unidentified problem detected.", command.parsed({"--", "x"}));
  EXPECT_EQ("| x@+1", command.render());
}

TEST(ThrowingHandler, ExceptionOfAnotherKindPassesThrough) {
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [] { throw 7; };
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_THROW(command.parse({"--level=1"}), int);
  EXPECT_THROW(command.parseStream("--level=1"), int);
  handler.alsoDo = [] {};
  EXPECT_EQ("level=2@+1", command.parsed({"--level=2"}));
}

TEST(OptionWithoutNames, EndsTheParseThatBindsToIt) {
  Command command;
  command.option("", vtString)->positional();
  EXPECT_EQ("", command.parsed({}));
  EXPECT_EQ("4: Unidentified problem detected.", command.parsed({"x"}));
}

TEST(HandlerInAParse, MayDeclareOptions) {
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] {
    for (int i = 0; i < 100; ++i)
      command.parser().option(("added" + std::to_string(i)).c_str(), "", vtS32, nullptr);
  };
  command.parser().addHandler(&handler);
  command.option("a-name-too-long-to-be-kept-in-place", vtS32);
  command.option("level", vtS32)->positional();
  EXPECT_EQ("a-name-too-long-to-be-kept-in-place=1,2@+1 level=3@+4 level=4@+6",
            command.parsed({"--a-name-too-long-to-be-kept-in-place=1,2", "3", "--level=4"}));
  command.parser().removeHandler(&handler);
  EXPECT_EQ(0, command.parse({"--added99=5"}));
  EXPECT_STREQ("5", command.result().get("added99", 0, lastPosition).text);
}

TEST(HandlerInAParse, MayQueryResults) {
  Command command;
  RecordingHandler handler;
  string seen;
  handler.alsoDo = [&] {
    seen += command.result().present("level", 0, lastPosition) ? "yes " : "no ";
    for (Value v = command.result().get("level", 0, lastPosition); v.isEmpty == 0;
         v = command.result().next("level"))
      seen += string(v.text) + " ";
  };
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ("level=1@+1 level=2@+3", command.parsed({"--level=1", "--level=2"}));
  EXPECT_EQ("no no yes 1 yes 1 ", seen);
}

TEST(HandlerInAParse, MayParseWithAnotherParser) {
  Command inner;
  inner.option("depth", vtS32);
  Command command;
  RecordingHandler handler;
  string seen;
  handler.alsoDo = [&] { seen += inner.parsed({"--depth=9", "--", "x"}) + "; "; };
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  // An option is announced before its position is drawn, and a value after.
  EXPECT_EQ("level=1@+4 | rest@+9", command.parsed({"--level=1", "--", "rest"}));
  EXPECT_EQ("depth=9@+1 | x@+3; depth=9@+1 | x@+3; ", seen);
}

TEST(HandlerInAParse, MayRemoveItself) {
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] { command.parser().removeHandler(&handler); };
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ("level=1@+1 level=2@+3", command.parsed({"--level=1", "--level=2", "x"}));
  EXPECT_EQ("option level", handler.events);
}

TEST(ManyArguments, AreAllWalked) {
  Command command;
  command.option("level", vtS32);
  Arguments args;
  for (int i = 0; i < 5000; ++i)
    args.insert(args.end(), {"--level", std::to_string(i), "x", "--level=7"});
  EXPECT_EQ(0, command.parseVector(args));
  EXPECT_EQ(10000u, givenTo(command.result(), "level").values.size());
  EXPECT_EQ(20000, command.positionsDrawn());
}

}  // namespace

}  // namespace kivo_3_3
