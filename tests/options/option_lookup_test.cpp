#include <kivo/option_lookup.h>

#include <gtest/gtest.h>

#include "options/make_option.h"

namespace kivo_3_3::testing {
namespace {

using Options = std::vector<OptionDescription>;

constexpr unsigned int untouched = 4711;

// The index that findOption() stores, or `untouched` if it stores none.
template <class Wanted>
unsigned int lookedUp(const Wanted& wanted, const Options& options) {
  unsigned int index = untouched;
  const int result = findOption(wanted, index, options);
  EXPECT_EQ(index == untouched ? 1 : 0, result);
  return index;
}

unsigned int lookedUp(const char* name, const Options& options) {
  return lookedUp(std::string(name), options);
}

unsigned int firstOf(const std::vector<std::string>& names, const Options& options) {
  return lookedUp(names, options);
}

TEST(FindOption, AnyOfItsNamesFindsAnOption) {
  const Options options = {makeOption({"level", "lev", "l"}, vtS32),
                           makeOption({"name"}, vtString)};
  EXPECT_EQ(0u, lookedUp("level", options));
  EXPECT_EQ(0u, lookedUp("lev", options));
  EXPECT_EQ(0u, lookedUp("l", options));
  EXPECT_EQ(1u, lookedUp("name", options));
}

TEST(FindOption, OnlyTheWholeNameCounts) {
  const Options options = {makeOption({"level"}, vtS32)};
  for (const char* name : {"", "leve", "levels", "Level", " level", "no-level"})
    EXPECT_EQ(untouched, lookedUp(name, options)) << name;
}

TEST(FindOption, OnlyABooleanHasTheNegationsOfItsNames) {
  const Options options = {makeOption({"color", "c"}, vtBool)};
  EXPECT_EQ(0u, lookedUp("no-color", options));
  EXPECT_EQ(0u, lookedUp("no-c", options));
  for (const char* name : {"no-", "no", "nocolor", "No-color", "no-no-color", "no-colo", "no-x"})
    EXPECT_EQ(untouched, lookedUp(name, options)) << name;
  EXPECT_EQ(untouched, lookedUp("no-color", {makeOption({"color"}, vtNull)}));
  EXPECT_EQ(untouched, lookedUp("no-color", {makeOption({"color"}, vtS32)}));
}

TEST(FindOption, OfSeveralOptionsTheFirstDeclaredIsFound) {
  const Options options = {makeOption({"a"}, vtS32), makeOption({"color"}, vtBool),
                           makeOption({"no-color", "a"}, vtS32)};
  EXPECT_EQ(0u, lookedUp("a", options));
  EXPECT_EQ(1u, lookedUp("no-color", options));
  const Options reversed = {options[2], options[1], options[0]};
  EXPECT_EQ(0u, lookedUp("no-color", reversed));
  EXPECT_EQ(0u, lookedUp("a", reversed));
}

TEST(FindOption, TheEmptyNameIsANameLikeOthers) {
  EXPECT_EQ(untouched, lookedUp("", {makeOption({}, vtBool)}));
  EXPECT_EQ(0u, lookedUp("", {makeOption({""}, vtBool)}));
  EXPECT_EQ(0u, lookedUp("no-", {makeOption({""}, vtBool)}));
  EXPECT_EQ(untouched, lookedUp("no-", {makeOption({}, vtBool)}));
}

TEST(FindOption, WithoutOptionsNothingIsFound) { EXPECT_EQ(untouched, lookedUp("level", {})); }

TEST(FindOption, OfSeveralNamesTheFirstThatIsFoundCounts) {
  const Options options = {makeOption({"a"}, vtS32), makeOption({"b"}, vtBool)};
  EXPECT_EQ(1u, firstOf({"b", "a"}, options));
  EXPECT_EQ(0u, firstOf({"a", "b"}, options));
  EXPECT_EQ(1u, firstOf({"x", "no-b", "a"}, options));
  EXPECT_EQ(untouched, firstOf({"x", "y"}, options));
}

TEST(FindOption, AnEmptyListOfNamesFindsNothing) {
  EXPECT_EQ(untouched, firstOf({}, {makeOption({"a"}, vtS32), makeOption({}, vtS32)}));
}

}  // namespace
}  // namespace kivo_3_3::testing
