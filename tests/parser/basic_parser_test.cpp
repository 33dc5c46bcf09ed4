// The parser object: what its factory and its declarations return, and how it passes
// events on to its handlers.

#include "parser/basic_parser.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <type_traits>

#include "allocation/allocation_limit.h"
#include "support/command.h"
#include "support/recording_handler.h"
#include "support/stored.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::AllocationLimit;
using testing::Command;
using testing::Failing;
using testing::givenTo;
using testing::RecordingHandler;
using testing::TestHandler;

TEST(CreateParser, StoresAParserAndReturnsZero) {
  IParser* parser = nullptr;
  EXPECT_EQ(0, createParser(&parser, 0));
  ASSERT_NE(nullptr, parser);
  EXPECT_STREQ("", parser->getErrorDesc());
  parser->destroy();
}

TEST(CreateParser, FailsWithoutAPlaceToStoreIt) { EXPECT_EQ(3, createParser(nullptr, 0)); }

TEST(CreateResult, StoresAnEmptyResultAndReturnsZero) {
  Command command;
  IParseResult* result = nullptr;
  EXPECT_EQ(0, command.parser().createResult(&result));
  ASSERT_NE(nullptr, result);
  EXPECT_FALSE(result->present("level"));
  result->destroy();
}

TEST(CreateResult, FailsWithoutAPlaceToStoreIt) {
  Command command;
  EXPECT_EQ(3, command.parser().createResult(nullptr));
}

template <class Argument, class = void>
constexpr bool describes = false;
template <class Argument>
constexpr bool describes<Argument, std::void_t<decltype(std::declval<IParser&>().getDescription(
                                       std::declval<Argument>()))>> = true;

// The pointer to a topic would convert to the bool `hidden`, so such a call must not compile.
TEST(GetDescription, OfALoneTopicDoesNotCompile) {
  EXPECT_FALSE(describes<const char*>);
  EXPECT_FALSE(describes<char*>);
  EXPECT_FALSE(describes<const char(&)[6]>);
  EXPECT_FALSE(describes<std::nullptr_t>);
  EXPECT_TRUE(describes<bool>);
  EXPECT_TRUE(describes<int>);
}

TEST(ParserFlags, HaveTheirNumbers) {
  EXPECT_EQ(2, parserFlags::unknownArgumentIsError);
  EXPECT_EQ(4, parserFlags::leftoverArgumentsArePositional);
  EXPECT_EQ(8, parserFlags::dashArgumentsAreNeverPositional);
  EXPECT_EQ(32, parserFlags::noTokenizer);
}

TEST(Status, HasItsNumbers) {
  EXPECT_EQ(0, status::success);
  EXPECT_EQ(1, status::valueRefused);
  EXPECT_EQ(2, status::usageError);
  EXPECT_EQ(3, status::exceptionCaught);
  EXPECT_EQ(4, status::unidentifiedProblem);
  EXPECT_EQ(6, status::optionFileUnreadable);
}

TEST(ParserFlags, OptionsSplitTheirValuesByDefault) {
  Command splitting;
  splitting.option("level", vtString);
  splitting.parse({"--level=a,b"});
  EXPECT_EQ(2u, givenTo(splitting.result(), "level").values.size());
  Command whole(parserFlags::noTokenizer);
  whole.option("level", vtString);
  whole.option("depth", vtString)->tokenize(',');
  whole.parse({"--level=a,b", "--depth=a,b"});
  EXPECT_EQ(1u, givenTo(whole.result(), "level").values.size());
  EXPECT_EQ(2u, givenTo(whole.result(), "depth").values.size());
}

TEST(ParserFlags, OtherBitsChangeNothing) {
  Command command(~(2 | 4 | 8 | 32));
  command.option("files", vtString)->positional();
  EXPECT_EQ("files=-x,y@+1 | rest@+4", command.parsed({"-x,y", "--", "rest"}));
}

TEST(IsOptionDeclared, FindsByAnyNameExactly) {
  Command command;
  command.option("level,depth,l", vtS32)->synonym("added");
  command.option("verbose", vtBool);
  const struct {
    const char* name;
    bool declared;
  } cases[] = {
      {"level", true},        {"depth", true}, {"l", true},
      {"added", true},        {"lev", false},  {"Level", false},
      {"level,depth", false}, {"", false},     {"verbose", true},
      {"no-verbose", false},  // a negation, not a name
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(c.declared, command.parser().isOptionDeclared(c.name, false, nullptr));
    EXPECT_FALSE(command.parser().isOptionDeclared(c.name, true, nullptr));
  }
}

TEST(IsOptionDeclared, NullNameIsNotDeclared) {
  Command command;
  command.option("level", vtS32);
  EXPECT_FALSE(command.parser().isOptionDeclared(nullptr, false, nullptr));
  EXPECT_FALSE(command.parser().isOptionDeclared(nullptr, true, nullptr));
}

TEST(IsOptionDeclared, TellsActionsFromOptionsAndModifiers) {
  Command command;
  command.action("run,r")->synonym("go");
  command.modifier("fast", "run", vtNull);
  for (const char* name : {"run", "r", "go"}) {
    EXPECT_TRUE(command.parser().isOptionDeclared(name, true, nullptr)) << name;
    EXPECT_FALSE(command.parser().isOptionDeclared(name, false, nullptr)) << name;
  }
  EXPECT_FALSE(command.parser().isOptionDeclared("fast", true, nullptr));
  EXPECT_TRUE(command.parser().isOptionDeclared("fast", false, nullptr));
}

TEST(IsOptionDeclared, LooksIntoOneGroupWhenItIsNamed) {
  Command command;
  command.option("level", vtS32, "main:Main options");
  command.option("depth", vtS32);
  IParser& parser = command.parser();
  EXPECT_TRUE(parser.isOptionDeclared("level", false, "main"));
  EXPECT_FALSE(parser.isOptionDeclared("level", false, "main:Main options"));
  EXPECT_FALSE(parser.isOptionDeclared("level", false, "Main"));
  EXPECT_FALSE(parser.isOptionDeclared("level", false, ""));
  EXPECT_TRUE(parser.isOptionDeclared("depth", false, ""));
}

TEST(Declaring, RejectedDeclarationAnswersWithAHarmlessBuilder) {
  Command command;
  command.option("level", vtS32);
  IOption* rejected = command.parser().action("level", "", vtNull, nullptr);
  ASSERT_NE(nullptr, rejected);
  rejected->synonym("other")->positional()->defaultValue(3)->tag("x");
  EXPECT_FALSE(command.parser().isOptionDeclared("level", true, nullptr));
  EXPECT_FALSE(command.parser().isOptionDeclared("other", false, nullptr));
  EXPECT_EQ("level=1@+1", command.parsed({"x", "--level=1"}));
}

TEST(Declaring, TakesEffectInTheNextParse) {
  Command command;
  EXPECT_EQ("", command.parsed({"--level=1"}));
  command.option("level", vtS32);
  EXPECT_EQ("level=1@+1", command.parsed({"--level=1"}));
}

TEST(Declaring, AmendmentsTakeEffectInTheNextParseTogether) {
  Command command;
  IOption* const level = command.option("level", vtS32);
  EXPECT_EQ("", command.parsed({}));
  level->synonym("x")->defaultValue(3);
  EXPECT_EQ("level(3)@+1 level=2@+3", command.parsed({"-x=2"}));
}

TEST(Declaring, NullTextsCountAsEmptyOrNone) {
  Command command;
  IParser& parser = command.parser();
  EXPECT_NE(nullptr, parser.option(nullptr, nullptr, vtNull, nullptr));
  EXPECT_NE(nullptr, parser.action(nullptr, nullptr, vtNull, nullptr));
  EXPECT_NE(nullptr, parser.modifier(nullptr, nullptr, nullptr, vtNull, nullptr));
  parser.modifier("fast", nullptr, nullptr, vtNull, nullptr);
  EXPECT_TRUE(parser.isOptionDeclared("fast", false, ""));
  EXPECT_EQ("", command.parsed({"x"}));
}

// The options declare no action and no deprecated value, so the rules for these do not apply.
TEST(Parsing, OfAFewAllowedValuesTakesNoMemoryFromTheHeap) {
  Command command;
  command.option("tone", vtString)->allowValue("soft")->allowValue("loud");
  EXPECT_EQ("tone=soft@+1", command.parsed({"--tone=soft"}));
  const ResultHandle result = makeResult(command.parser());
  const char* const arguments[] = {"tool", "--tone=loud"};
  int outcome = 0;
  {
    const AllocationLimit limit(0, Failing::once);
    outcome = command.parser().parseArgsVector(2, arguments, result.get());
    EXPECT_FALSE(limit.reached());
  }
  EXPECT_EQ(0, outcome);
  EXPECT_STREQ("loud", result->get("tone", firstPosition, lastPosition).text);
}

TEST(ErrorText, IsEmptyAtTheStartAndNotClearedBySuccess) {
  Command command(parserFlags::unknownArgumentIsError);
  EXPECT_STREQ("", command.error());
  command.parse({"x"});
  EXPECT_STREQ("Unknown option: x", command.error());
  EXPECT_EQ(0, command.parse({}));
  EXPECT_EQ(0, command.parseStream("# nothing"));
  EXPECT_STREQ("Unknown option: x", command.error());
}

TEST(ErrorText, StaysValidAfterLaterOnes) {
  Command command(parserFlags::unknownArgumentIsError);
  command.parse({"x"});
  const char* first = command.error();
  command.parse({"y"});
  EXPECT_STREQ("Unknown option: y", command.error());
  EXPECT_STREQ("Unknown option: x", first);
}

TEST(ErrorText, CanBeSet) {
  BasicParser parser(0);
  parser.setLastError("told by a tool");
  EXPECT_STREQ("told by a tool", parser.getErrorDesc());
}

TEST(EventHandlerDefaults, AcceptEverything) {
  class Silent final : public TestHandler {
  } handler;
  EXPECT_TRUE(handler.onOptionParse("level"));
  EXPECT_TRUE(handler.onValueParse("level", Value("3", 3, 1)));
  EXPECT_TRUE(handler.onUknownArgument("x"));
}

// Three handlers that append their events to one text, each with its number.
class Handlers : public ::testing::Test {
 protected:
  Handlers() {
    for (RecordingHandler& handler : handlers) {
      const string which = std::to_string(&handler - handlers);
      handler.alsoDo = [this, &handler, which] {
        told += which + " " + handler.events + "; ";
        handler.events.clear();
      };
    }
    for (int i : {2, 0, 1})  // not in the order of their addresses
      parser.addHandler(&handlers[i]);
  }

  BasicParser parser{0};
  RecordingHandler handlers[3];
  string told;
};

TEST_F(Handlers, AreNotifiedInTheOrderOfTheirAddresses) {
  EXPECT_TRUE(parser.onOptionParse("level"));
  EXPECT_EQ("0 option level; 1 option level; 2 option level; ", told);
}

TEST_F(Handlers, AddedTwiceAreNotifiedOnce) {
  parser.addHandler(&handlers[1]);
  parser.onOptionParse("a");
  EXPECT_EQ("0 option a; 1 option a; 2 option a; ", told);
}

TEST_F(Handlers, RemovedAreNotNotifiedAndUnknownOnesAreIgnored) {
  RecordingHandler stranger;
  parser.removeHandler(&handlers[1]);
  parser.removeHandler(&handlers[1]);
  parser.removeHandler(&stranger);
  parser.removeHandler(nullptr);
  parser.onOptionParse("a");
  EXPECT_EQ("0 option a; 2 option a; ", told);
}

TEST_F(Handlers, NullAndTheParserItselfAreIgnored) {
  parser.addHandler(nullptr);
  parser.addHandler(&parser);
  EXPECT_TRUE(parser.onOptionParse("a"));
  EXPECT_EQ("0 option a; 1 option a; 2 option a; ", told);
}

TEST_F(Handlers, AnswersToOptionsMakeNoDifference) {
  for (RecordingHandler& handler : handlers)
    handler.acceptsOptions = false;
  EXPECT_TRUE(parser.onOptionParse("a"));
  EXPECT_EQ("0 option a; 1 option a; 2 option a; ", told);
}

TEST_F(Handlers, FirstRefusalOfAValueEndsTheNotification) {
  handlers[1].refusedValues = {"3"};
  EXPECT_FALSE(parser.onValueParse("level", Value("3", 3, 1)));
  EXPECT_EQ("0 value level=3; 1 value level=3; ", told);
}

TEST_F(Handlers, ValueIsAcceptedByAll) {
  EXPECT_TRUE(parser.onValueParse("level", Value("3", 3, 1)));
  EXPECT_EQ("0 value level=3; 1 value level=3; 2 value level=3; ", told);
}

TEST_F(Handlers, AllAreNotifiedOfAnUnknownArgument) {
  handlers[0].acceptsUnknown = false;
  EXPECT_FALSE(parser.onUknownArgument("x"));
  EXPECT_EQ("0 unknown x; 1 unknown x; 2 unknown x; ", told);
}

TEST_F(Handlers, UnknownArgumentIsAcceptedOnlyIfAllAcceptIt) {
  EXPECT_TRUE(parser.onUknownArgument("x"));
  handlers[2].acceptsUnknown = false;
  EXPECT_FALSE(parser.onUknownArgument("x"));
}

TEST_F(Handlers, NoneMeansAccepted) {
  BasicParser lonely(0);
  EXPECT_TRUE(lonely.onOptionParse("a"));
  EXPECT_TRUE(lonely.onValueParse("a", Value("3", 3, 1)));
  EXPECT_TRUE(lonely.onUknownArgument("x"));
}

TEST_F(Handlers, ParserPassesOnTheEventsOfAnother) {
  BasicParser other(0);
  other.addHandler(&parser);
  handlers[0].refusedValues = {"3"};
  EXPECT_FALSE(other.onValueParse("level", Value("3", 3, 1)));
  EXPECT_TRUE(other.onUknownArgument("x"));
  EXPECT_EQ("0 value level=3; 0 unknown x; 1 unknown x; 2 unknown x; ", told);
}

TEST_F(Handlers, MayRemoveThemselvesAndEachOther) {
  handlers[0].alsoDo = [this] {
    told += "0; ";
    parser.removeHandler(&handlers[0]);
    parser.removeHandler(&handlers[1]);
  };
  parser.onOptionParse("a");
  parser.onOptionParse("b");
  EXPECT_EQ("0; 2 option a; 2 option b; ", told);
}

TEST_F(Handlers, MayDestroyEachOther) {
  auto first = std::make_unique<RecordingHandler>();
  auto second = std::make_unique<RecordingHandler>();
  if (std::less<>()(second.get(), first.get()))
    first.swap(second);
  BasicParser other(0);
  other.addHandler(first.get());
  other.addHandler(second.get());
  first->alsoDo = [&] {
    other.removeHandler(second.get());
    second.reset();
  };
  EXPECT_TRUE(other.onUknownArgument("x"));
  EXPECT_TRUE(other.onValueParse("a", Value("3", 3, 1)));
  EXPECT_EQ("unknown x; value a=3", first->events);
}

TEST_F(Handlers, MayAddOthers) {
  parser.removeHandler(&handlers[0]);
  parser.removeHandler(&handlers[2]);
  handlers[1].alsoDo = [this] {
    told += "1; ";
    parser.addHandler(&handlers[2]);
    parser.addHandler(&handlers[0]);
  };
  parser.onUknownArgument("a");
  told.clear();
  parser.onUknownArgument("b");
  EXPECT_EQ("0 unknown b; 1; 2 unknown b; ", told);
}

TEST_F(Handlers, LastOneMayRemoveItself) {
  handlers[2].alsoDo = [this] { parser.removeHandler(&handlers[2]); };
  EXPECT_TRUE(parser.onValueParse("a", Value("3", 3, 1)));
  EXPECT_TRUE(parser.onUknownArgument("x"));
  EXPECT_EQ("0 value a=3; 1 value a=3; 0 unknown x; 1 unknown x; ", told);
}

// Stores the texts and the value that it is notified of, for checks after the parse.
class Keeper final : public TestHandler {
 public:
  bool onOptionParse(const char* name) override {
    option = name;
    return true;
  }
  bool onValueParse(const char* name, const Value& given) override {
    valueName = name;
    value = given;
    valueText = given.text;
    return true;
  }
  bool onUknownArgument(const char* argument) override {
    unknown = argument;
    return true;
  }

  const char* option = nullptr;
  const char* valueName = nullptr;
  Value value;
  string valueText;  // a copy: the text of a value is valid only during the event
  const char* unknown = nullptr;
};

TEST(HandlerTexts, NamesAndUnknownArgumentsLiveAsLongAsTheParser) {
  Command command;
  Keeper keeper;
  command.parser().addHandler(&keeper);
  command.option("level", vtString);
  command.parse({"--level=high and much longer than a short string", "unknown and just as long"});
  command.parser().removeHandler(&keeper);
  command.parse({"--level=another", "other"});
  EXPECT_STREQ("level", keeper.option);
  EXPECT_STREQ("level", keeper.valueName);
  EXPECT_EQ("high and much longer than a short string", keeper.valueText);
  EXPECT_STREQ("unknown and just as long", keeper.unknown);
}

TEST(HandlerTexts, TypedValuesOutliveTheParserAndTheResult) {
  Keeper keeper;
  {
    Command command;
    command.parser().addHandler(&keeper);
    command.option("level", vtString)->allowValue("high and much longer than a short string");
    command.parse({"--level=high"});
  }
  EXPECT_EQ(vtString, keeper.value.value.type());
  EXPECT_STREQ("high and much longer than a short string", keeper.value.value.get<const char*>());
}

TEST(HandlerTexts, HaveOneAddressWhereEqual) {
  BasicParser parser(0);
  Keeper first;
  parser.addHandler(&first);
  parser.onOptionParse(string("level").c_str());
  parser.onUknownArgument(string("level").c_str());
  EXPECT_EQ(first.option, first.unknown);  // equal texts have one address
}

}  // namespace

}  // namespace kivo_3_3
