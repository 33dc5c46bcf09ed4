// Transcripts show addresses, events, console output and positions; differences are excerpted and
// minimized.

#include "reference/scenarios/comparison.h"

#include <gtest/gtest.h>

#include "reference/scenarios/scenario_generator.h"
#include "reference/scenarios/transcript.h"

namespace kivo_3_3::scenarios {
namespace {

using std::string;

// The transcript of a scenario that begins with a parser and a result.
string shown(const string& steps) {
  const string begin = "parser 0|0\n  status 0\nresult 0|0\n  status 0\n";
  const string transcript = transcriptOf("parser 0|0\nresult 0|0\n" + steps, referenceWorld());
  EXPECT_EQ(begin, transcript.substr(0, begin.size()));
  return transcript.substr(begin.size());
}

TEST(ATranscript, ShowsWhichTextsShareAnAddress) {
  EXPECT_EQ(
      "option 0|mode||string\n"
      "parse 0|0|--mode=fast|--mode=fast|--mode=slow\n"
      "  status 0, drew 6\n"
      "read 0\n"
      "  mode: @+0 @+2 @+4; 'fast'#1 string:'fast'~1 @+1; 'fast'#1 string:'fast'~2 @+3;"
      " 'slow'#2 string:'slow'~3 @+5; last 'slow'#2 string:'slow'~3 @+5\n"
      "the next position is @+6\n",
      shown("option 0|mode||string\n"
            "parse 0|0|--mode=fast|--mode=fast|--mode=slow\n"
            "read 0\n"));
}

TEST(ATranscript, ShowsAddressesThatAreNotShared) {
  const string one = "text";
  const string other = "text";
  Addresses addresses;
  EXPECT_EQ("'text'#1", addresses.shown(one.c_str()));
  EXPECT_EQ("'text'#2", addresses.shown(other.c_str()));
  EXPECT_EQ("'text'#1", addresses.shown(one.c_str()));
  EXPECT_EQ("null", addresses.shown(nullptr));
}

TEST(ATranscript, ShowsEventsAndReactions) {
  EXPECT_EQ(
      "option 0|level||s32\n"
      "add 0|2\n"
      "add 0|1\n"
      "react 1|value|2|answer|0\n"
      "parse 0|0|--level=1,2|x\n"
      "  H1 of P0: option 'level'#1\n"
      "  H2 of P0: option 'level'#1\n"
      "  H1 of P0: value 'level'#1 '1' s32:1 @+1\n"
      "  H2 of P0: value 'level'#1 '1' s32:1 @+1 same text\n"
      "  H1 of P0: value 'level'#1 '2' s32:2 @+2\n"
      "    answer 0\n"
      "  status 1 'Value '1,2' is not valid for option 'level' in argument '--level=1,2''#2,"
      " drew 3\n"
      "the next position is @+3\n",
      shown("option 0|level||s32\n"
            "add 0|2\n"
            "add 0|1\n"
            "react 1|value|2|answer|0\n"
            "parse 0|0|--level=1,2|x\n"));
}

TEST(ATranscript, ShowsTheConsoleInItsPlace) {
  EXPECT_EQ(
      "add 0|0\n"
      "parse 0|0|kivooption=kivologenable=1|x|y\n"
      "  out:\n"
      "  > PositionalOptionsParser: recognizing argument 'x'\n"
      "  > AbbreviationParser: recognizing argument 'x'\n"
      "  H0 of P0: unknown 'x'#1\n"
      "  out:\n"
      "  > ignoring x\n"
      "  > PositionalOptionsParser: recognizing argument 'y'\n"
      "  > AbbreviationParser: recognizing argument 'y'\n"
      "  H0 of P0: unknown 'y'#2\n"
      "  out:\n"
      "  > ignoring y\n"
      "  status 0, drew 0, traced\n"
      "the next position is @+0\n",
      shown("add 0|0\n"
            "parse 0|0|kivooption=kivologenable=1|x|y\n"));
}

TEST(ATranscript, ShowsAssertionsAndExceptions) {
  EXPECT_EQ(
      "add 0|0\n"
      "react 0|unknown|1|endparser|@\n"
      "react 0|unknown|2|throw|int\n"
      "parse 0|0|x|y\n"
      "  H0 of P0: unknown 'x'#1\n"
      "    endparser @\n"
      "      assertion !RunningCall::isInUse(*this)\n"
      "  H0 of P0: unknown 'y'#2\n"
      "    throw int\n"
      "  exception 7\n"
      "the next position is @+0\n",
      shown("add 0|0\n"
            "react 0|unknown|1|endparser|@\n"
            "react 0|unknown|2|throw|int\n"
            "parse 0|0|x|y\n"));
}

TEST(ATranscript, ShowsHelpLineByLine) {
  EXPECT_EQ(
      "option 0|out|Where to|string|Main\n"
      "help 0|tool|0\n"
      "  #1\n"
      "  > Main\n"
      "  > -out=<string>                 Where to\n"
      "help 0|topic|0|out\n"
      "  #1\n"
      "  > Main\n"
      "  > -out=<string>                 Where to\n"
      "the next position is @+0\n",
      shown("option 0|out|Where to|string|Main\n"
            "help 0|tool|0\n"
            "help 0|topic|0|out\n"));
}

TEST(ATranscript, ShowsDescriptionsLineByLine) {
  EXPECT_EQ(
      "option 0|speed||s32\n"
      "annotate 0|speed|range|1 to 9\n"
      "  answers yes\n"
      "nearest 0|sped\n"
      "  near 'speed'\n"
      "describe 0|tool|1.0|A tool.\n"
      "  #1\n"
      "  > {\"schema\":\"kivo-description/1\",\"tool\":{\"name\":\"tool\",\"version\":\"1.0\","
      "\"summary\":\"A tool.\"},\"sections\":[\n"
      "  > {\"heading\":\"\",\"introduction\":\"\",\"hidden\":false}],\"options\":[\n"
      "  > {\"names\":[\"speed\"],\"kind\":\"option\",\"type\":\"integer\",\"description\":\"\","
      "\"section\":\"\",\"hidden\":false,\"separator\":\",\",\"positional\":false,"
      "\"annotations\":{\"range\":[\"1 to 9\"]}}],\"together\":[],"
      "\"unknownArguments\":\"passed over\",\"dashArguments\":\"positional\","
      "\"leftoverArguments\":\"kept\"} (no newline)\n"
      "the next position is @+0\n",
      shown("option 0|speed||s32\n"
            "annotate 0|speed|range|1 to 9\n"
            "nearest 0|sped\n"
            "describe 0|tool|1.0|A tool.\n"));
}

// A world whose descriptions are all written to one buffer.
World forgetful() {
  World world = referenceWorld();
  world.describe = [](IParser&, const ToolInfo& tool, const CommandInfo*,
                      unsigned int) -> const char* {
    static string last;
    return (last = tool.name).c_str();
  };
  return world;
}

TEST(ATranscript, ShowsATextThatDoesNotLiveAsLongAsItsParser) {
  EXPECT_EQ(
      "parser 0\n"
      "  status 0\n"
      "describe 0|one\n"
      "  #1\n"
      "  > one (no newline)\n"
      "describe 0|two\n"
      "  #1\n"
      "  > two (no newline)\n"
      "endparser 0\n"
      "  'one' has become 'two'\n"
      "the next position is @+0\n",
      transcriptOf("parser 0\ndescribe 0|one\ndescribe 0|two\nendparser 0\n", forgetful()));
}

TEST(AScenario, SkipsStepsThatBreakTheContract) {
  EXPECT_EQ(
      "positional 0\n"
      "  skipped\n"
      "files 0\n"
      "  answers yes\n"
      "positional 0\n"
      "  skipped\n"
      "endparser 0\n"
      "parse 0|0|x\n"
      "  skipped\n"
      "answer 0\n"
      "  skipped\n"
      "the next position is @+0\n",
      shown("positional 0\n"
            "files 0\n"
            "positional 0\n"
            "endparser 0\n"
            "no such step 1|2\n"
            "parse 0|0|x\n"
            "react 0|any|1|no such step\n"
            "answer 0\n"));
}

TEST(AScenario, StartsWithTheStateOfAFreshProcess) {
  const string scenario =
      "parser 0|0\noption 0|level||double\nresult 0|0\nlocale 1\ncounter 100\n"
      "parse 0|0|kivooption=kivologenable=1|--level=1,5\nread 0\nassertions 1\n";
  const string first = transcriptOf(scenario, referenceWorld());
  EXPECT_EQ(first, transcriptOf(scenario, referenceWorld()));
}

TEST(ADifference, IsShownWithTheLinesAround) {
  EXPECT_FALSE(difference("a\nb\n", "a\nb\n"));
  EXPECT_EQ("expected:\n  a\n* b\n  c\nactual:\n  a\n* x\n  c\n",
            difference("a\nb\nc\n", "a\nx\nc\n"));
  EXPECT_EQ("expected:\n  a\n* b\nactual:\n  a\n", difference("a\nb\n", "a\n"));
}

TEST(ADifference, IsFoundInAMinimalScenario) {
  const auto isWanted = [](const string& scenario) {
    const std::size_t first = scenario.find("get 0|a");
    return first != string::npos && scenario.find("next", first) != string::npos;
  };
  EXPECT_EQ("get 0|a\nnext\n",
            minimized("parser 0|0\nget 0|a|1|2\nread 0\nnext 0|a\nnext 1\nread 1\n", isWanted));
}

TEST(AGenerator, MakesTheSameScenarioFromTheSameSeed) {
  EXPECT_EQ(generatedScenario(42), generatedScenario(42));
  EXPECT_NE(generatedScenario(42), generatedScenario(43));
}

}  // namespace
}  // namespace kivo_3_3::scenarios
