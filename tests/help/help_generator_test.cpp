#include "help/help_generator.h"

#include <gtest/gtest.h>
#include <kivo/kivo.h>

#include <limits>
#include <stdexcept>

#include "base/quoted.h"
#include "options/make_option.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

constexpr const char* unknownError = "Unknown error handled.";

// The help entry of a head of at most 29 characters: the description follows on the same line, from
// column 30 on.
string entry(const string& head, const string& description) {
  return head + string(30 - head.size(), ' ') + description + "\n";
}

// The help entry of a head of at least 30 characters: the description follows on the next line.
string entryBelow(const string& head, const string& description) {
  return head + "\n" + string(30, ' ') + description + "\n";
}

// Asks a parser for its help. Hidden help shows only the group "kivo_hidden", and ordinary help
// shows all other groups.
class Help : public ::testing::Test {
 protected:
  IOption* option(const char* names, variant_type_t type = vtNull, const char* group = nullptr) {
    return parser->option(names, "Text.", type, group);
  }
  IOption* action(const char* names, const char* description = "Text.",
                  const char* group = nullptr) {
    return parser->action(names, description, vtNull, group);
  }
  IOption* modifier(const char* names, const char* actions, const char* group = nullptr) {
    return parser->modifier(names, actions, "Text.", vtNull, group);
  }

  string ordinary() { return parser->getDescription(false); }
  string hidden() { return parser->getDescription(true); }
  string topic(const char* name, bool ofHidden = false) {
    return parser->getDescription(name, ofHidden);
  }
  string modifiersOf(const char* name, bool ofHidden = false) {
    return parser->getActionModifiersDescription(name, ofHidden);
  }
  string global(bool ofHidden = false) { return parser->getGlobalModifiersDescription(ofHidden); }

  ParserHandle parser = makeParser();
};

class HelpSections : public Help {};
class HelpEntry : public Help {};
class HelpTopics : public Help {};
class HelpOfATopic : public Help {};
class HelpOfModifiers : public Help {};
class HelpFailure : public Help {};

TEST_F(Help, IsEmptyWithoutDeclarations) {
  EXPECT_EQ("", ordinary());
  EXPECT_EQ("", hidden());
  EXPECT_EQ("", global());
}

TEST_F(Help, EqualHelpHasOneAddressAndLivesAsLongAsTheParser) {
  option("first");
  const char* const before = parser->getDescription(false);
  EXPECT_EQ(before, parser->getDescription(false));
  option("second");
  const string after = entry("-first", "Text.") + entry("-second", "Text.");
  EXPECT_EQ(after, parser->getDescription(false));
  EXPECT_EQ(entry("-first", "Text."), before);
}

TEST_F(HelpSections, AreInTheOrderOfTheirFirstDeclaration) {
  option("b", vtNull, "Second:");
  option("c", vtNull, "First");
  option("a", vtNull, "Second");
  EXPECT_EQ(
      "Second\n" + entry("-a", "Text.") + entry("-b", "Text.") + "First\n" + entry("-c", "Text."),
      ordinary());
}

TEST_F(HelpSections, BeginWithTheirIntroductionAndAnEmptyLine) {
  option("a", vtNull, "Main:What matters most.");
  EXPECT_EQ("Main\n What matters most.\n\n" + entry("-a", "Text."), ordinary());
}

TEST_F(HelpSections, KeepTheFirstIntroductionOfAKey) {
  option("a", vtNull, "Main:First: with a colon.");
  option("b", vtNull, "Main:Second.");
  EXPECT_EQ("Main\n First: with a colon.\n\n" + entry("-a", "Text.") + entry("-b", "Text."),
            ordinary());
}

TEST_F(HelpSections, WrapTheIntroductionIntoColumnsOneToSeventyNine) {
  const string word(79, 'x');
  option("a", vtNull, ("Main:" + word + " and more\n\nto say").c_str());
  EXPECT_EQ("Main\n " + word + "\n and more\n to say\n\n" + entry("-a", "Text."), ordinary());
}

TEST_F(HelpSections, WithAnEmptyKeyHaveNoHeading) {
  option("a", vtNull, "");
  option("b", vtNull, "Main");
  option("c", vtNull, nullptr);
  EXPECT_EQ(entry("-a", "Text.") + entry("-c", "Text.") + "Main\n" + entry("-b", "Text."),
            ordinary());
}

TEST_F(HelpSections, WithAnEmptyKeyMayHaveAnIntroduction) {
  option("a", vtNull, ":All there is.");
  EXPECT_EQ(" All there is.\n\n" + entry("-a", "Text."), ordinary());
}

TEST_F(HelpSections, WithoutOptionsStillHaveTheirHeading) {
  option("file", vtString, "Arguments:What to read.")->positional();
  parser->option("one,two,three,four", "Rejected.", vtNull, "Nothing");
  EXPECT_EQ("Arguments\n What to read.\n\nNothing\n", ordinary());
}

TEST_F(HelpSections, NamedKivoHiddenAreForHiddenHelpAlone) {
  option("shown", vtNull, "Main");
  option("secret", vtNull, "kivo_hidden:Beware.");
  option("plain");
  EXPECT_EQ("Main\n" + entry("-shown", "Text.") + entry("-plain", "Text."), ordinary());
  EXPECT_EQ("kivo_hidden\n Beware.\n\n" + entry("-secret", "Text."), hidden());
}

TEST_F(HelpSections, NamedAlmostKivoHiddenAreOrdinary) {
  option("a", vtNull, "kivo_hidden ");
  option("b", vtNull, "Kivo_hidden");
  EXPECT_EQ("kivo_hidden \n" + entry("-a", "Text.") + "Kivo_hidden\n" + entry("-b", "Text."),
            ordinary());
  EXPECT_EQ("", hidden());
}

TEST_F(HelpSections, HaveNothingToDoWithTags) {
  option("a", vtNull, "Main")->tag("Other,kivo_hidden");
  option("b", vtNull, "Other");
  EXPECT_EQ("Main\n" + entry("-a", "Text.") + "Other\n" + entry("-b", "Text."), ordinary());
}

TEST_F(HelpSections, ListTheirOptionsByFirstName) {
  for (const char* names : {"b,a0", "ab", "a", "B", "a-b", "\u00e4"})
    option(names);
  EXPECT_EQ(entry("-B", "Text.") + entry("-a", "Text.") + entry("-a-b", "Text.") +
                entry("-ab", "Text.") + entry("-b, -a0", "Text.") + entry("-\u00e4", "Text."),
            ordinary());
}

TEST_F(HelpSections, NeverListAPositionalOption) {
  option("file", vtString)->positional();
  option("secret", vtString, "kivo_hidden")->positional();
  modifier("input", "run")->positional();
  EXPECT_EQ("", ordinary());
  EXPECT_EQ("kivo_hidden\n", hidden());
  EXPECT_EQ("", topic("file"));
  EXPECT_EQ("", global());
}

TEST_F(HelpEntry, NamesTheOptionByAllItsNamesInOrder) {
  option("out,o")->synonym("output")->synonym("x,y");
  EXPECT_EQ(entry("-out, -o, -output, -x,y", "Text."), ordinary());
}

TEST_F(HelpEntry, OfABooleanShowsWhichFormIsTheDefault) {
  option("a", vtBool);
  option("b,bee", vtBool)->defaultValue(true);
  option("c", vtBool)->defaultValue(false);
  option("d", vtBool)->defaultValue(7);
  EXPECT_EQ(entry("-a | -no-a", "Text.") + entry("-b, -bee (default) | -no-b", "Text.") +
                entry("-c | -no-c (default)", "Text.") + entry("-d (default) | -no-d", "Text."),
            ordinary());
}

TEST_F(HelpEntry, OfABooleanShowsNoAllowedValues) {
  option("a", vtBool)->allowValue(true);
  EXPECT_EQ(entry("-a | -no-a", "Text."), ordinary());
}

TEST_F(HelpEntry, OfAnOptionWithoutValueIsItsNamesAlone) {
  option("a", vtNull)->allowValue("x")->defaultValue("y");
  EXPECT_EQ(entry("-a", "Text."), ordinary());
}

TEST_F(HelpEntry, ShowsTheTypeOfTheValue) {
  const struct {
    variant_type_t type;
    const char* head;
  } cases[] = {
      {vtS32, "-a=<integer>"},        {vtU32, "-a=<unsigned integer>"},
      {vtS64, "-a=<64 bit integer>"}, {vtU64, "-a=<unsigned 64 bit or hex>"},
      {vtDouble, "-a=<double>"},      {vtString, "-a=<string>"},
  };
  for (const auto& c : cases) {
    parser = makeParser();
    option("a", c.type);
    EXPECT_EQ(entry(c.head, "Text."), ordinary());
  }
}

TEST_F(HelpEntry, OfATypeThatOptionsDoNotHaveShowsNoTexts) {
  option("a", stratum2::vtS8)->defaultValue(3);
  option("b", stratum2::vtS8)->allowValue(3)->allowValue(4);
  EXPECT_EQ(entry("-a=<>", "Text.") + entry("-b= | ", "Text."), ordinary());
}

TEST_F(HelpEntry, ShowsTheDefaultAfterTheType) {
  const struct {
    variant_type_t type;
    variant_t value;
    const char* head;
  } cases[] = {
      {vtS32, -3, "-a=<integer> (-3)"},
      {vtU32, 3u, "-a=<unsigned integer> (3)"},
      {vtS64, std::numeric_limits<s64_t>::min(), "-a=<64 bit integer> (-9223372036854775808)"},
      {vtU64, u64_t{255}, "-a=<unsigned 64 bit or hex> (255)"},
      {vtDouble, 1234567.0, "-a=<double> (1.23457e+06)"},
      {vtDouble, 2, "-a=<double> (2)"},
      {vtString, "some text", "-a=<string> (some text)"},
      {vtS32, true, "-a=<integer> (1)"},
  };
  for (const auto& c : cases) {
    parser = makeParser();
    option("a", c.type)->defaultValue(c.value);
    const string head = c.head;
    EXPECT_EQ(head.size() < 30 ? entry(head, "Text.") : entryBelow(head, "Text."), ordinary());
  }
}

TEST_F(HelpEntry, ShowsNoDefaultWithAnEmptyText) {
  option("a", vtString)->defaultValue("");
  option("b", vtString)->defaultValue(" ");
  EXPECT_EQ(entry("-a=<string>", "Text.") + entry("-b=<string> ( )", "Text."), ordinary());
}

TEST_F(HelpEntry, ShowsAllowedValuesInPlaceOfTheType) {
  option("a", vtString)->allowValue("a")->allowValue("b");
  option("b", vtString)->allowValue("b")->allowValue("a")->allowValue("b")->defaultValue("a");
  option("c", vtDouble)->allowValue(1)->allowValue(0.5);
  option("d", vtString)->allowValue("")->allowValue("x")->allowValue("");
  EXPECT_EQ(entry("-a=a | b", "Text.") + entry("-b=b | a | b (a)", "Text.") +
                entry("-c=1 | 0.5", "Text.") + entry("-d= | x | ", "Text."),
            ordinary());
}

TEST_F(HelpEntry, ShowsNoDeprecatedValues) {
  option("a", vtString)->allowValue("new")->allowDeprecatedValue("old", "new");
  option("b", vtString)->allowDeprecatedValue("old", "new");
  EXPECT_EQ(entry("-a=new", "Text.") + entry("-b=<string>", "Text."), ordinary());
}

TEST_F(HelpEntry, WithAHeadOfThirtyCharactersHasItsDescriptionBelow) {
  const string shorter = "-" + string(28, 'a');
  const string equal = "-" + string(29, 'b');
  const string longer = "-" + string(30, 'c');
  for (const string& head : {shorter, equal, longer})
    option(head.substr(1).c_str());
  EXPECT_EQ(shorter + " Text.\n" + equal + "\n                              Text.\n" + longer +
                "\n                              Text.\n",
            ordinary());
}

TEST_F(HelpEntry, WithAnEmptyDescriptionIsALongHeadAloneOrNothing) {
  const string longHead = "-" + string(29, 'b');
  parser->option("a", "", vtString);
  parser->option(longHead.substr(1).c_str(), "", vtNull);
  parser->option("c", nullptr, vtBool);
  EXPECT_EQ(longHead + "\n", ordinary());
}

TEST_F(HelpEntry, WrapsTheDescriptionIntoColumnsThirtyToSeventyEight) {
  const string fullLine(49, 'x');
  const string indent(30, ' ');
  parser->option("a", (fullLine + " one two\n\nthree").c_str(), vtNull);
  parser->option("b", (fullLine + "y").c_str(), vtNull);
  EXPECT_EQ(entry("-a", fullLine) + indent + "one two\n" + indent + "three\n" +
                entry("-b", fullLine) + indent + "y\n",
            ordinary());
}

TEST_F(HelpTopics, AreTheActionsByNameWithTheirDescriptions) {
  action("run,r", "Do it.");
  action("describe", "Say what it is.");
  action("R", "");
  option("verbose");
  EXPECT_EQ(
      "    R          \n"
      "    describe   Say what it is.\n"
      "    run        Do it.\n",
      ordinary());
}

TEST_F(HelpTopics, MayHaveAnEmptyName) {
  action(",x", "Without a name.");
  EXPECT_EQ("       Without a name.\n", ordinary());
}

TEST_F(HelpTopics, AreNotWrapped) {
  const string description = string(100, 'x') + " two\nlines";
  action("run", description.c_str());
  EXPECT_EQ("    run   " + description + "\n", ordinary());
}

TEST_F(HelpTopics, HaveNoSections) {
  action("run", "Do it.", "Actions:What to do.");
  action("walk", "Do it slowly.", "Others");
  EXPECT_EQ("    run    Do it.\n    walk   Do it slowly.\n", ordinary());
}

TEST_F(HelpTopics, AreTheHiddenActionsInHiddenHelp) {
  action("run", "Do it.");
  action("self-destruct", "Beware.", "kivo_hidden:Not for everyone.");
  action("dump", "For developers.", "kivo_hidden");
  EXPECT_EQ("    run   Do it.\n", ordinary());
  EXPECT_EQ(
      "    dump            For developers.\n"
      "    self-destruct   Beware.\n",
      hidden());
}

TEST_F(HelpTopics, AreReplacedByAllOptionsWhereNoActionIsShown) {
  action("run", "Do it.", "Actions");
  option("secret", vtNull, "kivo_hidden");
  EXPECT_EQ("    run   Do it.\n", ordinary());
  EXPECT_EQ("kivo_hidden\n" + entry("-secret", "Text."), hidden());

  parser = makeParser();
  action("dump", "For developers.", "kivo_hidden");
  option("level", vtS32, "Main");
  modifier("depth", "dump", "Main");
  EXPECT_EQ("Main\n" + entry("-depth", "Text.") + entry("-level=<integer>", "Text."), ordinary());
  EXPECT_EQ("    dump   For developers.\n", hidden());
}

TEST_F(HelpTopics, IncludeAPositionalAction) {
  action("run", "Do it.")->positional();
  EXPECT_EQ("    run   Do it.\n", ordinary());
}

TEST_F(HelpOfATopic, IsTheEntryOfThatOptionAlone) {
  action("run,r", "Do it.");
  option("level,l", vtS32)->defaultValue(3);
  modifier("depth", "run");
  EXPECT_EQ(entry("-run, -r", "Do it."), topic("run"));
  EXPECT_EQ(entry("-level, -l=<integer> (3)", "Text."), topic("level"));
  EXPECT_EQ(entry("-depth", "Text."), topic("depth"));
}

TEST_F(HelpOfATopic, IsFoundByAnyNameAndByTheNegationOfABoolean) {
  option("color,c", vtBool)->synonym("colour");
  option("level");
  const string expected = entryBelow("-color, -c, -colour | -no-color", "Text.");
  for (const char* name : {"color", "c", "colour", "no-color", "no-c", "no-colour"})
    EXPECT_EQ(expected, topic(name)) << name;
  EXPECT_EQ(
      "Help for no-level not available.Please use one of the following topics:\n" + ordinary(),
      topic("no-level"));
}

TEST_F(HelpOfATopic, ShowsTheHeadingsOfAllSections) {
  option("a", vtNull, "First:Introduction.");
  option("b", vtNull, "Second");
  option("c", vtNull, "kivo_hidden");
  EXPECT_EQ("First\n Introduction.\n\nSecond\n" + entry("-b", "Text."), topic("b"));
}

TEST_F(HelpOfATopic, ShowsAHiddenOptionInHiddenHelpAlone) {
  option("shown", vtNull, "Main");
  option("secret", vtNull, "kivo_hidden");
  EXPECT_EQ("Main\n", topic("secret"));
  EXPECT_EQ("kivo_hidden\n" + entry("-secret", "Text."), topic("secret", true));
  EXPECT_EQ("kivo_hidden\n", topic("shown", true));
}

TEST_F(HelpOfATopic, ThatIsNullIsTheWholeHelp) {
  action("run", "Do it.");
  option("secret", vtNull, "kivo_hidden");
  EXPECT_EQ("    run   Do it.\n", topic(nullptr));
  EXPECT_EQ("kivo_hidden\n" + entry("-secret", "Text."), topic(nullptr, true));
}

TEST_F(HelpOfATopic, ThatIsUnknownIsARemarkAndTheWholeHelp) {
  action("run", "Do it.");
  option("level", vtS32, "Main");
  option("secret", vtNull, "kivo_hidden");
  EXPECT_EQ(
      "Help for walk not available.Please use one of the following topics:\n"
      "    run   Do it.\n",
      topic("walk"));
  EXPECT_EQ(
      "Help for  not available.Please use one of the following topics:\n"
      "    run   Do it.\n",
      topic(""));
  EXPECT_EQ(
      "Help for walk not available.Please use one of the following topics:\n"
      "kivo_hidden\n" +
          entry("-secret", "Text."),
      topic("walk", true));
}

TEST_F(HelpOfATopic, TakesNeitherAbbreviationsNorDashes) {
  action("run", "Do it.");
  for (const string name : {"ru", "-run", "Run", "run "})
    EXPECT_EQ("Help for " + name + " not available.Please use one of the following topics:\n" +
                  ordinary(),
              topic(name.c_str()));
}

TEST_F(HelpOfModifiers, ListsThoseThatShareATagWithTheAction) {
  action("run,r", "Do it.");
  action("walk,w", "Do it slowly.");
  modifier("both", "walk,run");
  modifier("fast", "run");
  modifier("slow", "walk");
  modifier("by-synonym", "r");
  option("free");
  EXPECT_EQ(entry("-both", "Text.") + entry("-by-synonym", "Text.") + entry("-fast", "Text."),
            modifiersOf("run"));
  EXPECT_EQ(modifiersOf("run"), modifiersOf("r"));
  EXPECT_EQ(entry("-both", "Text.") + entry("-slow", "Text."), modifiersOf("walk"));
}

TEST_F(HelpOfModifiers, ListsAPlainOptionThatWasTagged) {
  action("run");
  option("level")->tag("x,run");
  action("walk")->tag("x");
  EXPECT_EQ(entry("-level", "Text."), modifiersOf("run"));
  EXPECT_EQ(entry("-level", "Text."), modifiersOf("walk"));
}

TEST_F(HelpOfModifiers, NeverListsAnAction) {
  action("run");
  action("walk")->tag("run");
  EXPECT_EQ("", modifiersOf("run"));
}

TEST_F(HelpOfModifiers, OfAnotherOptionListsWhatElseSharesATag) {
  action("run");
  modifier("fast", "run");
  modifier("far", "run");
  EXPECT_EQ(entry("-far", "Text."), modifiersOf("fast"));
}

TEST_F(HelpOfModifiers, ShowsSectionsAndHiddenOnesAsTheWholeHelpDoes) {
  action("run", "Do it.", "Actions");
  modifier("fast", "run", "Main:Introduction.");
  modifier("secret", "run", "kivo_hidden");
  EXPECT_EQ("Actions\nMain\n Introduction.\n\n" + entry("-fast", "Text."), modifiersOf("run"));
  EXPECT_EQ("kivo_hidden\n" + entry("-secret", "Text."), modifiersOf("run", true));
}

TEST_F(HelpOfModifiers, OfAnUnknownActionIsARemarkAndTheWholeHelp) {
  action("run", "Do it.");
  option("secret", vtNull, "kivo_hidden");
  EXPECT_EQ(
      "Help for walk not available.Please use one of the following topics:\n"
      "    run   Do it.\n",
      modifiersOf("walk"));
  EXPECT_EQ("Help for walk not available.Please use one of the following topics:\n" + hidden(),
            modifiersOf("walk", true));
  EXPECT_EQ("Help for  not available.Please use one of the following topics:\n" + ordinary(),
            modifiersOf(nullptr));
}

TEST_F(HelpOfModifiers, ThatAreGlobalListsThoseWithoutTags) {
  action("run");
  modifier("fast", "run");
  modifier("untagged", nullptr);
  modifier("of-no-action", "");
  option("free");
  option("tagged")->tag("anything");
  option("secret", vtNull, "kivo_hidden");
  EXPECT_EQ(entry("-free", "Text.") + entry("-of-no-action", "Text.") + entry("-untagged", "Text."),
            global());
  EXPECT_EQ("kivo_hidden\n" + entry("-secret", "Text."), global(true));
}

TEST_F(HelpOfModifiers, ThatAreGlobalListsTheOptionForFiles) {
  action("run");
  parser->addOptionFileOption("More arguments.", "Files");
  EXPECT_EQ("Files\n" + entry("-option-file=<string>", "More arguments."), global());
}

TEST_F(HelpFailure, IsReturnedInsteadOfTheHelpAndAsTheLastError) {
  option("");
  EXPECT_EQ(unknownError, ordinary());
  EXPECT_STREQ(unknownError, parser->getErrorDesc());
  EXPECT_EQ(parser->getErrorDesc(), parser->getDescription(false));
  EXPECT_EQ(unknownError, global());
}

TEST_F(HelpFailure, OccursOnlyWhereANamelessOptionIsListed) {
  option("good");
  option("", vtNull, "kivo_hidden");
  option("")->positional();
  EXPECT_EQ(entry("-good", "Text."), ordinary());
  EXPECT_EQ(entry("-good", "Text."), topic("good"));
  EXPECT_EQ(entry("-good", "Text."), global());
  EXPECT_STREQ("", parser->getErrorDesc());
  EXPECT_EQ(unknownError, hidden());
}

TEST_F(HelpFailure, DoesNotOccurWhereManyNamelessOptionsAreNotListed) {
  option("good");
  for (int i = 0; i < 2'000; ++i)
    option("", vtNull, "kivo_hidden");
  EXPECT_EQ(entry("-good", "Text."), ordinary());
  EXPECT_EQ(unknownError, hidden());
}

TEST_F(HelpFailure, OccursInTheTopicsForANamelessAction) {
  action("run", "Do it.");
  action("", "Nameless.", "kivo_hidden");
  EXPECT_EQ("    run   Do it.\n", ordinary());
  EXPECT_EQ(unknownError, hidden());
  action("");
  EXPECT_EQ(unknownError, ordinary());
}

TEST_F(HelpFailure, FollowsTheRemarkOnAnUnknownTopic) {
  option("");
  const string expected =
      string("Help for x not available.Please use one of the following topics:\n") + unknownError;
  EXPECT_EQ(expected, topic("x"));
  EXPECT_EQ(expected, modifiersOf("x"));
}

TEST_F(HelpFailure, LeavesTheParserUsable) {
  option("level");
  option("");
  EXPECT_EQ(unknownError, ordinary());
  EXPECT_EQ(entry("-level", "Text."), topic("level"));
  EXPECT_STREQ(unknownError, parser->getErrorDesc());
}

// The generator without a parser, also on declarations that a registry refuses.
class Generator : public ::testing::Test {
 protected:
  OptionDescription& add(const char* name, bool isAction, const char* description = "Text.") {
    options.push_back(makeOption({name}, vtNull, &garbage));
    options.back().m_notAnAction = isAction ? 0 : 1;
    options.back().m_description = description;
    return options.back();
  }

  static string namesOf(const HelpGenerator::Selection& selection) {
    string names;
    for (const OptionDescription* option : selection)
      names += joined("[", option->firstName(), "]");
    return names;
  }

  Garbage garbage;
  HelpGenerator::Options options;
  HelpGenerator::Sections sections = {{"", ""}};
  HelpGenerator help{options, sections};
};

TEST_F(Generator, SelectsInTheOrderOfDeclaration) {
  add("walk", true).tag("walk");
  add("zip", false);
  add("run", true).tag("run,x");
  add("level", false).tag("x");
  add("depth", false).tag("run,walk");
  add("all", false);
  EXPECT_EQ("[walk][run]", namesOf(help.getGlobalActions()));
  EXPECT_EQ("[zip][all]", namesOf(help.getGlobalModifiers()));
  HelpGenerator::Selection found = help.getGlobalActions();
  help.findActionModifiers(2, found);
  EXPECT_EQ("[walk][run][level][depth]", namesOf(found));
}

TEST_F(Generator, RaisesOutOfRangeForAnActionThatDoesNotExist) {
  add("run", true);
  HelpGenerator::Selection found;
  EXPECT_THROW(help.findActionModifiers(1, found), std::out_of_range);
  EXPECT_THROW(help.describeActionModifiers(1, false), std::out_of_range);
  EXPECT_THROW(help.describeOption(1, false), std::out_of_range);
}

TEST_F(Generator, GivesATopicTheDescriptionOfItsLastDeclaration) {
  add("run", true, "First.");
  add("walk", true, "Between.");
  add("run", true, "Last.");
  EXPECT_EQ("    run    Last.\n    walk   Between.\n", help.describeTool(false));
}

TEST_F(Generator, ListsAllOptionsOfTheSameName) {
  add("level", false);
  add("level", false);
  EXPECT_EQ(entry("-level", "Text.") + entry("-level", "Text."), help.describeTool(false));
}

TEST_F(Generator, ListsNoOptionWhoseGroupIsNoSection) {
  add("level", false).m_groupKey = "Elsewhere";
  EXPECT_EQ("", help.describeTool(false));
}

}  // namespace
}  // namespace kivo_3_3::testing
