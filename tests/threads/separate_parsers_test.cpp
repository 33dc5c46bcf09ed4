// Threads that each have parsers of their own.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "threads/episodes.h"
#include "threads/together.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

// Plays all episodes again and again, beginning with the given one. Returns the first episode with
// an unexpected outcome, and that outcome; empty if there is none.
string playAll(std::size_t first, int rounds) {
  const TemporaryFolder folder;
  writeOptionFiles(folder);
  for (int round = 0; round < rounds; ++round)
    for (std::size_t i = 0; i < episodes().size(); ++i) {
      const Episode& episode = episodes()[(first + i) % episodes().size()];
      const string outcome = episode.play(folder);
      if (outcome != episode.outcome)
        return episode.name + (":\n" + outcome);
    }
  return "";
}

TEST(Episodes, HaveTheirOutcomesOnOneThread) {
  const TemporaryFolder folder;
  writeOptionFiles(folder);
  for (const Episode& episode : episodes())
    EXPECT_EQ(episode.outcome, episode.play(folder)) << episode.name;
}

class SeparateParsers : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Threads, SeparateParsers, ::testing::Values(2, 4));

// Half of the threads begin with one episode, half with another.
TEST_P(SeparateParsers, OfThreadsDoNotNoticeEachOther) {
  constexpr int rounds = 3000;
  const int threads = GetParam();
  std::vector<string> differences(static_cast<std::size_t>(threads));
  together(threads, [&](int number) {
    const auto thread = static_cast<std::size_t>(number);
    differences[thread] = playAll(thread % 2 * 5, rounds / threads);
  });
  for (const string& difference : differences)
    EXPECT_EQ("", difference);
}

// All threads play the same episode, again and again.
TEST_P(SeparateParsers, MayDoTheSameAtTheSameTime) {
  constexpr int rounds = 400;
  const int threads = GetParam();
  for (const Episode& episode : episodes()) {
    std::vector<string> outcomes(static_cast<std::size_t>(threads), episode.outcome);
    together(threads, [&](int number) {
      string& outcome = outcomes[static_cast<std::size_t>(number)];
      const TemporaryFolder folder;
      writeOptionFiles(folder);
      for (int round = 0; round < rounds / threads && outcome == episode.outcome; ++round)
        outcome = episode.play(folder);
    });
    for (const string& outcome : outcomes)
      EXPECT_EQ(episode.outcome, outcome) << episode.name;
  }
}

}  // namespace

}  // namespace kivo_3_3::testing
