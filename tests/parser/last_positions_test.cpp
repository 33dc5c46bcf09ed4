// Parses at the end of the range of positions.

#include <gtest/gtest.h>

#include "allocation/allocation_limit.h"
#include "recognizers/argument_parser.h"
#include "support/command.h"

namespace kivo_3_3 {

namespace {

using testing::Command;

// Sets the counter of positions, and restores it when this object is destroyed.
class CounterAt {
 public:
  explicit CounterAt(int position) : m_before(IArgumentParser::m_idx) {
    IArgumentParser::m_idx = position;
  }
  CounterAt(const CounterAt&) = delete;
  CounterAt& operator=(const CounterAt&) = delete;
  ~CounterAt() { IArgumentParser::m_idx = m_before; }

 private:
  int m_before;
};

class LastPositions : public ::testing::Test {
 protected:
  LastPositions() {
    command.option("name", vtString);
    command.option("file", vtString)->positional();
  }

  Command command{parserFlags::leftoverArgumentsArePositional};
};

TEST_F(LastPositions, AreDrawnLikeOthers) {
  const CounterAt counter(lastPosition - 2);
  EXPECT_EQ("name=a@+1", command.parsed({"--name=a"}));
  EXPECT_EQ(lastPosition, IArgumentParser::m_idx);
}

TEST_F(LastPositions, OnceDrawnMakeAParseFailBeforeAnythingIsLost) {
  const CounterAt counter(lastPosition - 3);
  EXPECT_EQ("4: Unidentified problem detected.", command.parsed({"--name=a", "--name=b"}));
  EXPECT_EQ("name=a@+1", command.render());
  EXPECT_EQ("4: Unidentified problem detected.", command.parsed({"--name=c"}));
  EXPECT_EQ("", command.render());
  EXPECT_EQ(lastPosition, IArgumentParser::m_idx);
}

TEST_F(LastPositions, OnceDrawnMakeLeftoversAndPositionalArgumentsFail) {
  const CounterAt counter(lastPosition);
  EXPECT_EQ("4: Unidentified problem detected.", command.parsed({"--", "a"}));
  EXPECT_EQ("4: Unidentified problem detected.", command.parsed({"a"}));
  EXPECT_EQ(4, command.parseStream("a"));
  EXPECT_EQ("", command.render());
}

TEST_F(LastPositions, OnceDrawnMakeDefaultsFail) {
  command.parser().option("a,b,c", "", vtS32, nullptr)->defaultValue(1);
  const CounterAt counter(lastPosition - 2);
  EXPECT_EQ("4: Unidentified problem detected.", command.parsed({}));
  IParseResult& result = command.result();
  EXPECT_EQ(lastPosition - 2, result.get("a").position);
  EXPECT_EQ(lastPosition - 1, result.get("b").position);
  EXPECT_EQ(1, result.get("c").isEmpty);
  EXPECT_EQ(lastPosition, IArgumentParser::m_idx);
}

TEST_F(LastPositions, OnceDrawnMakeOptionFilesFail) {
  command.optionFiles();
  const CounterAt counter(lastPosition - 1);
  EXPECT_EQ("4: Unidentified problem detected.", command.parsed({"--option-file=/dev/null"}));
}

TEST_F(LastPositions, OnceDrawnGiveAStatusEvenIfMemoryRunsOut) {
  command.parser().option("a", "", vtS32, nullptr)->defaultValue(1);
  const char* const argv[] = {"tool"};
  for (long allowed = 0;; ++allowed) {
    SCOPED_TRACE(allowed);
    const CounterAt counter(lastPosition);
    const ResultHandle result = makeResult(command.parser());
    const testing::AllocationLimit limit(allowed, testing::Failing::forEver);
    const int status = command.parser().parseArgsVector(1, argv, result.get());
    EXPECT_TRUE(status == 3 || status == 4) << status;
    if (!limit.reached())
      break;
  }
}

TEST_F(LastPositions, SufficeForAParseThatNeedsJustThese) {
  const CounterAt counter(lastPosition - 5);
  EXPECT_EQ("name=a@+1 file=b@+4 | b@+3", command.parsed({"--name=a", "--", "b"}));
  EXPECT_EQ(lastPosition, IArgumentParser::m_idx);
}

TEST(Positions, InARowAreDrawnTogetherOrNotAtAll) {
  const CounterAt counter(lastPosition - 5);
  EXPECT_EQ(lastPosition - 5, IArgumentParser::drawInARow(3).value());
  EXPECT_FALSE(IArgumentParser::drawInARow(3));
  EXPECT_EQ(lastPosition - 2, IArgumentParser::drawInARow(2).value());
  EXPECT_FALSE(IArgumentParser::drawInARow(1));
  EXPECT_THROW(IArgumentParser::getNewPositionIndex(), PositionsExhausted);
  EXPECT_EQ(lastPosition, IArgumentParser::m_idx);
}

// Several threads at once may move the counter past the end of its range.
TEST(Positions, CannotBeDrawnPastTheEnd) {
  const CounterAt counter(-lastPosition - 1);
  EXPECT_FALSE(IArgumentParser::drawInARow(1));
  EXPECT_THROW(IArgumentParser::getNewPositionIndex(), PositionsExhausted);
  EXPECT_EQ(-lastPosition - 1, IArgumentParser::m_idx);
}

}  // namespace

}  // namespace kivo_3_3
