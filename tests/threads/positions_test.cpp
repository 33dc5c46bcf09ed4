// Positions belong to the process: threads draw them from one counter.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "recognizers/argument_parser.h"
#include "result/parse_result.h"
#include "threads/parsing.h"
#include "threads/together.h"

namespace kivo_3_3::testing {

namespace {

using Positions = std::vector<int>;

constexpr int threads = 4;

bool rise(const Positions& positions) {
  return std::adjacent_find(positions.begin(), positions.end(), std::greater_equal<>()) ==
         positions.end();
}

// The number of positions that were drawn more than once.
std::ptrdiff_t countRepeated(const std::vector<Positions>& drawn) {
  Positions all;
  for (const Positions& positions : drawn)
    all.insert(all.end(), positions.begin(), positions.end());
  std::sort(all.begin(), all.end());
  return all.end() - std::unique(all.begin(), all.end());
}

// Appends the positions of two defaults, of occurrences, of values and of leftover arguments, in
// the order in which they were drawn.
void appendAll(IParseResult& result, Positions& positions) {
  positions.push_back(result.get("first").position);
  positions.push_back(result.get("second").position);
  result.present("level");
  Positions given;
  for (int position = result.nextPosition(); position != lastPosition;
       position = result.nextPosition())
    given.push_back(position);
  for (const Value& value : values(result, "level"))
    given.push_back(value.position);
  std::sort(given.begin(), given.end());
  positions.insert(positions.end(), given.begin(), given.end());
  for (const auto& argument : static_cast<ParseResult&>(result).arguments())
    positions.push_back(argument.position);
}

TEST(Positions, OfResultsOnSeveralThreadsRiseAndNeverRepeat) {
  constexpr int rounds = 10000;
  constexpr std::size_t drawnInARound = 10;
  std::vector<Positions> drawn(threads);
  together(threads, [&](int number) {
    Positions& mine = drawn[static_cast<std::size_t>(number)];
    const ParserHandle parser = makeParser();
    parser->option("first", "", vtS32)->defaultValue(1);
    parser->option("second", "", vtS32)->defaultValue(2);
    parser->option("level", "", vtS32);
    for (int round = 0; round < rounds; ++round) {
      const ResultHandle result = makeResult(*parser);
      parse(*parser, {"--level=1,2,3", "--level=4", "--", "a", "b"}, result.get());
      appendAll(*result, mine);
    }
  });
  for (const Positions& positions : drawn) {
    EXPECT_EQ(rounds * drawnInARound, positions.size());
    EXPECT_TRUE(rise(positions));
  }
  EXPECT_EQ(0, countRepeated(drawn));
}

TEST(Positions, DrawnOneByOneAndInARowNeverRepeat) {
  constexpr int rounds = 50000;
  constexpr int inARow = 3;
  std::vector<Positions> drawn(threads);
  together(threads, [&](int number) {
    Positions& mine = drawn[static_cast<std::size_t>(number)];
    for (int round = 0; round < rounds; ++round) {
      mine.push_back(IArgumentParser::getNewPositionIndex());
      const int first = IArgumentParser::drawInARow(inARow).value();
      for (int i = 0; i < inARow; ++i)
        mine.push_back(first + i);
    }
  });
  for (const Positions& positions : drawn)
    EXPECT_TRUE(rise(positions));
  EXPECT_EQ(0, countRepeated(drawn));
}

// The threads try to draw twice as many positions as are left: the counter stops at its end.
TEST(Positions, AreAllDrawnOnceWhereTheyRunOut) {
  constexpr int rest = 20000;
  constexpr int attempts = 2 * rest / threads;
  const int before = IArgumentParser::m_idx;
  IArgumentParser::m_idx = lastPosition - rest;
  std::vector<Positions> drawn(threads);
  together(threads, [&](int number) {
    Positions& mine = drawn[static_cast<std::size_t>(number)];
    for (int attempt = 0; attempt < attempts; ++attempt) {
      try {
        mine.push_back(IArgumentParser::getNewPositionIndex());
      } catch (const PositionsExhausted&) {
        EXPECT_FALSE(IArgumentParser::drawInARow(1));
      }
    }
  });
  EXPECT_EQ(lastPosition, IArgumentParser::m_idx);
  IArgumentParser::m_idx = before;
  std::size_t all = 0;
  for (const Positions& positions : drawn) {
    EXPECT_TRUE(rise(positions));
    all += positions.size();
  }
  EXPECT_EQ(0, countRepeated(drawn));
  EXPECT_EQ(static_cast<std::size_t>(rest), all);
}

}  // namespace

}  // namespace kivo_3_3::testing
