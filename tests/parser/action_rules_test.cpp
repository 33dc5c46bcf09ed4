// Which actions may be given together, and which modifiers go with an action.

#include "parser/action_rules.h"

#include <gtest/gtest.h>

#include "support/command.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using Names = std::set<string>;

class Actions : public ::testing::Test {
 protected:
  Actions() {
    for (const char* name : {"a", "b", "c"})
      command.action(name);
  }

  void allow(const Names& names) { EXPECT_TRUE(command.parser().allowSimultaneousActions(names)); }

  Command command;
};

TEST_F(Actions, OneAloneIsFine) {
  EXPECT_EQ("a@+1", command.parsed({"--a"}));
  EXPECT_EQ("", command.parsed({}));
}

TEST_F(Actions, TwoDifferentOnesAreTooMany) {
  EXPECT_EQ("2: Action '-b' and action '-a' were defined, but only one action possible.",
            command.parsed({"--a", "--b"}));
}

TEST_F(Actions, AreNamedInTheOrderOfNamesNotOfTheCommandLine) {
  EXPECT_EQ("2: Action '-c' and action '-b' were defined, but only one action possible.",
            command.parsed({"--c", "--b"}));
  EXPECT_EQ("2: Action '-b' and action '-a' were defined, but only one action possible.",
            command.parsed({"--c", "--b", "--a"}));
}

TEST_F(Actions, OneGivenTwiceIsOne) { EXPECT_EQ("a@+1 a@+2", command.parsed({"--a", "--a"})); }

TEST_F(Actions, OneGivenUnderTwoOfItsNamesIsOne) {
  command.action("run,r")->synonym("start");
  EXPECT_EQ("run@+1 run@+2 run@+3", command.parsed({"--run", "-r", "--start"}));
}

TEST_F(Actions, OfOneGroupGoTogether) {
  allow({"a", "b"});
  EXPECT_EQ("b@+1 a@+2", command.parsed({"--b", "--a"}));
}

TEST_F(Actions, OfTwoOverlappingGroupsDoNot) {
  allow({"a", "b"});
  allow({"b", "c"});
  EXPECT_EQ("b@+1 c@+2", command.parsed({"--b", "--c"}));
  EXPECT_EQ("2: Action '-c' and action '-a' were defined, but only one action possible.",
            command.parsed({"--a", "--b", "--c"}));
  EXPECT_EQ("2: Action '-c' and action '-a' were defined, but only one action possible.",
            command.parsed({"--a", "--c"}));
}

TEST_F(Actions, OfAnyGroupGoTogether) {
  allow({});
  allow({"b", "x"});
  allow({"a", "b", "c", "unknown"});
  EXPECT_EQ("a@+1 b@+2 c@+3", command.parsed({"--a", "--b", "--c"}));
}

TEST_F(Actions, EmptyGroupAllowsNothing) {
  allow({});
  EXPECT_EQ(2, command.parse({"--a", "--b"}));
}

TEST_F(Actions, GroupsListFirstNamesNotSynonyms) {
  command.action("run,r");
  allow({"a", "r"});
  EXPECT_EQ("2: Action '-run' and action '-a' were defined, but only one action possible.",
            command.parsed({"--a", "--run"}));
  EXPECT_EQ("2: Action '-run' and action '-a' were defined, but only one action possible.",
            command.parsed({"--a", "-r"}));
  allow({"a", "run"});
  EXPECT_EQ("a@+1 run@+2", command.parsed({"--a", "-r"}));
}

TEST_F(Actions, GroupsAreCaseSensitive) {
  allow({"A", "B"});
  EXPECT_EQ(2, command.parse({"--a", "--b"}));
}

// The options of a result are visited by all their names, sorted: "l", a name of "status", comes
// before "run".
TEST_F(Actions, FirstActionIsTheOneWithTheFirstOfAllNames) {
  Command other;
  other.action("run,x");
  other.action("status,l");
  EXPECT_EQ("2: Action '-run' and action '-status' were defined, but only one action possible.",
            other.parsed({"--run", "--status"}));
}

TEST_F(Actions, MayHaveValuesAndDefaults) {
  command.action("level", vtS32)->defaultValue(3);
  EXPECT_EQ("level(3)@+1 level=4@+2", command.parsed({"--level=4"}));
  EXPECT_EQ("2: Action '-level' and action '-a' were defined, but only one action possible.",
            command.parsed({"--a"}));  // the default counts as an action
}

TEST(NoAction, IsAnErrorWhereOptionsAreGivenAndActionsDeclared) {
  Command command;
  command.option("level", vtS32);
  EXPECT_EQ("level=3@+1", command.parsed({"--level=3"}));  // no actions declared
  command.action("run");
  EXPECT_EQ("2: No action defined.", command.parsed({"--level=3"}));
  EXPECT_EQ("level=3@+1", command.render());
  EXPECT_EQ("level=3@+1 run@+3", command.parsed({"--level=3", "--run"}));
}

TEST(NoAction, IsFineWhereNothingIsGiven) {
  Command command;
  command.action("run");
  command.option("level", vtS32);
  EXPECT_EQ("", command.parsed({}));
  EXPECT_EQ("", command.parsed({"unknown"}));
  EXPECT_EQ("| rest@+1", command.parsed({"--", "rest"}));
}

TEST(NoAction, DefaultCountsAsAnOption) {
  Command command;
  command.action("run");
  command.option("level", vtS32)->defaultValue(3);
  EXPECT_EQ("level(3)@+1", command.parsed({}));  // no arguments: the rules are not applied
  EXPECT_EQ("2: No action defined.", command.parsed({"--"}));
}

class Modifiers : public ::testing::Test {
 protected:
  Modifiers() {
    command.action("run,r");
    command.action("list,l");
    command.modifier("fast,f", "run", vtNull);
    command.modifier("long", "list,run", vtNull);
    command.option("level", vtS32);
  }

  Command command;
};

TEST_F(Modifiers, GoWithTheirAction) {
  EXPECT_EQ("run@+1 fast@+2 long@+3", command.parsed({"--run", "--fast", "--long"}));
  EXPECT_EQ("long@+1 list@+2", command.parsed({"--long", "--list"}));
}

TEST_F(Modifiers, OfAnotherActionAreRefused) {
  EXPECT_EQ("2: Action '-list' doesn't accept option '-fast'", command.parsed({"-l", "-f"}));
  EXPECT_EQ("list@+1 fast@+2", command.render());
}

TEST_F(Modifiers, WithoutAnActionNeedOne) {
  EXPECT_EQ("2: No action defined.", command.parsed({"--fast"}));
}

TEST_F(Modifiers, PlainOptionGoesWithEveryAction) {
  EXPECT_EQ("list@+1 level=3@+2", command.parsed({"--list", "--level=3"}));
}

TEST_F(Modifiers, TaggedOptionIsAModifierToo) {
  command.option("depth", vtS32)->tag("run");
  EXPECT_EQ("2: Action '-list' doesn't accept option '-depth'",
            command.parsed({"--list", "--depth=1"}));
  EXPECT_EQ("run@+1 depth=1@+2", command.parsed({"--run", "--depth=1"}));
}

TEST_F(Modifiers, MayNameTheActionByASynonym) {
  command.modifier("quiet", "r", vtNull);
  EXPECT_EQ("run@+1 quiet@+2", command.parsed({"--run", "--quiet"}));
}

TEST_F(Modifiers, ShareAnyTagWithTheAction) {
  command.action("check")->tag("reading");
  command.modifier("deep", "nothing,reading", vtNull);
  EXPECT_EQ("check@+1 deep@+2", command.parsed({"--check", "--deep"}));
}

TEST_F(Modifiers, PresentOnlyThroughTheirDefaultAreExcused) {
  command.modifier("depth", "run", vtS32)->defaultValue(3);
  EXPECT_EQ("depth(3)@+1 list@+2", command.parsed({"--list"}));
  EXPECT_EQ("2: Action '-list' doesn't accept option '-depth'",
            command.parsed({"--list", "--depth=3"}));
}

TEST_F(Modifiers, AreCheckedAgainstTheFirstActionAlone) {
  command.parser().allowSimultaneousActions({"run", "list"});
  EXPECT_EQ("run@+1 list@+2 long@+3", command.parsed({"--run", "--list", "--long"}));
  EXPECT_EQ("2: Action '-list' doesn't accept option '-fast'",
            command.parsed({"--run", "--list", "--fast"}));
}

TEST_F(Modifiers, FirstUnsuitableOneByNameIsReported) {
  command.modifier("also", "run", vtNull);
  EXPECT_EQ("2: Action '-list' doesn't accept option '-also'",
            command.parsed({"--list", "--fast", "--also"}));
}

// ActionRules without a parser.
class Groups : public ::testing::Test {
 protected:
  bool allowed(const Names& used) {
    return ActionRules(storage, groups).assertActionsCanBeUsedSimultaneously(used);
  }

  Garbage garbage;
  RegisteredOptionStorage storage{&garbage};
  std::vector<ActionRules::ActionSet> groups;
};

TEST_F(Groups, NoneAllowsNothing) {
  EXPECT_FALSE(allowed({"a"}));
  EXPECT_FALSE(allowed({}));
}

TEST_F(Groups, OneMustContainAllActionsThatAreUsed) {
  groups = {{"b", "d", "f"}, {"c"}};
  const struct {
    Names used;
    bool allowed;
  } cases[] = {
      {{}, true},          {{"b"}, true},       {{"d"}, true},           {{"f"}, true},
      {{"b", "f"}, true},  {{"c"}, true},       {{"b", "d", "f"}, true}, {{"a"}, false},
      {{"e"}, false},      {{"g"}, false},      {{"b", "c"}, false},     {{"b", "d", "e"}, false},
      {{"a", "b"}, false}, {{"f", "g"}, false}, {{"B"}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.used));
    EXPECT_EQ(c.allowed, allowed(c.used));
  }
}

TEST_F(Groups, EmptyOneAllowsOnlyNoAction) {
  groups = {{}};
  EXPECT_TRUE(allowed({}));
  EXPECT_FALSE(allowed({"a"}));
}

TEST_F(Groups, StoredOptionThatIsNotDeclaredIsNotFound) {
  OwnedMemoryOf<640> memory;
  StoredOptions stored(memory);
  OptionData occurrence;
  occurrence.positions = {1};
  stored.store({"unknown"}, occurrence, 0);
  string error = "untouched";
  EXPECT_EQ(1, ActionRules(storage, groups).check(stored, error));
  EXPECT_EQ("untouched", error);
}

}  // namespace

}  // namespace kivo_3_3
