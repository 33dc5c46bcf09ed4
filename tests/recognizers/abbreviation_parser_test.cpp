// Named options: which arguments are claimed, and what value they bind.

#include "recognizers/abbreviation_parser.h"

#include <gtest/gtest.h>

#include "options/option_registry.h"
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

// The recognizer without a parser, with its own declarations.
class NamedRecognizer : public ::testing::Test {
 protected:
  void declare(const char* names, variant_type_t type) {
    storage.option(names, nullptr, "", false, type, nullptr);
  }

  int recognize(const string& argument) {
    args = {argument, "next"};
    WindowOn window(args);
    const int recognized = parser.recognize(window, storage.options(), message);
    args = leftOf(window);
    return recognized;
  }

  // Recognizes and parses, and returns the status of parse().
  int parse(const std::vector<string>& arguments) {
    WindowOn window(arguments);
    EXPECT_EQ(0, parser.recognize(window, storage.options(), message));
    const int status = parser.parse(window, &result, storage.options(), optionIndex, message);
    args = leftOf(window);
    return status;
  }

  Garbage garbage;
  RecordingHandler handler;
  RegisteredOptionStorage storage{&garbage};
  AbbreviationParser parser{&handler, &garbage.memory(), 0, storage.names()};
  ParseResult result;
  std::vector<string> args;  // the arguments that the last call has left
  unsigned int optionIndex = 77;
  string message = "untouched";
};

TEST_F(NamedRecognizer, HasPriorityMinusTen) { EXPECT_EQ(-10, parser.getPriority()); }

TEST_F(NamedRecognizer, ClaimsWhatNamesAnOptionAfterADash) {
  declare("level,depth,l", vtS32);
  declare("verbose", vtBool);
  for (const char* argument :
       {"--level", "-level", "\u2013level", "-\u2014level", "--level=3", "--level 3", "--depth",
        "-l", "--lev", "--d", "--verbose", "--no-verbose", "--no-verb", "--n", "--l=3"}) {
    SCOPED_TRACE(argument);
    EXPECT_EQ(0, recognize(argument));
  }
}

TEST_F(NamedRecognizer, DoesNotClaimAnythingElse) {
  declare("level", vtS32);
  for (const char* argument : {"", "-", "l", "level", "level=3", "--unknown", "-x", "--levels",
                               "--LEVEL", "--no-level", "---level", "-5", "\u2212level"}) {
    SCOPED_TRACE(argument);
    EXPECT_EQ(1, recognize(argument));
  }
}

TEST_F(NamedRecognizer, ClaimsNothingWithoutDeclarations) {
  EXPECT_EQ(1, recognize("--level"));
  EXPECT_EQ(1, recognize("--=3"));
}

TEST_F(NamedRecognizer, LoneDashOrSingleByteIsNotClaimed) {
  declare("-", vtNull);  // not even if an option has this name
  declare("v", vtNull);
  EXPECT_EQ(1, recognize("-"));
  EXPECT_EQ(1, recognize("v"));
}

TEST_F(NamedRecognizer, ClaimsAnAmbiguousArgument) {
  declare("level", vtS32);
  declare("length", vtS32);
  EXPECT_EQ(0, recognize("--le"));
}

TEST_F(NamedRecognizer, RecognizeNeverWritesTheMessage) {
  declare("level", vtS32);
  declare("length", vtS32);
  for (const char* argument : {"--le", "--level", "--unknown", "---x", "x"})
    recognize(argument);
  EXPECT_EQ("untouched", message);
}

TEST_F(NamedRecognizer, RecognizeTakesNothing) {
  declare("level", vtS32);
  recognize("--level");
  EXPECT_EQ((std::vector<string>{"--level", "next"}), args);
}

TEST_F(NamedRecognizer, ParseTellsWhichOptionItBound) {
  declare("verbose", vtBool);
  declare("level,l", vtS32);
  EXPECT_EQ(0, parse({"-l=3"}));
  EXPECT_EQ(1u, optionIndex);
  EXPECT_EQ(0, parse({"--no-verbose"}));
  EXPECT_EQ(0u, optionIndex);
}

TEST_F(NamedRecognizer, ParseTellsNoOptionForAnAmbiguousArgument) {
  declare("level", vtS32);
  declare("length", vtS32);
  EXPECT_EQ(0, parse({"--level=3"}));
  EXPECT_EQ(2, parse({"--le"}));
  EXPECT_EQ(static_cast<unsigned int>(-1), optionIndex);
}

TEST_F(NamedRecognizer, EachRecognizeForgetsTheOneBefore) {
  declare("level", vtS32);
  declare("length", vtS32);
  EXPECT_EQ(0, recognize("--le"));
  EXPECT_EQ(0, parse({"--level=3"}));
  EXPECT_EQ(2, parse({"--le=3"}));
  EXPECT_EQ("Ambiguous option 'le' in argument: '--le=3', could be: 'level', 'length'", message);
}

TEST_F(NamedRecognizer, TakesTwoArgumentsOnlyIfTheValueIsTheNextOne) {
  declare("level", vtS32);
  EXPECT_EQ(0, parse({"--level=3", "4", "5"}));
  EXPECT_EQ((std::vector<string>{"4", "5"}), args);
  EXPECT_EQ(0, parse({"--level", "4", "5"}));
  EXPECT_EQ((std::vector<string>{"5"}), args);
}

TEST_F(NamedRecognizer, FailureTakesAndStoresNothing) {
  declare("level", vtS32);
  declare("length", vtS32);
  declare("flag", vtNull);
  declare("verbose", vtBool);
  const std::vector<string> cases[] = {
      {"--le", "3"},      {"--level"},          {"--level", "-5"},    {"--level", ""},
      {"--level=x", "3"}, {"--level=,", "3"},   {"--level=1,x", "3"}, {"--level", "x", "3"},
      {"--flag=1", "3"},  {"--verbose=1", "3"}, {"--=3", "3"},
  };
  for (const auto& given : cases) {
    SCOPED_TRACE(given.front());
    EXPECT_EQ(2, parse(given));
    EXPECT_EQ(given, args);
    EXPECT_TRUE(result.options().names().empty());
  }
}

TEST_F(NamedRecognizer, NamesListHoldsNegationsRightAfterBooleanNames) {
  declare("level,l", vtS32);
  declare("verbose,v", vtBool);
  storage.option("flag", nullptr, "", false, vtNull, nullptr)->synonym("f");
  std::vector<string> names = {"before"};
  AbbreviationParser::makeOptionNamesList(storage.options(), names);
  EXPECT_EQ((std::vector<string>{"before", "level", "l", "verbose", "no-verbose", "v", "no-v",
                                 "flag", "f"}),
            names);
}

TEST(NamedOption, ValueIsGivenInsideTheArgumentWithAnyDash) {
  Command command;
  command.option("level", vtS32);
  for (const char* argument :
       {"--level=3", "-level=3", "\u2013level=3", "--level 3", "\u2012level=3", "\u2014level=3",
        "\u2015level=3", "\u2053level=3", "-\u2013level=3"}) {
    SCOPED_TRACE(argument);
    EXPECT_EQ("level=3@+1", command.parsed({argument}));
  }
}

TEST(NamedOption, ValueIsTakenFromTheNextArgument) {
  Command command;
  command.option("level", vtS32);
  command.option("flag", vtNull);
  EXPECT_EQ("level=3@+1 flag@+3", command.parsed({"--level", "3", "--flag"}));
}

TEST(NamedOption, EmptyValueCountsAsNone) {
  Command command;
  command.option("level", vtS32);
  EXPECT_EQ("level=3@+1", command.parsed({"--level=", "3"}));
  EXPECT_EQ("level=3@+1", command.parsed({"--level ", "3"}));
  EXPECT_EQ("2: Option 'level' requires a value in argument: '--level='",
            command.parsed({"--level="}));
}

TEST(NamedOption, OptionWithoutValueAcceptsAnEmptyOne) {
  Command command;
  command.option("flag", vtNull);
  EXPECT_EQ("flag@+1", command.parsed({"--flag="}));
  EXPECT_EQ(1, command.positionsDrawn());
  EXPECT_TRUE(givenTo(command.result(), "flag").values.empty());
}

TEST(NamedOption, OptionWithoutValueRefusesOne) {
  Command command;
  command.option("flag,f", vtNull);
  EXPECT_EQ("2: Option 'flag'does not requires a value in argument: '-f=1'",
            command.parsed({"-f=1"}));
  EXPECT_EQ("2: Option 'flag'does not requires a value in argument: '--flag 1'",
            command.parsed({"--flag 1"}));
}

TEST(NamedOption, NextArgumentWithAHyphenSeemsToBeAnOption) {
  Command command;
  command.option("level", vtS32);
  EXPECT_EQ(
      "2: Option 'level' received value from the next argument: '-5', but it seems to be an "
      "option. Use '-option=value' declaration form or make sure that value is not missed",
      command.parsed({"--level", "-5"}));
  EXPECT_EQ("level=-5@+1", command.parsed({"--level=-5"}));
}

TEST(NamedOption, SeparatorIsNoValue) {
  Command command;
  command.option("level", vtString);
  EXPECT_EQ(
      "2: Option 'level' received value from the next argument: '--', but it seems to be an "
      "option. Use '-option=value' declaration form or make sure that value is not missed",
      command.parsed({"--level", "--", "3"}));
}

TEST(NamedOption, NextArgumentMayBeginWithATypographicDash) {
  Command command;
  command.option("level", vtString);
  EXPECT_EQ("level=\u20135@+1", command.parsed({"--level", "\u20135"}));
}

TEST(NamedOption, LastArgumentWithoutItsValueIsAnError) {
  Command command;
  command.option("level,l", vtS32);
  EXPECT_EQ("2: Option 'level' requires a value in argument: '--level'",
            command.parsed({"--level"}));
  EXPECT_EQ("2: Option 'level' requires a value in argument: '-l'", command.parsed({"-l"}));
}

TEST(NamedOption, EmptyNextArgumentIsNoValue) {
  Command command;
  command.option("level", vtString);
  EXPECT_EQ("2: Option 'level' requires a value in argument: '--level'",
            command.parsed({"--level", ""}));
}

TEST(NamedOption, BooleanIsSetByItsNameAndClearedByItsNegation) {
  const struct {
    const char* argument;
    const char* result;
  } cases[] = {
      {"--verbose", "verbose=1@+1"},    {"-v", "verbose=1@+1"},
      {"--verb", "verbose=1@+1"},       {"--verbose=", "verbose=1@+1"},
      {"--no-verbose", "verbose=0@+1"}, {"-no-v", "verbose=0@+1"},
      {"--no-verb", "verbose=0@+1"},    {"--no-verbose=", "verbose=0@+1"},
      {"--n", "verbose=0@+1"},  // a prefix of the negation alone
  };
  Command command;
  command.option("verbose", vtBool);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.argument);
    EXPECT_EQ(c.result, command.parsed({c.argument}));
  }
}

TEST(NamedOption, BooleanTakesNoValue) {
  Command command;
  command.option("verbose", vtBool);
  EXPECT_EQ(
      "2: Option 'verbose' is boolean and should be declared in form '--option' or "
      "'--no-option' in argument: '--verbose=1'",
      command.parsed({"--verbose=1"}));
  EXPECT_EQ(
      "2: Option 'verbose' is boolean and should be declared in form '--option' or "
      "'--no-option' in argument: '--no-verbose=0'",
      command.parsed({"--no-verbose=0"}));
}

TEST(NamedOption, ArgumentAfterABooleanIsNotItsValue) {
  Command command(parserFlags::unknownArgumentIsError);
  command.option("verbose", vtBool);
  EXPECT_EQ("2: Unknown option: 0", command.parsed({"--verbose", "0"}));
}

TEST(NamedOption, BooleanNamedLikeANegationIsClearedByItsOwnName) {
  Command command;
  command.option("no-cache", vtBool);
  EXPECT_EQ("no-cache=0@+1", command.parsed({"--no-cache"}));
  EXPECT_EQ("no-cache=0@+1", command.parsed({"--no-no-cache"}));
}

TEST(NamedOption, BooleanIsClearedOnlyByTheWholePrefixNoDash) {
  Command command;
  command.option("notice", vtBool);
  command.option("no", vtBool);
  EXPECT_EQ("notice=1@+1 no=1@+3 no=0@+5", command.parsed({"--notice", "--no", "--no-no"}));
}

TEST(NamedOption, AmbiguousAbbreviationListsItsCandidatesInDeclarationOrder) {
  Command command;
  command.option("level", vtS32);
  command.option("length", vtS32);
  command.option("verbose,verb", vtBool);
  const struct {
    const char* argument;
    const char* message;
  } cases[] = {
      {"--le", "Ambiguous option 'le' in argument: '--le', could be: 'level', 'length'"},
      {"-le=3", "Ambiguous option 'le' in argument: '-le=3', could be: 'level', 'length'"},
      {"--no-v",
       "Ambiguous option 'no-v' in argument: '--no-v', could be: 'no-verbose', 'no-verb'"},
      {"--v", "Ambiguous option 'v' in argument: '--v', could be: 'verbose', 'verb'"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.argument);
    EXPECT_EQ(2, command.parse({c.argument}));
    EXPECT_STREQ(c.message, command.error());
    EXPECT_EQ(0, command.positionsDrawn());
  }
}

TEST(NamedOption, NegationsFollowTheirNamesInAListOfCandidates) {
  Command command;
  command.option("name", vtS32);
  command.option("next", vtBool);
  command.option("number", vtS32);
  EXPECT_EQ(
      "2: Ambiguous option 'n' in argument: '--n', could be: 'name', 'next', 'no-next', 'number'",
      command.parsed({"--n"}));
}

TEST(NamedOption, ExactNameWinsOverNamesItBegins) {
  Command command;
  command.option("levels", vtS32);
  command.option("level", vtS32);
  command.option("level-limit", vtS32);
  EXPECT_EQ("level=3@+1", command.parsed({"--level=3"}));
}

TEST(NamedOption, MessagesNameThePrimaryNameAndTheArgumentAsTyped) {
  Command command;
  command.option("level,depth,d", vtS32);
  EXPECT_EQ("2: Option 'level' requires a value in argument: '-d'", command.parsed({"-d"}));
  EXPECT_EQ("2: Option 'level' requires a value in argument: '--dep'", command.parsed({"--dep"}));
  EXPECT_EQ(
      "2: Value validation problem in argument '--dep=x': Option 'level' can not parse 'x' value, "
      "requires a type 'integer' here.",
      command.parsed({"--dep=x"}));
}

TEST(NamedOption, SynonymAddedByTheBuilderNamesTheOption) {
  Command command;
  command.option("level", vtS32)->synonym("depth")->synonym("a,b");
  EXPECT_EQ("level=3@+1", command.parsed({"--depth=3"}));
  EXPECT_EQ("level=3@+1", command.parsed({"--a,b=3"}));
}

TEST(NamedOption, ThirdDashIsClaimedOnlyByACandidateAndThenUnknown) {
  Command command(parserFlags::unknownArgumentIsError);
  command.option("x", vtNull);
  EXPECT_EQ("2: Unknown option: ---x", command.parsed({"---x"}));
  command.option("-x", vtNull);
  EXPECT_EQ("2: Unknown option '---x'", command.parsed({"---x"}));
}

TEST(NamedOption, TypographicThirdDashIsPartOfTheName) {
  Command command(parserFlags::unknownArgumentIsError);
  command.option("\u2013x", vtNull);
  EXPECT_EQ("\u2013x@+1", command.parsed({"--\u2013x"}));
}

// The empty name is a prefix of every name. The message is the same for one candidate and for
// several.
TEST(NamedOption, DashesWithoutANameAreUnknown) {
  Command command;
  command.option("level", vtS32);
  for (const char* argument : {"--=3", "-=3", "-- 3", "\u2013", "\u2013-", "\u2013\u2013=3"}) {
    SCOPED_TRACE(argument);
    EXPECT_EQ("2: Unknown option '" + string(argument) + "'", command.parsed({argument}));
  }
  command.option("length", vtS32);
  EXPECT_EQ("2: Unknown option '--=3'", command.parsed({"--=3"}));
}

TEST(NamedOption, OptionIsAnnouncedBeforeItsValues) {
  Command command;
  RecordingHandler handler;
  handler.acceptsOptions = false;  // has no effect
  command.parser().addHandler(&handler);
  command.option("level,l", vtS32);
  EXPECT_EQ("level=1,2@+1", command.parsed({"-l=1,2"}));
  EXPECT_EQ("option level; value level=1; value level=2", handler.events);
}

TEST(NamedOption, BooleanAnnouncesItsDigit) {
  Command command;
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  command.option("verbose", vtBool);
  command.parse({"--no-verbose"});
  EXPECT_EQ("option verbose; value verbose=0", handler.events);
}

TEST(NamedOption, NothingIsAnnouncedOrDrawnBeforeTheValueIsFound) {
  Command command;
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  command.option("flag", vtNull);
  command.option("verbose", vtBool);
  const std::vector<string> cases[] = {{"--level"},  {"--level", "-5"}, {"--level", ""},
                                       {"--flag=1"}, {"--verbose=1"},   {"--=3"}};
  for (const auto& args : cases) {
    SCOPED_TRACE(args.front());
    EXPECT_EQ(2, command.parse(args));
    EXPECT_EQ("", handler.events);
    EXPECT_EQ(0, command.positionsDrawn());
  }
}

TEST(NamedOption, OptionIsAnnouncedBeforeItsValueProvesInvalid) {
  Command command;
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ(2, command.parse({"--level=x"}));
  EXPECT_EQ("option level", handler.events);
  EXPECT_EQ(1, command.positionsDrawn());
}

TEST(NamedOption, RefusedValueEndsTheParse) {
  Command command;
  RecordingHandler handler;
  handler.refusedValues = {"3"};
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ("1: Value '3' is not valid for option 'level' in argument '--level'",
            command.parsed({"--level", "3"}));
  EXPECT_EQ("", command.render());
}

}  // namespace

}  // namespace kivo_3_3
