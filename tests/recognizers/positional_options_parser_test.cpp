// Arguments that name no option, and the option that receives them.

#include "recognizers/positional_options_parser.h"

#include <gtest/gtest.h>

#include "options/make_option.h"
#include "options/option_registry.h"
#include "support/arguments.h"
#include "support/command.h"
#include "support/recording_handler.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using testing::leftOf;
using testing::makeOption;
using testing::RecordingHandler;
using testing::WindowOn;

constexpr int noDashes = parserFlags::dashArgumentsAreNeverPositional;

// The recognizer without a parser, with its own list of options.
class PositionalRecognizer : public ::testing::Test {
 protected:
  OptionDescription& declare(const char* name) {
    options.push_back(makeOption({name}, vtString, &garbage));
    return options.back();
  }

  int recognize(const string& argument, int flags) {
    WindowOn window({argument, "next"});
    const int recognized = PositionalOptionsParser(&handler, &garbage.memory(), flags, summary)
                               .recognize(window, options, message);
    args = leftOf(window);
    return recognized;
  }

  int parse(const std::vector<string>& arguments) {
    WindowOn window(arguments);
    const int status = parser.parse(window, &result, options, optionIndex, message);
    args = leftOf(window);
    return status;
  }

  Garbage garbage;
  RecordingHandler handler;
  OptionList options;
  DeclarationSummary summary{options, &garbage.memory()};
  PositionalOptionsParser parser{&handler, &garbage.memory(), 0, summary};
  ParseResult result;
  std::vector<string> args;  // the arguments that the last call has left
  unsigned int optionIndex = 77;
  string message = "untouched";
};

TEST_F(PositionalRecognizer, HasPriorityMinusHundred) { EXPECT_EQ(-100, parser.getPriority()); }

TEST_F(PositionalRecognizer, ClaimsNothingWithoutAPositionalOption) {
  EXPECT_EQ(1, recognize("x", 0));
  declare("level");
  for (const char* argument : {"x", "", "-x", "level", "--level"})
    EXPECT_EQ(1, recognize(argument, 0)) << argument;
}

TEST_F(PositionalRecognizer, ClaimsEverythingWithOne) {
  declare("level");
  declare("files").positional();
  for (const char* argument : {"x", "", "-", "-zz", "--level", "--", "a=b", "\u2013x"})
    EXPECT_EQ(0, recognize(argument, 0)) << argument;
}

TEST_F(PositionalRecognizer, OnDemandClaimsNothingThatBeginsWithAHyphen) {
  declare("files").positional();
  for (const char* argument : {"-", "-zz", "--level", "--"})
    EXPECT_EQ(1, recognize(argument, noDashes)) << argument;
  for (const char* argument : {"x", "", "x-", "\u2013zz"})  // of all dashes only the hyphen counts
    EXPECT_EQ(0, recognize(argument, noDashes)) << argument;
}

TEST_F(PositionalRecognizer, LooksAtNoOtherFlag) {
  declare("files").positional();
  EXPECT_EQ(0, recognize("-zz", ~noDashes));
}

TEST_F(PositionalRecognizer, RecognizeTakesAndWritesNothing) {
  declare("files").positional();
  recognize("x", 0);
  recognize("-x", noDashes);
  EXPECT_EQ((std::vector<string>{"-x", "next"}), args);
  EXPECT_EQ("untouched", message);
}

TEST_F(PositionalRecognizer, BindsToTheFirstPositionalOption) {
  declare("level");
  declare("files").positional();
  declare("more").positional();
  EXPECT_EQ(0, parse({"a", "b"}));
  EXPECT_EQ(1u, optionIndex);
  EXPECT_EQ((std::vector<string>{"b"}), args);
  EXPECT_TRUE(result.options().find("files"));
  EXPECT_FALSE(result.options().find("more"));
}

TEST_F(PositionalRecognizer, EachCallKnowsWhatWasDeclaredSinceTheLastOne) {
  declare("level");
  EXPECT_EQ(1, recognize("a", 0));
  declare("files").positional();
  EXPECT_EQ(0, recognize("b", 0));
  declare("paths").positional();
  EXPECT_EQ(0, parse({"c"}));
  EXPECT_EQ(1U, optionIndex);
}

TEST_F(PositionalRecognizer, FailureTakesAndStoresNothing) {
  OptionDescription& level = declare("level");
  level.positional();
  level.m_type = vtS32;
  EXPECT_EQ(2, parse({"x", "next"}));
  EXPECT_EQ(
      "Value validation problem in argument 'x': Option 'level' can not parse 'x' value, requires "
      "a type 'integer' here.",
      message);
  EXPECT_EQ((std::vector<string>{"x", "next"}), args);
  EXPECT_TRUE(result.options().names().empty());
  EXPECT_EQ("option level", handler.events);
}

TEST(PositionalOption, UnclaimedArgumentIsUnknown) {
  Command command(parserFlags::unknownArgumentIsError);
  command.option("level", vtS32);
  EXPECT_EQ("2: Unknown option: x", command.parsed({"x"}));
}

TEST(PositionalOption, TakesDashArgumentsThatNameNoOptionUnlessForbidden) {
  const int unknownIsError = parserFlags::unknownArgumentIsError;
  Command permissive(unknownIsError);
  permissive.option("files", vtString)->positional();
  EXPECT_EQ("files=-zz@+1", permissive.parsed({"-zz"}));
  Command strict(unknownIsError | noDashes);
  strict.option("files", vtString)->positional();
  EXPECT_EQ("2: Unknown option: -zz", strict.parsed({"-zz"}));
  EXPECT_EQ("files=zz@+1", strict.parsed({"zz"}));
}

TEST(PositionalOption, NamedOptionTakesWhatBothClaim) {
  Command command;
  command.option("files,f", vtString)->positional();
  command.option("flag", vtNull);
  EXPECT_EQ("flag@+1 files=x@+2 files=y@+4", command.parsed({"--flag", "-files=x", "y"}));
}

TEST(PositionalOption, NamedRecognizerTakesAnAmbiguousArgumentToo) {
  Command command;
  command.option("files", vtString)->positional();
  command.option("flag", vtNull);
  EXPECT_EQ("2: Ambiguous option 'f' in argument: '--f', could be: 'files', 'flag'",
            command.parsed({"--f"}));
}

TEST(PositionalOption, EachArgumentIsAnOccurrenceOfItsOwn) {
  Command command;
  command.option("files", vtString)->positional();
  command.option("flag", vtNull);
  EXPECT_EQ("files=a@+1 files=b@+3 flag@+5 files=c@+6", command.parsed({"a", "b", "--flag", "c"}));
}

TEST(PositionalOption, SplitsItsValuesLikeANamedOption) {
  Command command;
  command.option("files", vtString)->positional();
  EXPECT_EQ("files=a,b@+1 files=c@+4", command.parsed({"a,,b", "c"}));
  EXPECT_EQ("2: No value parsed in argument ',' for option 'files'", command.parsed({","}));
}

TEST(PositionalOption, WholeArgumentIsTheValue) {
  Command command;
  command.option("files", vtString)->positional();
  EXPECT_EQ("files=a=b c@+1 files=--x=y@+3", command.parsed({"a=b c", "--x=y"}));
}

TEST(PositionalOption, EmptyArgumentIsAnOccurrenceWithoutValues) {
  Command command;
  command.option("level", vtS32)->positional();
  EXPECT_EQ("level@+1 level=3@+2", command.parsed({"", "3"}));
}

TEST(PositionalOption, IsStillGivenByName) {
  Command command;
  command.option("files,f", vtString)->positional();
  EXPECT_EQ("files=a@+1 files=b@+3", command.parsed({"-f", "a", "b"}));
}

TEST(PositionalOption, BooleanIsReadAsADigit) {
  Command command;
  command.option("verbose", vtBool)->positional();
  EXPECT_EQ("verbose=1@+1", command.parsed({"1"}));
}

TEST(PositionalOption, ArgumentsAreAnnounced) {
  Command command;
  RecordingHandler handler;
  handler.acceptsOptions = false;  // has no effect
  command.parser().addHandler(&handler);
  command.option("files,f", vtString)->positional();
  EXPECT_EQ(0, command.parse({"a,b", ""}));
  EXPECT_EQ("option files; value files=a; value files=b; option files", handler.events);
}

TEST(PositionalOption, RefusedArgumentEndsTheParse) {
  Command command;
  RecordingHandler handler;
  handler.refusedValues = {"b"};
  command.parser().addHandler(&handler);
  command.option("files", vtString)->positional();
  EXPECT_EQ("1: Value 'b' is not valid for option 'files' in argument 'b'",
            command.parsed({"a", "b", "c"}));
  EXPECT_EQ("files=a@+1", command.render());
}

}  // namespace

}  // namespace kivo_3_3
