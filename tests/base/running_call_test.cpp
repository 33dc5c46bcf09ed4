// The calls that a parse or an event was made from: which parse it is part of, whether the event
// has come back, what is in use, and how deep parses are nested.

#include "base/running_call.h"

#include <gtest/gtest.h>

#include <forward_list>
#include <stdexcept>

#include "result/parse_result.h"
#include "support/recording_handler.h"

namespace kivo_3_3 {

namespace {

class Running : public ::testing::Test {
 protected:
  testing::RecordingHandler parser;
  testing::RecordingHandler otherParser;
  ParseResult result;
  ParseResult otherResult;
};

TEST_F(Running, ParseIsPartOfAnyParseOfTheSameParserIntoTheSameResult) {
  const RunningParse outer(parser, &result);
  EXPECT_FALSE(outer.isPartOfAParse());
  const RunningEvent event(parser, RunningEvent::option, "level");
  const RunningParse ofOtherParser(otherParser, &result);
  EXPECT_FALSE(ofOtherParser.isPartOfAParse());
  const RunningParse intoOtherResult(parser, &otherResult);
  EXPECT_FALSE(intoOtherResult.isPartOfAParse());
  EXPECT_TRUE(RunningParse(parser, &result).isPartOfAParse());
}

TEST_F(Running, EventHasComeBackOnlyWithTheSameParserKindAndText) {
  const RunningEvent event(parser, RunningEvent::option, "level");
  EXPECT_FALSE(event.hasComeBack());
  const RunningEvent ofOtherParser(otherParser, RunningEvent::option, "level");
  EXPECT_FALSE(ofOtherParser.hasComeBack());
  EXPECT_FALSE(RunningEvent(parser, RunningEvent::value, "level").hasComeBack());
  EXPECT_FALSE(RunningEvent(parser, RunningEvent::option, "leve").hasComeBack());
  EXPECT_TRUE(RunningEvent(parser, RunningEvent::option, "level").hasComeBack());
}

TEST_F(Running, EventOutsideANestedParseDoesNotComeBackInsideIt) {
  const RunningEvent event(parser, RunningEvent::option, "level");
  const RunningParse nested(parser, &result);
  EXPECT_FALSE(RunningEvent(parser, RunningEvent::option, "level").hasComeBack());
}

TEST_F(Running, EventAfterANestedParseStillComesBack) {
  const RunningEvent event(parser, RunningEvent::option, "level");
  { const RunningParse nested(parser, &result); }
  EXPECT_TRUE(RunningEvent(parser, RunningEvent::option, "level").hasComeBack());
}

TEST_F(Running, CallKeepsItsParserAndResultInUseUntilItReturns) {
  {
    const RunningParse parse(parser, &result);
    const RunningEvent event(otherParser, RunningEvent::option, "level");
    const RunningParse withoutResult(otherParser, nullptr);
    EXPECT_TRUE(RunningCall::isInUse(parser));
    EXPECT_TRUE(RunningCall::isInUse(otherParser));
    EXPECT_TRUE(RunningCall::isInUse(result));
    EXPECT_FALSE(RunningCall::isInUse(otherResult));
  }
  EXPECT_FALSE(RunningCall::isInUse(parser));
  EXPECT_FALSE(RunningCall::isInUse(otherParser));
  EXPECT_FALSE(RunningCall::isInUse(result));
}

TEST_F(Running, OnlyCallsThatATooDeepParseWasMadeFromRaise) {
  const RunningEvent outside(parser, RunningEvent::option, "level");
  const RunningParse outermost(parser, &result);
  const RunningEvent event(parser, RunningEvent::option, "level");
  std::forward_list<RunningParse> nested;  // destroyed from the innermost outwards
  for (int depth = 2; depth <= 100; ++depth)
    nested.emplace_front(parser, &result);
  EXPECT_NO_THROW(nested.front().throwIfTooDeep());
  { const RunningParse tooDeep(parser, &result); }
  EXPECT_THROW(nested.front().throwIfTooDeep(), std::runtime_error);
  const RunningEvent afterwards(parser, RunningEvent::option, "level");
  EXPECT_NO_THROW(afterwards.throwIfTooDeep());
  EXPECT_THROW(event.throwIfTooDeep(), std::runtime_error);
  EXPECT_THROW(outermost.throwIfTooDeep(), std::runtime_error);
  EXPECT_NO_THROW(outside.throwIfTooDeep());
}

}  // namespace

}  // namespace kivo_3_3
