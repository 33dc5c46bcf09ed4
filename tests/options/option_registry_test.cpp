#include "options/option_registry.h"

#include <gtest/gtest.h>

#include "allocation/allocation_limit.h"
#include "base/quoted.h"
#include "base/trace.h"
#include "options/make_option.h"
#include "support/console_capture.h"

namespace kivo_3_3::testing {
namespace {

class Registry : public ::testing::Test {
 protected:
  Registry() { internal::kivoLogEnabled = false; }
  ~Registry() override { internal::kivoLogEnabled = false; }

  // Declares an option and returns whether it was accepted. Checks the answer against the statuses.
  bool declared(const char* names, variant_type_t type = vtS32, const char* group = nullptr) {
    const std::size_t before = storage.options().size();
    const IOption* answer = storage.option(names, nullptr, "", false, type, group);
    const bool accepted = answer != &storage.fallback();
    EXPECT_EQ(accepted ? 3u : 1u, storage.fallback().m_status);
    EXPECT_EQ(before + (accepted ? 1 : 0), storage.options().size());
    if (accepted) {
      EXPECT_EQ(&storage.options().back(), answer);
      EXPECT_EQ(0u, storage.options().back().m_status);
    }
    return accepted;
  }

  // What a declaration writes to the trace.
  std::string traced(const char* names) {
    const ConsoleCapture console;
    internal::kivoLogEnabled = true;
    declared(names);
    internal::kivoLogEnabled = false;
    EXPECT_EQ("", console.err());
    return console.out();
  }

  // All groups in order: "key=title key=title".
  std::string groups() {
    std::string all;
    for (const auto& group : storage.groups())
      all += (all.empty() ? "" : " ") + std::string(group.name) + "=" + std::string(group.title);
    return all;
  }

  const OptionDescription& last() { return storage.options().back(); }

  Garbage garbage;
  RegisteredOptionStorage storage{&garbage};
};

TEST_F(Registry, StartsEmptyWithAHarmlessFallback) {
  EXPECT_TRUE(storage.options().empty());
  EXPECT_TRUE(storage.groups().empty());
  EXPECT_TRUE(storage.fallback().m_names.empty());
  EXPECT_EQ(vtNull, storage.fallback().m_type);
  EXPECT_EQ(',', storage.fallback().m_tokenizer);
  EXPECT_EQ(2u, storage.fallback().m_notAnAction);
}

TEST_F(Registry, ADeclarationFillsTheDescription) {
  storage.option("level,l", "run,walk", "How hard", false, vtS32, "main:Main options");
  EXPECT_EQ("[level][l]", listed(last().m_names));
  EXPECT_EQ("[run][walk]", listed(last().tags()));
  EXPECT_EQ("main", last().m_groupKey);
  EXPECT_EQ("Main options", last().m_groupTitle);
  EXPECT_EQ("How hard", last().m_description);
  EXPECT_EQ(vtS32, last().m_type);
  EXPECT_EQ(1u, last().m_notAnAction);
  EXPECT_EQ(',', last().m_tokenizer);
  EXPECT_FALSE(last().m_positional || last().m_hasDefault);
  EXPECT_EQ(vtNull, last().getDefaultValue().type());
  EXPECT_EQ(&garbage, last().m_garbage);
}

TEST_F(Registry, AnActionCarriesItsOwnNamesAsTags) {
  storage.action("run,r", "Runs", vtNull, "main");
  EXPECT_EQ("[r][run]", listed(last().tags()));
  EXPECT_EQ(0u, last().m_notAnAction);
  EXPECT_TRUE(last().isAction());
  EXPECT_EQ("Runs main", joined(last().m_description, " ", last().m_groupKey));
  storage.option("walk", "outside", "", true, vtNull, nullptr);
  EXPECT_EQ("[outside][walk]", listed(last().tags()));
}

TEST_F(Registry, AModifierCarriesItsActionsAsTags) {
  storage.modifier("fast,f", "run,walk", "Hurries", vtBool, "main");
  EXPECT_EQ("[run][walk]", listed(last().tags()));
  EXPECT_EQ("[fast][f]", listed(last().m_names));
  EXPECT_EQ(1u, last().m_notAnAction);
  EXPECT_EQ(vtBool, last().m_type);
  EXPECT_EQ("Hurries main", joined(last().m_description, " ", last().m_groupKey));
  storage.modifier("slow", nullptr, "", vtBool, nullptr);
  EXPECT_EQ("", listed(last().tags()));
}

TEST_F(Registry, DeclarationsKeepTheirOrder) {
  EXPECT_TRUE(declared("c") && declared("a") && declared("b"));
  std::vector<std::string> names;
  for (const OptionDescription& option : storage.options())
    names.emplace_back(option.firstName());
  EXPECT_EQ("[c][a][b]", listed(names));
}

TEST_F(Registry, NullTextsCountAsEmptyAndNullTagsAsNone) {
  EXPECT_NE(&storage.fallback(), storage.option(nullptr, nullptr, nullptr, false, vtS32, nullptr));
  EXPECT_EQ("", listed(last().m_names) + listed(last().tags()));
  EXPECT_EQ("", joined(last().m_description, last().m_groupKey, last().m_groupTitle));
}

TEST_F(Registry, NewOptionsGetTheRegistrysTokenizer) {
  storage.setTokenizer('\0');
  declared("a");
  EXPECT_EQ('\0', last().m_tokenizer);
  storage.setTokenizer(';');
  declared("b");
  EXPECT_EQ(';', last().m_tokenizer);
}

TEST_F(Registry, ANameThatIsTakenRejectsTheDeclaration) {
  EXPECT_TRUE(declared("v,version"));
  EXPECT_FALSE(declared("verbose,v"));
  EXPECT_FALSE(declared("version"));
  EXPECT_TRUE(declared("verbose"));
  EXPECT_TRUE(declared("V"));
}

TEST_F(Registry, TheFirstDeclarationStaysUntouchedByADuplicate) {
  storage.option("level", "run", "first", false, vtS32, "main");
  storage.option("level", "walk", "second", true, vtBool, "other");
  ASSERT_EQ(1u, storage.options().size());
  EXPECT_EQ("first main", joined(last().m_description, " ", last().m_groupKey));
  EXPECT_EQ("[run]", listed(last().tags()));
  EXPECT_EQ(vtS32, last().m_type);
}

TEST_F(Registry, TheNegationOfABooleanIsTaken) {
  EXPECT_TRUE(declared("color,c", vtBool));
  EXPECT_FALSE(declared("no-color", vtS32));
  EXPECT_FALSE(declared("no-c", vtBool));
  EXPECT_FALSE(declared("x,no-color", vtNull));
}

TEST_F(Registry, TheNegationOfAnythingElseIsFree) {
  EXPECT_TRUE(declared("color", vtS32));
  EXPECT_TRUE(declared("no-color", vtS32));
}

TEST_F(Registry, ABooleanMayBeDeclaredAfterItsNegation) {
  EXPECT_TRUE(declared("no-color", vtS32));
  EXPECT_TRUE(declared("color", vtBool));
}

TEST_F(Registry, OneDeclarationMayRepeatAName) {
  EXPECT_TRUE(declared("a,a"));
  EXPECT_EQ("[a][a]", listed(last().m_names));
}

TEST_F(Registry, ASynonymTakesItsNameToo) {
  storage.option("a", nullptr, "", false, vtBool, nullptr)->synonym("b");
  EXPECT_FALSE(declared("b"));
  EXPECT_FALSE(declared("no-b"));
}

TEST_F(Registry, TooManyNamesOrALongThirdOneRejectTheDeclaration) {
  EXPECT_TRUE(declared("a,b,c"));
  EXPECT_FALSE(declared("d,e,fgh"));
  EXPECT_FALSE(declared("d,e,f,g"));
  EXPECT_TRUE(declared("d,e,fg"));
  EXPECT_EQ("[d][e][fg]", listed(last().m_names));
}

TEST_F(Registry, EmptyListsOfNamesAreNoDuplicates) {
  EXPECT_TRUE(declared(""));
  EXPECT_TRUE(declared(""));
  EXPECT_EQ("", listed(last().m_names));
}

TEST_F(Registry, AnEmptyNameIsTakenLikeOthers) {
  EXPECT_TRUE(declared("a,,b"));
  EXPECT_FALSE(declared("x,,y"));
}

TEST_F(Registry, ADuplicateIsTraced) {
  EXPECT_EQ("", traced("version,v"));
  EXPECT_EQ("Tried to register an option with a name, which is alread registered: verbose,v\n",
            traced("verbose,v"));
}

TEST_F(Registry, ARefusedListOfNamesIsNotTraced) { EXPECT_EQ("", traced("a,b,c,d")); }

TEST_F(Registry, WhileTheTraceIsOffADuplicateIsSilent) {
  const ConsoleCapture console;
  EXPECT_TRUE(declared("a"));
  EXPECT_FALSE(declared("a"));
  EXPECT_EQ("", console.out() + console.err());
}

TEST_F(Registry, BuilderCallsOnARejectedDeclarationReachOnlyTheFallback) {
  declared("level");
  IOption* rejected = storage.option("level", nullptr, "", false, vtS32, nullptr);
  rejected->synonym("x")->tag("t")->allowValue(1)->allowDeprecatedValue(2, 1)->defaultValue(1);
  rejected->tokenize(';')->positional();
  EXPECT_EQ("[level]", listed(last().m_names));
  EXPECT_EQ("", listed(last().tags()));
  EXPECT_TRUE(last().m_allowedValues.empty() && last().m_deprecatedValues.empty());
  EXPECT_FALSE(last().m_hasDefault || last().m_positional);
  EXPECT_EQ(',', last().m_tokenizer);
  EXPECT_EQ("[x]", listed(storage.fallback().m_names));
  EXPECT_TRUE(declared("x"));
}

TEST_F(Registry, EveryDeclarationSetsTheStatusOfTheFallback) {
  declared("a");
  EXPECT_EQ(3u, storage.fallback().m_status);
  declared("a");
  EXPECT_EQ(1u, storage.fallback().m_status);
  declared("b");
  EXPECT_EQ(3u, storage.fallback().m_status);
}

TEST_F(Registry, AGroupIsSplitAtItsFirstColon) {
  const struct {
    const char* group;
    const char* key;
    const char* title;
  } cases[] = {
      {"main:Main options", "main", "Main options"},
      {"plain", "plain", ""},
      {"a:b:c", "a", "b:c"},
      {"open:", "open", ""},
      {":no key", "", "no key"},
  };
  char name[] = "a";
  for (const auto& c : cases) {
    SCOPED_TRACE(c.group);
    EXPECT_TRUE(declared(name, vtS32, c.group));
    EXPECT_EQ(c.key, last().m_groupKey);
    EXPECT_EQ(c.title, last().m_groupTitle);
    ++name[0];
  }
}

TEST_F(Registry, TheFirstTitleOfAGroupWins) {
  declared("a", vtS32, "main:Main options");
  declared("b", vtS32, "main:Other");
  EXPECT_EQ("Main options", storage.options()[0].m_groupTitle);
  EXPECT_EQ("Main options", storage.options()[1].m_groupTitle);
  EXPECT_EQ("main=Main options", groups());
}

TEST_F(Registry, AGroupFirstUsedWithoutTitleStaysWithout) {
  declared("a", vtS32, "main");
  declared("b", vtS32, "main:Main options");
  EXPECT_EQ("", last().m_groupTitle);
}

TEST_F(Registry, GroupsAreInTheOrderOfFirstUse) {
  declared("a", vtS32, "z:Last");
  declared("b", vtS32, "Main");
  declared("c", vtS32, "a:First");
  declared("d", vtS32, "main");
  declared("e", vtS32, nullptr);
  declared("f", vtS32, "z");
  EXPECT_EQ("z=Last Main= a=First main= =", groups());
}

TEST_F(Registry, ARejectedDeclarationStillNamesItsGroup) {
  declared("a");
  EXPECT_FALSE(declared("a", vtS32, "late:Late options"));
  EXPECT_FALSE(declared("a,b,c,d", vtS32, "later:Later options"));
  EXPECT_EQ("= late=Late options later=Later options", groups());
}

TEST_F(Registry, DescriptionsStayWhereTheyAre) {
  declared("a name too long for the string itself");
  const OptionDescription& first = storage.options().front();
  const std::string_view name = first.firstName();
  for (int number = 0; number < 100; ++number) {
    EXPECT_TRUE(declared(("option" + std::to_string(number)).c_str()));
    ASSERT_EQ(&first, &storage.options().front());
    ASSERT_EQ("a name too long for the string itself", name);
  }
  EXPECT_EQ(name.data(), first.firstName().data());
  EXPECT_EQ(101u, storage.options().size());
}

TEST_F(Registry, ARejectedDeclarationLeavesNothingInMemory) {
  ASSERT_TRUE(declared("level,l"));
  const long before = liveBlocks();
  for (int i = 0; i < 10'000; ++i) {
    IOption* const rejected = storage.option("other,level,l", "a,b", "", false, vtS32, nullptr);
    rejected->tag("x,y");
    storage.option("a,b,c,d", nullptr, "", false, vtS32, nullptr);
  }
  EXPECT_GT(before + 3, liveBlocks());
}

TEST_F(Registry, ATagGivenAgainTakesNoMemory) {
  IOption* const option = storage.option("level", nullptr, "", false, vtS32, nullptr);
  const long before = liveBlocks();
  for (int i = 0; i < 10'000; ++i)
    option->tag("run,build,run");
  EXPECT_EQ("[build][run]", listed(last().tags()));
  EXPECT_GT(before + 3, liveBlocks());
}

}  // namespace
}  // namespace kivo_3_3::testing
