#include "options/option_description.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/quoted.h"
#include "options/make_option.h"
#include "support/assertion_recorder.h"

namespace kivo_3_3::testing {
namespace {

// Each deprecated value and its replacement, in the map's order: "a>b c>d".
std::string deprecations(const OptionDescription& option) {
  std::string all;
  for (const auto& pair : option.m_deprecatedValues)
    all += std::string(all.empty() ? "" : " ") + pair.first.get<const char*>() + ">" +
           pair.second.get<const char*>();
  return all;
}

TEST(OptionDescription, StartsWithNothingSet) {
  const OptionDescription option;
  EXPECT_EQ("", listed(option.m_names) + listed(option.tags()));
  EXPECT_EQ(vtNull, option.m_type);
  EXPECT_FALSE(option.m_positional);
  EXPECT_FALSE(option.m_hasDefault);
  EXPECT_EQ(2u, option.m_notAnAction);
  EXPECT_FALSE(option.isAction());
  EXPECT_EQ(',', option.m_tokenizer);
  EXPECT_EQ(vtNull, option.getDefaultValue().type());
  EXPECT_TRUE(option.m_allowedValues.empty());
  EXPECT_TRUE(option.m_deprecatedValues.empty());
}

TEST(OptionDescription, EveryBuilderOperationReturnsTheDescription) {
  OptionDescription option = makeOption({}, vtNull);
  EXPECT_EQ(&option, option.synonym("s"));
  EXPECT_EQ(&option, option.allowValue(1));
  EXPECT_EQ(&option, option.allowDeprecatedValue(2, 1));
  EXPECT_EQ(&option, option.defaultValue(1));
  EXPECT_EQ(&option, option.tokenize(';'));
  EXPECT_EQ(&option, option.positional());
  EXPECT_EQ(&option, option.tag("t"));
  EXPECT_EQ(&option, option.tag(nullptr));
  EXPECT_EQ(&option, option.synonym(nullptr));
}

TEST(OptionDescription, SynonymsAreNeitherSplitNorTrimmed) {
  OptionDescription option = makeOption({"level"}, vtS32);
  option.synonym("l")->synonym("a,b")->synonym(" x ")->synonym("l")->synonym("");
  EXPECT_EQ("[level][l][a,b][ x ][l][]", listed(option.m_names));
}

TEST(OptionDescription, ANullSynonymAddsNothing) {
  OptionDescription option = makeOption({"level"}, vtS32);
  option.synonym(nullptr);
  EXPECT_EQ("[level]", listed(option.m_names));
}

TEST(OptionDescription, AllowedValuesKeepTheirOrderAndTheirDuplicates) {
  OptionDescription option;
  option.allowValue("slow")->allowValue("fast")->allowValue("slow");
  ASSERT_EQ(3u, option.m_allowedValues.size());
  EXPECT_STREQ("slow", option.m_allowedValues[0].get<const char*>());
  EXPECT_STREQ("fast", option.m_allowedValues[1].get<const char*>());
  EXPECT_STREQ("slow", option.m_allowedValues[2].get<const char*>());
}

TEST(OptionDescription, AllowingAValueTurnsTokenizingBackOn) {
  OptionDescription option;
  option.tokenize('\0');
  EXPECT_EQ('\0', option.m_tokenizer);
  option.allowValue(1);
  EXPECT_EQ(',', option.m_tokenizer);
}

TEST(OptionDescription, AllowingAValueKeepsATokenizerThatIsSet) {
  OptionDescription option;
  option.tokenize(';')->allowValue(1);
  EXPECT_EQ(';', option.m_tokenizer);
}

TEST(OptionDescription, TokenizingCanBeTurnedOffAfterAllowedValues) {
  OptionDescription option;
  option.allowValue(1)->tokenize('\0');
  EXPECT_EQ('\0', option.m_tokenizer);
}

TEST(OptionDescription, TheFirstReplacementOfADeprecatedValueStays) {
  OptionDescription option;
  option.allowDeprecatedValue("old", "new")->allowDeprecatedValue("old", "newer");
  EXPECT_EQ("old>new", deprecations(option));
}

TEST(OptionDescription, DeprecatedValuesAreSortedByValue) {
  OptionDescription option;
  option.allowDeprecatedValue("b", "x")->allowDeprecatedValue("a", "y");
  option.allowDeprecatedValue("B", "z");
  EXPECT_EQ("B>z a>y b>x", deprecations(option));
}

TEST(OptionDescription, ADeprecatedValueIsNotAnAllowedOne) {
  OptionDescription option;
  option.allowDeprecatedValue("old", "new");
  EXPECT_TRUE(option.m_allowedValues.empty());
}

TEST(OptionDescription, TheDefaultIsKeptAsItIsPassed) {
  OptionDescription option = makeOption({"level"}, vtS32);
  option.allowValue(1)->defaultValue("anything");
  EXPECT_TRUE(option.m_hasDefault);
  EXPECT_EQ(vtString, option.getDefaultValue().type());
  EXPECT_STREQ("anything", option.getDefaultValue().get<const char*>());
  option.defaultValue(2ll);
  EXPECT_EQ(vtS64, option.getDefaultValue().type());
  EXPECT_EQ(&option.m_defaultValue, &option.getDefaultValue());
}

TEST(OptionDescription, PositionalIsSetOnRequest) {
  OptionDescription option;
  option.positional();
  EXPECT_TRUE(option.m_positional);
}

TEST(OptionDescription, TagsAreSplitAtCommasAndStoredOnce) {
  OptionDescription option = makeOption({}, vtNull);
  option.tag("run,walk")->tag("run")->tag("b,a,b")->tag("");
  EXPECT_EQ("[a][b][run][walk]", listed(option.tags()));
}

TEST(OptionDescription, EmptyWordsAmongTagsAreTags) {
  OptionDescription option = makeOption({}, vtNull);
  option.tag("a,,b,");
  EXPECT_EQ("[][a][b]", listed(option.tags()));
}

TEST(OptionDescription, ANullTagLeavesTheTags) {
  OptionDescription option = makeOption({}, vtNull);
  option.tag("run")->tag(nullptr);
  EXPECT_EQ("[run]", listed(option.tags()));
}

TEST(OptionDescription, SortsByFirstName) {
  const char* const ordered[] = {"", "A", "B", "a", "ab", "abc", "b", "\xC3\xA4"};
  for (const char* const& left : ordered)
    for (const char* const& right : ordered)
      EXPECT_EQ(&left < &right, makeOption({left, "z"}, vtS32) < makeOption({right, "a"}, vtS32))
          << left << " " << right;
}

TEST(OptionDescription, SortedDescriptionsAreInTheOrderOfFirstNames) {
  Garbage garbage;
  std::vector<OptionDescription> options;
  for (const char* name : {"b", "ab", "a", "level"})
    options.push_back(makeOption({name}, vtS32, &garbage));
  options[0].defaultValue(7);
  std::sort(options.begin(), options.end());
  std::vector<std::string> names;
  for (const OptionDescription& option : options)
    names.emplace_back(option.firstName());
  EXPECT_EQ("[a][ab][b][level]", listed(names));
  EXPECT_EQ("7", options[2].getDefaultValueAsText());
}

TEST(OptionDescription, WithoutNamesItSortsAsTheEmptyName) {
  EXPECT_TRUE(makeOption({}, vtS32) < makeOption({"a"}, vtS32));
  EXPECT_FALSE(makeOption({}, vtS32) < makeOption({""}, vtS32));
  EXPECT_FALSE(makeOption({""}, vtS32) < makeOption({}, vtS32));
}

TEST(OptionDescription, WithoutNamesItHasNoFirstName) {
  EXPECT_THROW(makeOption({}, vtS32).firstName(), std::out_of_range);
}

// An option of which every member differs from that of a new description.
OptionDescription makeFullOption(Garbage* garbage) {
  OptionDescription option = makeOption({"level", "l"}, vtString, garbage);
  option.m_status = OptionDescription::rejected;
  option.m_groupKey = "main";
  option.m_groupTitle = "Main options";
  option.m_description = "How hard";
  option.m_notAnAction = 0;
  option.tag("run")->allowValue("a")->allowDeprecatedValue("b", "a")->defaultValue("a");
  option.tokenize(';')->positional();
  return option;
}

void expectFullOption(const OptionDescription& option, const Garbage* garbage) {
  EXPECT_EQ(OptionDescription::rejected, option.m_status);
  EXPECT_EQ("[level][l] [run]", listed(option.m_names) + " " + listed(option.tags()));
  EXPECT_EQ("main Main options How hard",
            joined(option.m_groupKey, " ", option.m_groupTitle, " ", option.m_description));
  EXPECT_TRUE(option.m_positional && option.m_hasDefault && option.isAction());
  EXPECT_EQ(';', option.m_tokenizer);
  EXPECT_EQ(vtString, option.m_type);
  EXPECT_STREQ("a", option.getDefaultValue().get<const char*>());
  EXPECT_EQ(1u, option.m_allowedValues.size());
  EXPECT_EQ("b>a", deprecations(option));
  EXPECT_EQ(garbage, option.m_garbage);
}

TEST(OptionDescription, ACopyIsComplete) {
  Garbage garbage;
  const OptionDescription option = makeFullOption(&garbage);
  const OptionDescription copy(option);
  OptionDescription assigned = makeOption({"other"}, vtS32);
  assigned = option;
  expectFullOption(copy, &garbage);
  expectFullOption(assigned, &garbage);
  expectFullOption(option, &garbage);
}

TEST(OptionDescription, ACopySharesItsTextsButNotItsContainers) {
  OptionDescription option = makeOption({"level"}, vtString);
  option.defaultValue("shared")->allowValue("a");
  OptionDescription copy = option;
  EXPECT_EQ(option.getDefaultValue().get<const char*>(), copy.getDefaultValue().get<const char*>());
  copy.synonym("l")->tag("run")->allowValue("b")->allowDeprecatedValue("c", "a");
  EXPECT_EQ("[level]", listed(option.m_names));
  EXPECT_EQ("", listed(option.tags()));
  EXPECT_EQ(1u, option.m_allowedValues.size());
  EXPECT_EQ("", deprecations(option));
}

TEST(OptionDescription, TheTextOfTheDefaultIsInTheDeclaredType) {
  Garbage garbage;
  const struct {
    variant_type_t type;
    variant_t value;
    const char* text;
  } cases[] = {
      {vtS32, 3, "3"},    {vtS32, 3ull, "3"},   {vtBool, 7, "1"},         {vtDouble, 0.1, "0.1"},
      {vtDouble, 3, "3"}, {vtU64, 31ull, "31"}, {vtString, "abc", "abc"}, {vtString, "", ""},
  };
  for (const auto& c : cases) {
    OptionDescription option = makeOption({"o"}, c.type, &garbage);
    option.defaultValue(c.value);
    EXPECT_EQ(c.text, option.getDefaultValueAsText());
  }
}

TEST(OptionDescription, ADefaultThatWasNeverSetHasNoTextUnderANumericType) {
  Garbage garbage;
  const AssertionRecorder assertions;
  makeOption({"o"}, vtS32, &garbage).getDefaultValueAsText();
  EXPECT_EQ("can_get<T>()", assertions.expressions());
}

TEST(OptionDescription, TextsOfValuesAreKeptInTheGarbageThatIsPassed) {
  Garbage own;
  Garbage other;
  const OptionDescription option = makeOption({"o"}, vtS32, &own);
  const char* const text = option.toString(&other, 42);
  EXPECT_EQ(other.init("42"), text);
  EXPECT_NE(own.init("42"), text);
}

TEST(OptionDescription, ConvertsByItsDeclaredType) {
  Garbage garbage;
  const OptionDescription option = makeOption({"o"}, vtU32, &garbage);
  EXPECT_EQ(vtU32, option.fromString("42", &garbage).type());
  EXPECT_EQ(vtNull, option.fromString("x", &garbage).type());
  EXPECT_EQ("unsigned integer", option.getTypeName());
  EXPECT_STREQ("1", option.toString(&garbage, true));
}

}  // namespace
}  // namespace kivo_3_3::testing
