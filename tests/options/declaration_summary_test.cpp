#include "options/declaration_summary.h"

#include <gtest/gtest.h>

#include "options/make_option.h"
#include "support/declaration_scan.h"

namespace kivo_3_3::testing {
namespace {

using std::string;
using Options = OptionList;

TEST(DeclarationSummary, WithoutOptionsThereIsNothing) {
  const Options options;
  DeclarationSummary summary(options, nullptr);
  EXPECT_EQ("none", shown(summary.findPositional()));
  EXPECT_FALSE(summary.hasActions());
  EXPECT_EQ(nullptr, summary.timelessDefaults());
}

TEST(DeclarationSummary, SeesAnActionThatIsLastOrBeforeOthers) {
  Options options = {makeOption({"a"}, vtS32)};
  DeclarationSummary summary(options, nullptr);
  EXPECT_FALSE(summary.hasActions());
  options.push_back(makeOption({"b"}, vtNull));
  options.back().m_notAnAction = 0;
  EXPECT_TRUE(summary.hasActions());
  options.push_back(makeOption({"c"}, vtS32));
  EXPECT_TRUE(summary.hasActions());
}

TEST(DeclarationSummary, FindsTheFirstPositionalOption) {
  Options options = {makeOption({"a"}, vtS32)};
  DeclarationSummary summary(options, nullptr);
  EXPECT_EQ("none", shown(summary.findPositional()));
  options.push_back(makeOption({"b"}, vtS32));
  options.back().positional();
  EXPECT_EQ("1", shown(summary.findPositional()));
  options.push_back(makeOption({"c"}, vtS32));
  options.back().positional();
  EXPECT_EQ("1", shown(summary.findPositional()));
}

TEST(DeclarationSummary, SeesThatTheLastOptionHasBecomePositional) {
  Options options = {makeOption({"a"}, vtS32)};
  DeclarationSummary summary(options, nullptr);
  EXPECT_EQ("none", shown(summary.findPositional()));
  options.back().positional();
  EXPECT_EQ("0", shown(summary.findPositional()));
}

// Renders the name and the place of each default, in order: "b@0 a@1 ".
string defaultsOf(DeclarationSummary& summary) {
  const auto defaults = summary.timelessDefaults();
  if (defaults == nullptr)
    return "none";
  string all;
  for (const DeclaredDefaults::Default& one : defaults->all())
    all += string(one.name) + "@" + std::to_string(one.place) + " ";
  return all;
}

TEST(DeclarationSummary, GivesTheDefaultsInDeclarationOrder) {
  Options options;
  DeclarationSummary summary(options, nullptr);
  EXPECT_EQ("none", defaultsOf(summary));
  for (const char* name : {"b", "a", "c"})
    options.push_back(makeOption({name}, vtS32));
  EXPECT_EQ("none", defaultsOf(summary));
  options[2].defaultValue(1);
  EXPECT_EQ("c@0 ", defaultsOf(summary));
  options.push_back(makeOption({"d", "e"}, vtS32));
  options.back().defaultValue(1);
  EXPECT_EQ("c@0 d@1 e@2 ", defaultsOf(summary));
}

TEST(DeclarationSummary, GivesTheSameDefaultsUntilTheyChange) {
  Options options;
  options.push_back(makeOption({"level"}, vtS32));
  options.back().defaultValue(1);
  DeclarationSummary summary(options, nullptr);
  const auto first = summary.timelessDefaults();
  EXPECT_EQ(first, summary.timelessDefaults());
  options.back().synonym("l");
  const auto second = summary.timelessDefaults();
  EXPECT_NE(first, second);
  options.back().defaultValue(2);
  EXPECT_EQ("level@0 l@1 ", defaultsOf(summary));
  EXPECT_STREQ("2", summary.timelessDefaults()->find("l")->text);
  EXPECT_STREQ("1", second->find("l")->text);
  EXPECT_EQ(nullptr, first->find("l"));
}

// The summary compares a count of amendments: a second amendment must not undo the change of the
// count.
TEST(DeclarationSummary, GivesNewDefaultsWhenANameIsAddedWithAnyOtherAmendment) {
  using Amendment = IOption* (*)(IOption&);
  const Amendment amendments[] = {[](IOption& option) { return option.allowValue(1); },
                                  [](IOption& option) { return option.allowDeprecatedValue(1, 2); },
                                  [](IOption& option) { return option.defaultValue(2); },
                                  [](IOption& option) { return option.tokenize(';'); },
                                  [](IOption& option) { return option.positional(); },
                                  [](IOption& option) { return option.tag("t"); }};
  for (const Amendment amend : amendments) {
    SCOPED_TRACE(&amend - amendments);
    Options options;
    options.push_back(makeOption({"level"}, vtS32));
    options.back().defaultValue(1);
    DeclarationSummary summary(options, nullptr);
    EXPECT_EQ("level@0 ", defaultsOf(summary));
    amend(*options.back().synonym("x"));
    EXPECT_EQ("level@0 x@1 ", defaultsOf(summary));
  }
}

TEST(DeclarationSummary, GivesNoDefaultsWhereOneHasToBeConvertedAtEachParse) {
  Options options;
  options.push_back(makeOption({"a"}, vtS32));
  options.back().defaultValue(1);
  DeclarationSummary summary(options, nullptr);
  EXPECT_EQ("a@0 ", defaultsOf(summary));
  options.push_back(makeOption({"b"}, vtString));
  options.back().defaultValue(variant_t("text", true));
  EXPECT_EQ("none", defaultsOf(summary));
  options.back().defaultValue("text");
  EXPECT_EQ("a@0 b@1 ", defaultsOf(summary));
}

TEST(DeclarationSummary, VisitsTheOptionsThatDeclareADefault) {
  Options options;
  for (const char* name : {"a", "b", "c", "d"})
    options.push_back(makeOption({name}, vtS32));
  options[1].defaultValue(1);
  options[2].defaultValue({});
  options[3].defaultValue(1);
  DeclarationSummary summary(options, nullptr);
  string visited;
  const auto note = [&](const OptionDescription& option) { visited += option.firstName(); };
  summary.forEachDefault(note);
  EXPECT_EQ("bd", visited);
  options.push_back(makeOption({"e"}, vtS32));
  summary.forEachDefault(note);
  EXPECT_EQ("bdbd", visited);
}

}  // namespace
}  // namespace kivo_3_3::testing
