#include "options/declared_defaults.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "allocation/allocation_limit.h"
#include "base/quoted.h"
#include "options/make_option.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

OptionDescription optionWith(const std::vector<string>& names, variant_type_t type,
                             const variant_t& value) {
  OptionDescription option = makeOption(names, type);
  option.defaultValue(value);
  return option;
}

// Renders name, text and place of each default, "level=2@0 l=2@1", and checks that each is found by
// its name.
string listed(const DeclaredDefaults& defaults) {
  string all;
  for (const DeclaredDefaults::Default& one : defaults.all()) {
    EXPECT_EQ(&one, defaults.find(one.name));
    all += joined(all.empty() ? "" : " ", one.name, "=", one.text, "@", std::to_string(one.place));
  }
  return all;
}

TEST(DeclaredDefaults, BeginWithNone) {
  const DeclaredDefaults defaults{};
  EXPECT_EQ("", listed(defaults));
  EXPECT_EQ(nullptr, defaults.find("level"));
  EXPECT_EQ(0u, defaults.count());
}

TEST(DeclaredDefaults, EachNameHasAPlaceInTheOrderOfDeclaration) {
  DeclaredDefaults defaults;
  defaults.add(optionWith({"level", "l"}, vtS32, 2));
  defaults.add(optionWith({"depth"}, vtS32, 3));
  EXPECT_EQ("level=2@0 l=2@1 depth=3@2", listed(defaults));
  EXPECT_EQ(3u, defaults.count());
  EXPECT_EQ(nullptr, defaults.find("lev"));
}

TEST(DeclaredDefaults, HaveValueAndTextInTheDeclaredType) {
  DeclaredDefaults defaults;
  defaults.add(optionWith({"size"}, vtU64, 31));
  defaults.add(optionWith({"name"}, vtString, ""));
  EXPECT_STREQ("31", defaults.find("size")->text);
  EXPECT_EQ(variant_t(31), defaults.find("size")->value);
  EXPECT_STREQ("", defaults.find("name")->text);
}

TEST(DeclaredDefaults, HaveAnEmptyTextWhereTheTypeHasNone) {
  DeclaredDefaults defaults;
  defaults.add(optionWith({"flag"}, vtNull, 1));
  EXPECT_STREQ("", defaults.find("flag")->text);
  EXPECT_EQ(variant_t(1), defaults.find("flag")->value);
}

TEST(DeclaredDefaults, MayBeSetOneByOne) {
  DeclaredDefaults defaults;
  string text = "2";
  defaults.set({"level", text.c_str(), 2, 7});
  text = "3";
  defaults.set({"depth", text.c_str(), 3, 8});
  EXPECT_EQ("level=2@7 depth=3@8", listed(defaults));
  defaults.set({"level", "4", 4, 9});
  EXPECT_EQ("level=4@9 depth=3@8", listed(defaults));
}

TEST(DeclaredDefaults, AreTimelessIfTheTimeOfTheirConversionMakesNoDifference) {
  EXPECT_TRUE(DeclaredDefaults::isTimeless(optionWith({"a"}, vtS32, 1)));
  EXPECT_TRUE(DeclaredDefaults::isTimeless(optionWith({"a"}, vtDouble, 1)));
  EXPECT_TRUE(DeclaredDefaults::isTimeless(optionWith({"a"}, vtString, "text")));
  EXPECT_TRUE(DeclaredDefaults::isTimeless(optionWith({"a"}, vtNull, "text")));
  EXPECT_FALSE(DeclaredDefaults::isTimeless(optionWith({"a"}, vtString, variant_t("text", true))));
  EXPECT_FALSE(DeclaredDefaults::isTimeless(optionWith({"a"}, vtS32, 1.5)));
  EXPECT_FALSE(DeclaredDefaults::isTimeless(optionWith({"a"}, vtString, 1)));
  EXPECT_FALSE(DeclaredDefaults::isTimeless(optionWith({}, vtS32, 1)));
}

TEST(DeclaredDefaults, OfASharedNameTheLastCountsAndEachTakesAPlace) {
  DeclaredDefaults defaults;
  defaults.add(optionWith({"a", "x"}, vtS32, 1));
  defaults.add(optionWith({"b", "x"}, vtS32, 2));
  defaults.add(optionWith({"c"}, vtS32, 3));
  EXPECT_EQ("a=1@0 x=2@3 b=2@2 c=3@4", listed(defaults));
  EXPECT_EQ(5u, defaults.count());
}

TEST(DeclaredDefaults, OneNameTwiceHasTheLaterPlace) {
  DeclaredDefaults defaults;
  defaults.add(optionWith({"a", "a"}, vtS32, 1));
  EXPECT_EQ("a=1@1", listed(defaults));
  EXPECT_EQ(2u, defaults.count());
}

TEST(DeclaredDefaults, KnowWhetherTheyHaveAllOfOthers) {
  const auto defaultsOf = [](const std::vector<string>& names) {
    auto defaults = std::make_unique<DeclaredDefaults>();
    defaults->add(optionWith(names, vtS32, 1));
    return defaults;
  };
  const auto ab = defaultsOf({"a", "b"});
  EXPECT_TRUE(ab->hasAllOf(DeclaredDefaults()));
  EXPECT_TRUE(ab->hasAllOf(*defaultsOf({"b"})));
  EXPECT_TRUE(ab->hasAllOf(*ab));
  EXPECT_FALSE(ab->hasAllOf(*defaultsOf({"b", "c"})));
  EXPECT_FALSE(DeclaredDefaults().hasAllOf(*ab));
}

TEST(DeclaredDefaults, OutliveTheOptionsButNotTheTextsOfNames) {
  const string longName(1'000, 'n');
  const long before = liveBlocks();
  {
    Garbage garbage;
    DeclaredDefaults defaults;
    {
      OptionDescription option = makeOption({longName}, vtString, &garbage);
      option.defaultValue("a text too long to be kept without memory");
      defaults.add(option);
    }
    EXPECT_EQ(longName + "=a text too long to be kept without memory@0", listed(defaults));
  }
  EXPECT_EQ(before, liveBlocks());
}

TEST(DeclaredDefaults, ManyAreFound) {
  DeclaredDefaults defaults;
  for (int number = 0; number < 3'000; ++number)
    defaults.add(optionWith({"option" + std::to_string(number)}, vtS32, number));
  for (int number = 0; number < 3'000; ++number) {
    const string name = "option" + std::to_string(number);
    const auto* const found = defaults.find(std::string_view(name));
    ASSERT_NE(nullptr, found);
    ASSERT_EQ(std::to_string(number), found->text);
    ASSERT_EQ(static_cast<std::uint32_t>(number), found->place);
  }
}

}  // namespace
}  // namespace kivo_3_3::testing
