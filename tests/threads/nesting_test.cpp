// Nested parses, and rings of parsers that are handlers of each other. Each thread keeps track of
// its own.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/recording_handler.h"
#include "threads/parsing.h"
#include "threads/together.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

constexpr int deepest = 100;  // see kivo/event_handler.h

// A parser whose handler starts the next parse.
class Nest {
 public:
  explicit Nest(int depth) : m_depth(depth) {
    m_parser->option("x", "", vtNull);
    m_parser->addHandler(&m_handler);
    m_handler.alsoDo = [this] { goOn(); };
  }

  // Nests parses up to the depth. Returns the number of parses and their common status: "100 x 0".
  string parse() {
    m_reached = 0;
    m_statuses.clear();
    parseOnce();
    const int status = m_statuses.back();
    for (const int one : m_statuses)
      if (one != status)
        return "different ones";
    return std::to_string(m_statuses.size()) + " x " + std::to_string(status);
  }

  std::function<void()> atTheDeepest = [] {};

 private:
  void parseOnce() { m_statuses.push_back(m_parser->parseStream("-x", nullptr)); }
  void goOn() {
    if (++m_reached < m_depth)
      parseOnce();
    else
      atTheDeepest();
  }

  ParserHandle m_parser = makeParser();
  RecordingHandler m_handler;
  int m_depth;
  int m_reached = 0;  // the number of events so far
  std::vector<int> m_statuses;
};

TEST(NestedParses, OfOneThreadDoNotCountForAnother) {
  constexpr int threads = 3;
  MeetingPoint allAreDeepest(threads);
  string outcomes[threads];
  together(threads, [&](int number) {
    Nest nest(deepest);
    nest.atTheDeepest = [&] { allAreDeepest.meet(); };
    outcomes[number] = nest.parse();
  });
  for (const string& outcome : outcomes)
    EXPECT_EQ("100 x 0", outcome);
}

TEST(NestedParses, FailWhenTooDeepOnTheirThreadAlone) {
  MeetingPoint otherIsDeepest(2);
  MeetingPoint thisHasEnded(2);
  string outcomes[2];
  together(2, [&](int number) {
    Nest nest(number == 0 ? deepest + 1 : deepest);
    nest.atTheDeepest = [&] {
      otherIsDeepest.meet();
      thisHasEnded.meet();
    };
    if (number == 0)
      otherIsDeepest.meet();
    outcomes[number] = nest.parse();
    if (number == 0)
      thisHasEnded.meet();
  });
  EXPECT_EQ("101 x 4", outcomes[0]);
  EXPECT_EQ("100 x 0", outcomes[1]);
}

TEST(NestedParses, HaveTheSameLimitEachTime) {
  constexpr int rounds = 50;
  together(4, [&](int number) {
    Nest nest(number % 2 == 0 ? deepest : deepest + 1);
    for (int round = 0; round < rounds; ++round)
      ASSERT_EQ(number % 2 == 0 ? "100 x 0" : "101 x 4", nest.parse());
  });
}

// Three parsers in a ring: each is a handler of the previous one, and has a handler of its own.
class Ring {
 public:
  Ring() {
    for (int i = 0; i < parsers; ++i) {
      m_parsers[i]->option("level", "", vtS32);
      m_parsers[i]->addHandler(&m_handlers[i]);
      m_parsers[i]->addHandler(m_parsers[(i + 1) % parsers].get());
    }
  }
  Ring(const Ring&) = delete;
  Ring& operator=(const Ring&) = delete;

  string parse() {
    string events = parsed(*m_parsers[0], {"--level=1,2", "-x"}, {"level"});
    for (RecordingHandler& handler : m_handlers) {
      events += "\n" + handler.events;
      handler.events.clear();
    }
    return events;
  }

  std::function<void()>& atAnEvent() { return m_handlers[parsers - 1].alsoDo; }

 private:
  static constexpr int parsers = 3;

  RecordingHandler m_handlers[parsers];
  ParserHandle m_parsers[parsers] = {makeParser(), makeParser(), makeParser()};
};

constexpr const char* ringsOutcome =
    "level=1:1,2:2\n"
    "option level; value level=1; value level=2; unknown -x\n"
    "option level; value level=1; value level=2; unknown -x\n"
    "option level; value level=1; value level=2; unknown -x";

TEST(RingsOfParsers, OnSeveralThreadsPassEachEventOnOnce) {
  constexpr int rounds = 5000;
  together(4, [&](int) {
    Ring ring;
    for (int round = 0; round < rounds; ++round)
      ASSERT_EQ(ringsOutcome, ring.parse());
  });
}

// While one thread is inside an event, another thread destroys the parsers that it has used: they
// are not in use.
TEST(RingsOfParsers, InUseLetOtherThreadsDestroyTheirOwn) {
  constexpr int rounds = 200;
  for (int round = 0; round < rounds; ++round) {
    MeetingPoint isInside(2);
    MeetingPoint othersAreDestroyed(2);
    together(2, [&](int number) {
      Ring ring;
      if (number == 1) {
        isInside.meet();
        EXPECT_EQ(ringsOutcome, Ring().parse());
        othersAreDestroyed.meet();
        return;
      }
      bool isFirst = true;
      ring.atAnEvent() = [&] {
        if (!isFirst)
          return;
        isFirst = false;
        isInside.meet();
        othersAreDestroyed.meet();
      };
      EXPECT_EQ(ringsOutcome, ring.parse());
    });
  }
}

}  // namespace

}  // namespace kivo_3_3::testing
