#include "stratum2/find_best_match.h"

#include <gtest/gtest.h>

#include <vector>

namespace kivo_3_3::testing {
namespace {

using stratum2::find_best_match;
using Walk = stratum2::generic_iterator_t<std::string>;

// The number of best matches, then the matches: "2: level length".
std::string matches(const std::vector<std::string>& candidates, const std::string& typed) {
  Walk best;
  std::string text =
      std::to_string(find_best_match({candidates.begin(), candidates.end()}, typed, best)) + ":";
  for (; best; ++best)
    text += " " + *best;
  return text;
}

TEST(FindBestMatch, AnExactNameWinsAlone) {
  EXPECT_EQ("1: level", matches({"level", "length"}, "level"));
  EXPECT_EQ("1: le", matches({"level", "length", "le"}, "le"));
  EXPECT_EQ("1: le", matches({"le", "level", "length"}, "le"));
  EXPECT_EQ("1: le", matches({"level", "le", "length"}, "le"));
}

TEST(FindBestMatch, APrefixThatFitsOneCandidateMatchesIt) {
  EXPECT_EQ("1: verbose", matches({"level", "verbose", "length"}, "v"));
  EXPECT_EQ("1: level", matches({"level", "length"}, "lev"));
}

TEST(FindBestMatch, AllCandidatesWithThePrefixMatchInTheirOrder) {
  EXPECT_EQ("2: level length", matches({"level", "verbose", "length"}, "le"));
  EXPECT_EQ("3: z2 z1 z3", matches({"z2", "a", "z1", "z3"}, "z"));
}

TEST(FindBestMatch, NearMissesMatchNothing) {
  const char* const misses[] = {"levels", "Level", "levl", "evel", "lev el", " level", "x"};
  for (const char* typed : misses)
    EXPECT_EQ("0:", matches({"level", "length"}, typed)) << typed;
}

TEST(FindBestMatch, TheEmptyTextIsAPrefixOfEverything) {
  EXPECT_EQ("1: level", matches({"level"}, ""));
  EXPECT_EQ("2: level length", matches({"level", "length"}, ""));
}

TEST(FindBestMatch, TheEmptyTextIsTheExactNameOfAnEmptyCandidate) {
  EXPECT_EQ("1: ", matches({"level", "", "length"}, ""));
}

TEST(FindBestMatch, ACandidateListedTwiceMatchesTwiceByPrefixAndOnceExactly) {
  EXPECT_EQ("2: level level", matches({"level", "level"}, "lev"));
  EXPECT_EQ("1: level", matches({"level", "level"}, "level"));
}

TEST(FindBestMatch, WithoutCandidatesNothingMatches) {
  EXPECT_EQ("0:", matches({}, "level"));
  EXPECT_EQ("0:", matches({}, ""));
  Walk best;
  EXPECT_EQ(0u, find_best_match(Walk(), "level", best));
}

TEST(FindBestMatch, WithoutAMatchTheHandleIsEmptied) {
  const std::vector<std::string> candidates = {"level"};
  Walk best(candidates);
  EXPECT_EQ(0u, find_best_match({candidates.begin(), candidates.end()}, "x", best));
  EXPECT_FALSE(static_cast<bool>(best));
}

TEST(FindBestMatch, TheMatchesOutliveTheCandidates) {
  Walk best;
  {
    const std::vector<std::string> candidates = {"a long enough candidate to be allocated"};
    find_best_match({candidates.begin(), candidates.end()}, "a long", best);
  }
  EXPECT_EQ("a long enough candidate to be allocated", *best);
}

}  // namespace
}  // namespace kivo_3_3::testing
