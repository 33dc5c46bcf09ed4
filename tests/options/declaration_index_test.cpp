#include "options/declaration_index.h"

#include <gtest/gtest.h>

#include <random>

#include "allocation/allocation_limit.h"
#include "options/make_option.h"
#include "support/declaration_scan.h"

namespace kivo_3_3::testing {
namespace {

using std::string;
using Options = OptionList;

TEST(DeclarationIndex, WithoutOptionsNothingIsFound) {
  DeclarationIndex index(nullptr);
  EXPECT_EQ("none", shown(index.find("a", {})));
  EXPECT_EQ("none", shown(index.find("", {})));
  EXPECT_EQ("none", shown(index.findBest("", {})));
}

TEST(DeclarationIndex, FindsByEveryNameAndNegation) {
  const Options options = {makeOption({"level", "l"}, vtS32), makeOption({"color", "c"}, vtBool)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("0", shown(index.find("l", options)));
  EXPECT_EQ("1", shown(index.find("color", options)));
  EXPECT_EQ("1", shown(index.find("no-c", options)));
  EXPECT_EQ("none", shown(index.find("no-level", options)));
  EXPECT_EQ("none", shown(index.find("lev", options)));
}

TEST(DeclarationIndex, TheFirstDeclaredOptionCounts) {
  const Options options = {makeOption({"x"}, vtBool), makeOption({"no-x", "y"}, vtS32),
                           makeOption({"y"}, vtBool)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("0", shown(index.find("no-x", options)));
  EXPECT_EQ("1", shown(index.find("y", options)));
  EXPECT_EQ("2", shown(index.find("no-y", options)));
}

TEST(DeclarationIndex, CompletesAnAbbreviation) {
  const Options options = {makeOption({"level"}, vtS32), makeOption({"length"}, vtS32),
                           makeOption({"color"}, vtBool), makeOption({"le"}, vtS32)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("level@0", shown(index.findBest("lev", options)));
  EXPECT_EQ("le@3", shown(index.findBest("le", options)));
  EXPECT_EQ("ambiguous", shown(index.findBest("l", options)));
  EXPECT_EQ("color@2", shown(index.findBest("c", options)));
  EXPECT_EQ("no-color@2", shown(index.findBest("no-c", options)));
  EXPECT_EQ("no-color@2", shown(index.findBest("n", options)));
  EXPECT_EQ("none", shown(index.findBest("levels", options)));
}

TEST(DeclarationIndex, TakesNoMemoryForFurtherAbbreviations) {
  const Options options = {makeOption({"level"}, vtS32), makeOption({"color"}, vtBool)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("level@0", shown(index.findBest("lev", options)));
  const AllocationLimit limit(0, Failing::once);
  EXPECT_EQ(1u, index.findBest("c", options).option);
  EXPECT_FALSE(limit.reached());
}

TEST(DeclarationIndex, TwoNamesOfOneOptionAreTwoMatches) {
  const Options options = {makeOption({"level", "length"}, vtS32)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("ambiguous", shown(index.findBest("le", options)));
}

TEST(DeclarationIndex, LearnsWhatWasDeclaredSinceTheLastLookUp) {
  Options options = {makeOption({"a"}, vtS32)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("none", shown(index.find("b", options)));
  options.push_back(makeOption({"b"}, vtBool));
  EXPECT_EQ("1", shown(index.find("b", options)));
  EXPECT_EQ("no-b@1", shown(index.findBest("no", options)));
}

TEST(DeclarationIndex, LearnsNamesAddedToTheLastOption) {
  Options options = {makeOption({"a"}, vtS32), makeOption({"b"}, vtS32)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("none", shown(index.find("c", options)));
  options.back().synonym("c");
  EXPECT_EQ("1", shown(index.find("c", options)));
  options.back().synonym("delta");
  options.push_back(makeOption({"e"}, vtS32));
  EXPECT_EQ("delta@1", shown(index.findBest("d", options)));
  EXPECT_EQ("2", shown(index.find("e", options)));
}

// Two amendments must not look like none.
TEST(DeclarationIndex, LearnsANameWhateverElseWasAmendedWithIt) {
  using Amendment = IOption* (*)(IOption&);
  const Amendment amendments[] = {[](IOption& option) { return option.allowValue(1); },
                                  [](IOption& option) { return option.allowDeprecatedValue(1, 2); },
                                  [](IOption& option) { return option.defaultValue(1); },
                                  [](IOption& option) { return option.tokenize(';'); },
                                  [](IOption& option) { return option.positional(); },
                                  [](IOption& option) { return option.tag("t"); }};
  for (const Amendment amend : amendments) {
    SCOPED_TRACE(&amend - amendments);
    Options options;
    options.push_back(makeOption({"level"}, vtS32));
    DeclarationIndex index(nullptr);
    EXPECT_EQ("none", shown(index.find("x", options)));
    amend(*options.back().synonym("x"));
    EXPECT_EQ("0", shown(index.find("x", options)));
  }
}

TEST(DeclarationIndex, LearnsNamesOfAnOptionDeclaredWithNone) {
  Options options = {makeOption({}, vtBool)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("none", shown(index.find("a", options)));
  options.back().synonym("a");
  EXPECT_EQ("0", shown(index.find("no-a", options)));
}

TEST(DeclarationIndex, FindsTheFirstPositionalOption) {
  Options options = {makeOption({"a"}, vtS32)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("none", shown(index.findPositional(options)));
  options.push_back(makeOption({"b"}, vtS32));
  options.back().positional();
  EXPECT_EQ("1", shown(index.findPositional(options)));
  options.push_back(makeOption({"c"}, vtS32));
  options.back().positional();
  EXPECT_EQ("1", shown(index.findPositional(options)));
}

TEST(DeclarationIndex, SeesThatTheLastOptionHasBecomePositional) {
  Options options = {makeOption({"a"}, vtS32)};
  DeclarationIndex index(nullptr);
  EXPECT_EQ("none", shown(index.findPositional(options)));
  options.back().positional();
  EXPECT_EQ("0", shown(index.findPositional(options)));
}

// "b@0 a@1": names and places of the defaults, in their order.
string defaultsOf(DeclarationIndex& index, const Options& options) {
  const auto defaults = index.timelessDefaults(options);
  if (defaults == nullptr)
    return "none";
  string all;
  for (const DeclaredDefaults::Default& one : defaults->all())
    all += string(one.name) + "@" + std::to_string(one.place) + " ";
  return all;
}

TEST(DeclarationIndex, GivesTheDefaultsInDeclarationOrder) {
  Options options;
  DeclarationIndex index(nullptr);
  EXPECT_EQ("none", defaultsOf(index, options));
  for (const char* name : {"b", "a", "c"})
    options.push_back(makeOption({name}, vtS32));
  EXPECT_EQ("none", defaultsOf(index, options));
  options[2].defaultValue(1);
  EXPECT_EQ("c@0 ", defaultsOf(index, options));
  options.push_back(makeOption({"d", "e"}, vtS32));
  options.back().defaultValue(1);
  EXPECT_EQ("c@0 d@1 e@2 ", defaultsOf(index, options));
}

TEST(DeclarationIndex, GivesTheSameDefaultsUntilTheyChange) {
  Options options;
  options.push_back(makeOption({"level"}, vtS32));
  options.back().defaultValue(1);
  DeclarationIndex index(nullptr);
  const auto first = index.timelessDefaults(options);
  EXPECT_EQ(first, index.timelessDefaults(options));
  options.back().synonym("l");
  const auto second = index.timelessDefaults(options);
  EXPECT_NE(first, second);
  options.back().defaultValue(2);
  EXPECT_EQ("level@0 l@1 ", defaultsOf(index, options));
  EXPECT_STREQ("2", index.timelessDefaults(options)->find("l")->text);
  EXPECT_STREQ("1", second->find("l")->text);
  EXPECT_EQ(nullptr, first->find("l"));
}

TEST(DeclarationIndex, GivesNoDefaultsWhereOneHasToBeConvertedAtEachParse) {
  Options options;
  options.push_back(makeOption({"a"}, vtS32));
  options.back().defaultValue(1);
  DeclarationIndex index(nullptr);
  EXPECT_EQ("a@0 ", defaultsOf(index, options));
  options.push_back(makeOption({"b"}, vtString));
  options.back().defaultValue(variant_t("text", true));
  EXPECT_EQ("none", defaultsOf(index, options));
  options.back().defaultValue("text");
  EXPECT_EQ("a@0 b@1 ", defaultsOf(index, options));
}

TEST(DeclarationIndex, VisitsTheOptionsThatDeclareADefault) {
  Options options;
  for (const char* name : {"a", "b", "c", "d"})
    options.push_back(makeOption({name}, vtS32));
  options[1].defaultValue(1);
  options[2].defaultValue({});
  options[3].defaultValue(1);
  DeclarationIndex index(nullptr);
  string visited;
  const auto note = [&](const OptionDescription& option) { visited += option.firstName(); };
  index.forEachDefault(options, note);
  EXPECT_EQ("bd", visited);
  options.push_back(makeOption({"e"}, vtS32));
  index.forEachDefault(options, note);
  EXPECT_EQ("bdbd", visited);
}

TEST(DeclarationIndex, ManyNamesAreFound) {
  Options options;
  DeclarationIndex index(nullptr);
  const auto find = [&](std::string_view name) { return index.find(name, options); };
  for (unsigned int number = 0; number < 3'000; ++number) {
    options.push_back(makeOption({"option" + std::to_string(number)}, vtS32));
    if (number % 100 == 0) {
      EXPECT_EQ(std::to_string(number / 2), shown(find("option" + std::to_string(number / 2))));
    }
  }
  for (unsigned int number = 0; number < 3'000; ++number)
    ASSERT_EQ(std::to_string(number), shown(find("option" + std::to_string(number))));
  EXPECT_EQ("none", shown(index.find("option3000", options)));
}

using Random = std::mt19937;

std::size_t below(std::size_t end, Random& random) {
  return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
}

string randomName(Random& random) {
  static const char* const pieces[] = {"n", "o", "-", "a", "no-", "b"};
  string name;
  for (std::size_t count = below(4, random); count != 0; --count)
    name += pieces[below(std::size(pieces), random)];
  return name;
}

OptionDescription randomOption(Random& random) {
  const variant_type_t types[] = {vtBool, vtS32, vtNull};
  OptionDescription option = makeOption({}, types[below(3, random)]);
  for (std::size_t count = below(4, random); count != 0; --count)
    option.synonym(randomName(random).c_str());
  return option;
}

void expectAgreement(DeclarationIndex& index, const string& typed, const Options& options,
                     const DeclarationScan& scan) {
  ASSERT_EQ(scan.find(typed), shown(index.find(std::string_view(typed), options))) << typed;
  ASSERT_EQ(scan.findBest(typed), shown(index.findBest(std::string_view(typed), options))) << typed;
}

// Every text of up to `length` letters.
std::vector<string> allTexts(std::size_t length) {
  std::vector<string> texts = {""};
  for (std::size_t next = 0; texts[next].size() < length; ++next)
    for (const char letter : {'n', 'o', '-', 'a', 'b'})
      texts.push_back(texts[next] + letter);
  return texts;
}

TEST(DeclarationIndex, AnswersAsAWalkOverTheDeclarationsWhateverIsDeclaredBetween) {
  Random random(20240608);
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    Options options;
    DeclarationIndex index(nullptr);
    for (int step = 0; step < 30; ++step) {
      const std::size_t what = below(4, random);
      if (what == 0)
        options.push_back(randomOption(random));
      else if (what == 1 && !options.empty())
        options.back().synonym(randomName(random).c_str());
      else
        ASSERT_NO_FATAL_FAILURE(
            expectAgreement(index, randomName(random), options, DeclarationScan(options)));
    }
  }
}

TEST(DeclarationIndex, AnswersAsAWalkOverTheDeclarationsForEveryShortText) {
  Random random(20240609);
  const std::vector<string> texts = allTexts(4);
  for (int round = 0; round < 40; ++round) {
    SCOPED_TRACE(round);
    Options options;
    for (std::size_t count = below(8, random); count != 0; --count)
      options.push_back(randomOption(random));
    DeclarationIndex index(nullptr);
    const DeclarationScan scan(options);
    for (const string& typed : texts)
      ASSERT_NO_FATAL_FAILURE(expectAgreement(index, typed, options, scan));
  }
}

}  // namespace
}  // namespace kivo_3_3::testing
