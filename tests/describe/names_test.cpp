// The names that a typed one stands for, or resembles.

#include <gtest/gtest.h>
#include <kivo/kivo.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "allocation/allocation_limit.h"
#include "support/global_locale.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

string shown(const char* name) { return name != nullptr ? name : "null"; }

class Names : public ::testing::Test {
 protected:
  string resolved(const char* typed) { return shown(resolveName(*parser, typed)); }
  string nearest(const char* typed) { return shown(nearestName(*parser, typed)); }

  ParserHandle parser = makeParser(parserFlags::unknownArgumentIsError);
};

TEST_F(Names, AreResolvedInFullAndCutShort) {
  parser->option("level,l", "", vtS32);
  parser->option("color", "", vtBool);
  parser->option("file", "", vtString)->positional();
  parser->option("secret", "", vtNull, "kivo_hidden");
  EXPECT_EQ("level", resolved("level"));
  EXPECT_EQ("level", resolved("l"));
  EXPECT_EQ("level", resolved("lev"));
  EXPECT_EQ("color", resolved("no-color"));
  EXPECT_EQ("color", resolved("n"));
  EXPECT_EQ("file", resolved("fi"));
  EXPECT_EQ("secret", resolved("s"));
}

TEST_F(Names, AreNotResolvedIfNoneOrSeveralAreMeantOrTheyCannotBeTyped) {
  parser->option("level", "", vtS32);
  parser->option("length", "", vtS32);
  parser->option("-dash", "", vtNull);
  parser->option("a=b", "", vtNull);
  parser->option("a b", "", vtNull);
  for (const char* typed : {"le", "x", "", "-dash", "a=b", "a b", "a=", "-"})
    EXPECT_EQ("null", resolved(typed)) << typed;
  EXPECT_EQ("null", resolved(nullptr));
}

TEST_F(Names, AreNotResolvedIfSeveralNamesOfOneOptionAreMeant) {
  parser->option("colour,color", "", vtString);
  EXPECT_EQ("null", resolved("col"));
  EXPECT_EQ("colour", resolved("color"));
}

TEST_F(Names, AreResolvedAmongThoseDeclaredSinceTheLastCall) {
  parser->option("level", "", vtS32);
  EXPECT_EQ("level", resolved("l"));
  parser->option("list", "", vtNull);
  EXPECT_EQ("null", resolved("l"));
  EXPECT_EQ("list", resolved("li"));
}

TEST_F(Names, EndAtTheWhiteSpaceOfTheGlobalLocale) {
  parser->option("a_b", "", vtNull);
  parser->option("a b", "", vtNull);
  EXPECT_EQ("a_b", resolved("a_b"));
  const GlobalLocale locale(localeWithUnderscoreAsSpace());
  EXPECT_EQ("null", resolved("a_b"));
  EXPECT_EQ("a b", resolved("a b"));
}

// What a parse finds for an argument, by what it stores or how it fails.
string parsed(IParser& parser, const string& typed) {
  const ResultHandle result = makeResult(parser);
  const string argument = "--" + typed;
  const char* const argv[] = {"tool", argument.c_str()};
  if (parser.parseArgsVector(2, argv, result.get()) != status::success)
    return "null";
  for (const char* name : {"no-a", "no", "a-no", "ab", "n"})
    if (result->present(name))
      return name;
  return "lost";
}

TEST_F(Names, AreResolvedAsAParseDoes) {
  for (const char* name : {"no-a", "no", "a-no", "ab", "n"})
    parser->option(name, "", *name == 'a' ? vtBool : vtNull);
  std::vector<string> typed = {"n", "o", "-", "a", "b", "="};
  for (std::size_t next = 0; typed[next].size() < 5; ++next)
    for (const char letter : {'n', 'o', '-', 'a', 'b', '='})
      typed.push_back(typed[next] + letter);
  for (const string& name : typed)
    ASSERT_EQ(name.find('=') == string::npos ? parsed(*parser, name) : "null",
              resolved(name.c_str()))
        << name;
}

TEST_F(Names, TheNearestIsAFewStepsAway) {
  parser->option("verbose", "", vtNull);
  parser->option("version", "", vtNull);
  EXPECT_EQ("verbose", nearest("verbose"));
  EXPECT_EQ("verbose", nearest("vrebose"));   // two neighbours swapped
  EXPECT_EQ("verbose", nearest("verbos"));    // one missing
  EXPECT_EQ("verbose", nearest("verbosee"));  // one too many
  EXPECT_EQ("verbose", nearest("werbose"));   // another one
  EXPECT_EQ("verbose", nearest("wervose"));   // two of seven letters
  EXPECT_EQ("version", nearest("versino"));
  EXPECT_EQ("null", nearest("wervoze"));  // three of seven letters
  EXPECT_EQ("null", nearest("quiet"));
  EXPECT_EQ("null", nearest(""));
  EXPECT_EQ("null", nearest(nullptr));
}

TEST_F(Names, AFourthOfTheTypedLettersMayBeWrong) {
  parser->option("abc", "", vtNull);
  parser->option("abcdefgh", "", vtNull);
  EXPECT_EQ("abc", nearest("abd"));           // 3 letters: one step
  EXPECT_EQ("null", nearest("ab"));           // 2 letters: none
  EXPECT_EQ("null", nearest("xbcx"));         // 4 letters: one step, and not two
  EXPECT_EQ("abcdefgh", nearest("abxdefg"));  // 7 letters: two steps
  EXPECT_EQ("null", nearest("abxdefx"));      // and not three
}

TEST_F(Names, ASwapMayBeEditedFurther) {
  parser->option("abcdefg-xyz", "", vtNull);
  // "zy" for "yz" with one letter between them: two steps and not three.
  EXPECT_EQ("abcdefg-xyz", nearest("abcdefg-xzqy"));
}

TEST_F(Names, TheFirstDeclaredOfEquallyNearNamesCounts) {
  parser->option("part,park", "", vtNull);
  parser->option("pare", "", vtNull);
  EXPECT_EQ("part", nearest("parx"));
  EXPECT_EQ("pare", nearest("pare"));
}

TEST_F(Names, ShortHiddenAndPositionalNamesAreNeverNear) {
  parser->option("ab", "", vtNull);
  parser->option("secret", "", vtNull, "kivo_hidden");
  parser->option("operand", "", vtString)->positional();
  EXPECT_EQ("null", nearest("ab"));
  EXPECT_EQ("null", nearest("abc"));
  EXPECT_EQ("null", nearest("secret"));
  EXPECT_EQ("null", nearest("operand"));
}

TEST_F(Names, CharactersCountAndNotBytes) {
  parser->option("gr\u00F6\u00DFe", "", vtNull);
  EXPECT_EQ("gr\u00F6\u00DFe", nearest("gr\u00F6se"));
  EXPECT_EQ("gr\u00F6\u00DFe", nearest("gr\xF6\u00DFe"));
}

TEST_F(Names, OnlyTheFirstHundredCharactersCount) {
  const string name(100, 'n');
  parser->option(name.c_str(), "", vtNull);
  EXPECT_EQ(name, nearest((name + string(1'000'000, 'x')).c_str()));
  EXPECT_EQ(name, nearest((string(25, 'x') + string(75, 'n')).c_str()));
  EXPECT_EQ("null", nearest((string(26, 'x') + string(74, 'n')).c_str()));
}

TEST_F(Names, TheHundredAndFirstCharacterDoesNotCount) {
  const string name(100, 'n');
  parser->option((name + "x").c_str(), "", vtNull);
  const string typed = string(25, 'y') + string(75, 'n');
  EXPECT_EQ(name + "x", nearest((typed + "z").c_str()));
  EXPECT_EQ("null", nearest(("y" + typed + "z").c_str()));
}

// Both are one step from "abc", so that the one declared first would be returned for both.
TEST_F(Names, BytesThatAreNotUtf8AreCharactersOfTheirOwn) {
  parser->option("ab\xF0", "", vtNull);
  parser->option("ab\xF1", "", vtNull);
  parser->option("ab\x71", "", vtNull);
  EXPECT_EQ("ab\xF0", nearest("ab\xF0"));
  EXPECT_EQ("ab\xF1", nearest("ab\xF1"));
  EXPECT_EQ("ab\x71", nearest("ab\x71"));
  EXPECT_EQ("ab\xF0", nearest("ab\xF2"));
}

// The distance by its definition: the last characters are deleted, inserted, replaced or matched,
// or a pair is swapped and what is between its characters is deleted and inserted.
std::size_t distanceOf(const string& left, const string& right) {
  std::vector<std::vector<std::size_t>> steps(left.size() + 1,
                                              std::vector<std::size_t>(right.size() + 1));
  for (std::size_t row = 0; row <= left.size(); ++row)
    for (std::size_t column = 0; column <= right.size(); ++column) {
      std::size_t fewest = row + column;
      if (row > 0 && column > 0) {
        const std::size_t replaced = left[row - 1] == right[column - 1] ? 0 : 1;
        fewest = std::min({steps[row - 1][column] + 1, steps[row][column - 1] + 1,
                           steps[row - 1][column - 1] + replaced});
      }
      for (std::size_t i = 1; i < row; ++i)
        for (std::size_t k = 1; k < column; ++k)
          if (left[i - 1] == right[column - 1] && left[row - 1] == right[k - 1])
            fewest = std::min(fewest, steps[i - 1][k - 1] + (row - i - 1) + 1 + (column - k - 1));
      steps[row][column] = fewest;
    }
  return steps.back().back();
}

string randomWord(std::mt19937& random) {
  string word(3 + random() % 10, 'a');
  for (char& letter : word)
    letter = static_cast<char>('a' + random() % 3);
  return word;
}

TEST_F(Names, AByteThatIsNotUtf8IsLikeNoCharacter) {
  parser->option("abXcd", "", vtNull);
  parser->option("ab\U0010FF01cd", "", vtNull);
  EXPECT_EQ("abXcd", nearest("ab\xFF"
                             "cd"));
}

TEST_F(Names, TheNearestIsThatOfAModel) {
  std::mt19937 random(20261122);
  int found = 0;
  for (int round = 0; round < 2'000; ++round) {
    parser = makeParser();
    std::vector<string> names;
    for (int count = 0; count < 6; ++count) {
      names.push_back(randomWord(random));
      parser->option(names.back().c_str(), "", vtNull);
    }
    const string typed = randomWord(random);
    string expected = "null";
    std::size_t limit = (typed.size() + 1) / 4 + 1;
    for (const string& name : names)
      if (const std::size_t steps = distanceOf(typed, name); steps < limit) {
        limit = steps;
        expected = name;
      }
    ASSERT_EQ(expected, nearest(typed.c_str())) << typed;
    found += expected != "null" ? 1 : 0;
  }
  EXPECT_LT(100, found);
}

TEST_F(Names, AreNullWhenMemoryRunsOut) {
  parser->option("verbose", "", vtNull);
  const AllocationLimit limit(0, Failing::forEver);
  EXPECT_EQ(nullptr, resolveName(*parser, "a name too long for no memory at all"));
  EXPECT_EQ(nullptr, nearestName(*parser, "vrebose"));
  EXPECT_TRUE(limit.reached());
}

}  // namespace
}  // namespace kivo_3_3::testing
