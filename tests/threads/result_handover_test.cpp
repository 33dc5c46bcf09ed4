// Results that are filled on one thread and read on another.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "threads/parsing.h"
#include "threads/together.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

const std::vector<const char*> options = {"level", "name", "mode", "depth"};

ParserHandle declared() {
  ParserHandle parser = makeParser();
  parser->option("level,l", "", vtS32);
  parser->option("name", "", vtString);
  parser->option("mode", "", vtString)->allowValue("fast")->allowValue("slow");
  parser->option("depth", "", vtString)->defaultValue("shallow");
  return parser;
}

// A result that differs from round to round.
ResultHandle filled(IParser& parser, int round) {
  const string number = std::to_string(round);
  ResultHandle result = makeResult(parser);
  parse(parser, {"--level=" + number, "--name=a" + number + ",b", "--mode=f", "--", "c" + number},
        result.get());
  return result;
}

string expected(int round) {
  const string number = std::to_string(round);
  return "level=" + number + ":" + number + " name=a" + number + ":'a" + number +
         "',b:'b' mode=fast:'fast' depth=shallow:'shallow' | c" + number;
}

// The parser is destroyed when it has filled the last result; the last hundred results are not
// read before that.
TEST(ResultOfAnotherThread, IsReadWhileItsParserGoesOn) {
  constexpr int rounds = 20000;
  constexpr int kept = 100;
  Handover<ResultHandle> results;
  MeetingPoint parserIsDestroyed(2);
  int differences = 0;
  together(2, [&](int number) {
    if (number == 0) {
      ParserHandle parser = declared();
      for (int round = 0; round < rounds; ++round) {
        results.give(filled(*parser, round));
        if (round % 100 == 0)
          parser->option(("late" + std::to_string(round)).c_str(), "", vtS32)->defaultValue(round);
        parser->getDescription("level", false);
      }
      parser.reset();
      parserIsDestroyed.meet();
      return;
    }
    for (int round = 0; round < rounds; ++round) {
      if (round == rounds - kept)
        parserIsDestroyed.meet();
      const ResultHandle result = results.take();
      differences += contentsOf(*result, options) == expected(round) ? 0 : 1;
    }
  });
  EXPECT_EQ(0, differences);
}

TEST(ResultOfAnotherThread, MayBeReadWhileItsParserIsDestroyed) {
  constexpr int rounds = 300;
  for (int round = 0; round < rounds; ++round) {
    ParserHandle parser = declared();
    ResultHandle result = filled(*parser, round);
    string contents;
    together(2, [&](int number) {
      if (number == 0) {
        parser.reset();
        return;
      }
      contents = contentsOf(*result, options);
      result.reset();
    });
    ASSERT_EQ(expected(round), contents);
  }
}

TEST(ResultOfAnotherThread, MayBeDestroyedWhileItsParserFillsOthers) {
  constexpr int rounds = 300;
  for (int round = 0; round < rounds; ++round) {
    ParserHandle parser = declared();
    ResultHandle first = filled(*parser, round);
    string contents;
    together(2, [&](int number) {
      if (number == 0)
        first.reset();
      else
        contents = contentsOf(*filled(*parser, round + 1), options);
    });
    ASSERT_EQ(expected(round + 1), contents);
  }
}

// The cursor continues where the other thread has left it.
TEST(ResultOfAnotherThread, IsReadByBothInTurns) {
  constexpr int turns = 1000;
  const ParserHandle parser = declared();
  ResultHandle result = makeResult(*parser);
  string lines;
  for (int turn = 0; turn < 2 * turns; ++turn)
    lines += "--level=" + std::to_string(turn) + "\n";
  ASSERT_EQ(0, parser->parseStream(lines.c_str(), result.get()));
  ASSERT_TRUE(result->present("level"));
  Handover<IParseResult*> handover[2];
  handover[0].give(result.get());
  together(2, [&](int number) {
    for (int turn = 0; turn < turns; ++turn) {
      IParseResult* const mine = handover[number].take();
      EXPECT_EQ(2 * turn + number, mine->next("level").value.get<int>());
      handover[1 - number].give(mine);
    }
  });
  EXPECT_EQ(1, result->next("level").isEmpty);
}

// A value outlives its result, and its text is shared by all its copies.
TEST(ResultOfAnotherThread, GivesValuesThatOutliveIt) {
  constexpr int rounds = 10000;
  Handover<variant_t> values;
  together(2, [&](int number) {
    if (number == 1) {
      for (int round = 0; round < rounds; ++round)
        ASSERT_EQ("a" + std::to_string(round), values.take().get<const char*>());
      return;
    }
    const ParserHandle parser = declared();
    for (int round = 0; round < rounds; ++round)
      values.give(filled(*parser, round)->get("name").value);
  });
}

}  // namespace

}  // namespace kivo_3_3::testing
