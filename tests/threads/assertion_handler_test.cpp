// One assertion handler serves all threads.

#include <gtest/gtest.h>
#include <kivo/value.h>

#include <atomic>

#include "bedrock/assertion.h"
#include "threads/parsing.h"
#include "threads/together.h"

namespace kivo_3_3::testing {

namespace {

using BEDROCK::assertion_handler_t;
using BEDROCK::set_assertion_handler;

thread_local int calledOnThisThread = 0;

void noteFirst(const char*, const char*, int) { ++calledOnThisThread; }
void noteSecond(const char*, const char*, int) { ++calledOnThisThread; }

// Restores the previous handler.
class AssertionHandlerOfAll : public ::testing::Test {
 protected:
  ~AssertionHandlerOfAll() override { set_assertion_handler(m_before); }

  assertion_handler_t m_before = set_assertion_handler(noteFirst);
};

TEST_F(AssertionHandlerOfAll, IsCalledOnTheThreadThatReads) {
  constexpr int rounds = 100000;
  const variant_t text("text");
  together(4, [&](int number) {
    for (int round = 0; round < rounds * number; ++round)
      EXPECT_EQ(0, text.get<int>());
    EXPECT_EQ(rounds * number, calledOnThisThread);
  });
  EXPECT_EQ(0, calledOnThisThread);
}

TEST_F(AssertionHandlerOfAll, IsCalledForAnUnsuitableDefaultOfEachParse) {
  constexpr int rounds = 10000;
  together(2, [&](int) {
    const ParserHandle parser = makeParser();
    parser->option("level", "", vtS32)->defaultValue("no number");
    for (int round = 0; round < rounds; ++round)
      ASSERT_EQ("level=0:'no number'", parsed(*parser, {}, {"level"}));
    EXPECT_EQ(rounds, calledOnThisThread);
  });
}

// Each handler that an exchange installs is returned by exactly one later exchange, so none is
// lost. The threads that read call the handler that is installed at that moment.
TEST_F(AssertionHandlerOfAll, MayBeExchangedWhileOthersCallIt) {
  constexpr int rounds = 500000;
  const variant_t text("text");
  std::atomic<int> balance = 1;  // how often noteSecond is installed and not returned
  set_assertion_handler(noteSecond);
  together(4, [&](int number) {
    for (int round = 0; round < rounds; ++round) {
      if (number < 2) {
        const bool bringsSecond = (round + number) % 2 == 0;
        const auto returned = set_assertion_handler(bringsSecond ? noteSecond : noteFirst);
        EXPECT_TRUE(returned == noteFirst || returned == noteSecond);
        balance += (bringsSecond ? 1 : 0) - (returned == noteSecond ? 1 : 0);
      } else {
        EXPECT_EQ(0, text.get<int>());
      }
    }
    EXPECT_EQ(number < 2 ? 0 : rounds, calledOnThisThread);
  });
  EXPECT_EQ(set_assertion_handler(noteFirst) == noteSecond ? 1 : 0, balance);
}

}  // namespace

}  // namespace kivo_3_3::testing
