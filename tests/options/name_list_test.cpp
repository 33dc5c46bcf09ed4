#include "options/name_list.h"

#include <gtest/gtest.h>

#include "options/make_option.h"

namespace kivo_3_3::testing {
namespace {

TEST(Split, CutsAtEveryCommaAndDropsOnlyAnEmptyEnd) {
  const struct {
    const char* text;
    const char* words;
  } cases[] = {
      {"", ""},
      {"a", "[a]"},
      {"level,l", "[level][l]"},
      {"a,,b", "[a][][b]"},
      {"a,", "[a]"},
      {",", "[]"},
      {",,", "[][]"},
      {",a", "[][a]"},
      {" a , b ", "[ a ][ b ]"},
      {"a;b", "[a;b]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    Texts words;
    EXPECT_EQ(0, static_cast<int>(split(c.text, words)));
    EXPECT_EQ(c.words, listed(words));
    Names names;
    EXPECT_EQ(0, static_cast<int>(split(c.text, names)));
    EXPECT_EQ(c.words, listed(names));
  }
}

TEST(Split, AppendsToTheWordsThatAreThere) {
  Texts words = {"first"};
  split("a,b", words);
  split("", words);
  EXPECT_EQ("[first][a][b]", listed(words));
}

TEST(ValidateName, AtMostThreeNamesAndAShortThird) {
  const struct {
    const char* names;
    int rejected;
  } cases[] = {
      {"", 0},
      {"a", 0},
      {"a-name-of-any-length", 0},
      {"a-name-of-any-length,another-name-of-any-length", 0},
      {"a,b,c", 0},
      {"a,b,cd", 0},
      {"a,b,cde", 1},
      {"level,lev,l", 0},
      {"l,lev,level", 1},
      {"a,b,c,d", 1},
      {"a,b,,d", 1},
      {"a,,c", 0},
      {"a,b,", 0},
  };
  for (const auto& c : cases) {
    Names names;
    split(c.names, names);
    EXPECT_EQ(c.rejected, validateName(names)) << c.names;
  }
}

TEST(ValidateName, AnEmptyThirdNamePasses) { EXPECT_EQ(0, validateName({"a", "b", ""})); }

TEST(IsIntersected, SaysWhetherTwoSetsHaveATagInCommon) {
  const struct {
    Texts first;  // sorted, like `second`
    Texts second;
    bool intersected;
  } cases[] = {
      {{}, {}, false},
      {{"a"}, {}, false},
      {{"a"}, {"a"}, true},
      {{"a"}, {"A"}, false},
      {{"a"}, {"ab"}, false},
      {{"a", "c", "e"}, {"b", "d", "f"}, false},
      {{"a", "c", "e"}, {"e", "f"}, true},
      {{"z"}, {"a", "b", "z"}, true},
      {{""}, {""}, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(listed(c.first) + " " + listed(c.second));
    EXPECT_EQ(c.intersected, isIntersected(c.first, c.second));
    EXPECT_EQ(c.intersected, isIntersected(c.second, c.first));
  }
}

}  // namespace
}  // namespace kivo_3_3::testing
