// What a result stores: occurrences, values, defaults and leftover arguments.

#include "result/parse_result.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "base/quoted.h"
#include "options/make_option.h"
#include "recognizers/argument_parser.h"
#include "support/command.h"
#include "support/stored.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::applyDefault;
using testing::Command;
using testing::given;
using testing::givenTo;
using testing::makeOption;
using testing::render;

// One occurrence, with a value at the next position.
OptionData occurrence(int position, const char* value) {
  OptionData data;
  data.positions = {position};
  data.values = {given(value, nullptr, position + 1)};
  return data;
}

void store(const std::vector<string>& names, OptionData data, ParseResult& result) {
  result.store(makeOption(names, vtString), data);
}

// Renders what is stored under a name: "@1 a@2 (a@3)", with the default in parentheses.
string entry(const ParseResult& result, const char* name) {
  const auto number = result.options().find(name);
  const auto standby = result.options().findDefault(name);
  if (!number && !standby)
    return "none";
  string text = number ? render(result.options().given(*number)) : "";
  if (standby)
    text += joined(text.empty() ? "(" : " (", standby->text, "@", std::to_string(standby->position),
                   ")");
  return text;
}

TEST(Value, MadeOfNothingIsNoValue) {
  const Value value;
  EXPECT_EQ(nullptr, value.as<const char*>());
  EXPECT_EQ(nullptr, value.text);
  EXPECT_EQ(1, value.isEmpty);
  EXPECT_EQ(2147483647, value.position);
  EXPECT_EQ(vtNull, value.value.type());
}

TEST(Value, HoldsWhatItWasMadeOf) {
  const Value value("3", 3, 7);
  EXPECT_STREQ("3", value.as<const char*>());
  EXPECT_EQ(0, value.isEmpty);
  EXPECT_EQ(7, value.position);
  EXPECT_EQ(variant_t(3), value.value);
  EXPECT_EQ(vtS32, value.value.type());
}

TEST(Store, OneNameTwiceHasEachLaterOccurrenceTwice) {
  ParseResult result;
  store({"level", "l", "l"}, occurrence(1, "a"), result);
  store({"level", "l", "l"}, occurrence(3, "b"), result);
  EXPECT_EQ("@1 @3 a@2 b@4", entry(result, "level"));
  EXPECT_EQ("@1 @3 @3 a@2 b@4 b@4", entry(result, "l"));
}

TEST(Store, EveryNameHasAllOccurrencesInTheOrderTheyCame) {
  ParseResult result;
  const std::vector<string> names = {"level", "depth", "l"};
  store(names, occurrence(1, "a"), result);
  store(names, occurrence(3, "b"), result);
  store(names, occurrence(5, "c"), result);
  for (const char* name : {"level", "depth", "l"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ("@1 @3 @5 a@2 b@4 c@6", entry(result, name));
  }
  EXPECT_EQ(3u, result.options().names().size());
}

TEST(Store, ThreeTimesUnderTwoSynonymsCountsUnderEveryName) {
  Command command;
  command.option("level,depth", vtS32);
  EXPECT_EQ(0, command.parse({"--level=7", "--depth=8", "--level=9"}));
  for (const char* name : {"level", "depth"}) {
    SCOPED_TRACE(name);
    const GivenOption& data = givenTo(command.result(), name);
    EXPECT_EQ(3u, data.positions.size());
    ASSERT_EQ(3u, data.values.size());
    EXPECT_STREQ("7", data.values[0].text);
    EXPECT_STREQ("8", data.values[1].text);
    EXPECT_STREQ("9", data.values[2].text);
  }
}

TEST(Store, TwiceWithoutValuesIsTwoPositionsAndNoValues) {
  ParseResult result;
  OptionData data;
  data.positions = {4};
  store({"flag"}, data, result);
  data.positions = {9};
  store({"flag"}, data, result);
  EXPECT_EQ("@4 @9", entry(result, "flag"));
}

TEST(Store, OccurrencesLeaveTheDefault) {
  ParseResult result;
  OptionDescription option = makeOption({"level"}, vtString);
  option.defaultValue("first");
  applyDefault(option, result);
  const string standby = entry(result, "level");
  store({"level"}, occurrence(1, "a"), result);
  EXPECT_EQ("@1 a@2 " + standby, entry(result, "level"));
  store({"level"}, occurrence(3, "b"), result);
  EXPECT_EQ("@1 @3 a@2 b@4 " + standby, entry(result, "level"));
}

TEST(Store, OnlyTheFirstNameTellsWhetherTheOptionIsKnown) {
  ParseResult result;
  store({"depth"}, occurrence(1, "a"), result);
  store({"level", "depth"}, occurrence(3, "b"), result);  // depth is overwritten
  EXPECT_EQ("@3 b@4", entry(result, "depth"));
  store({"level", "other"}, occurrence(5, "c"), result);  // other is new
  EXPECT_EQ("@3 @5 b@4 c@6", entry(result, "level"));
  EXPECT_EQ("@5 c@6", entry(result, "other"));
}

TEST(Store, OptionWithoutNamesIsOutOfRange) {
  ParseResult result;
  EXPECT_THROW(store({}, occurrence(1, "a"), result), std::out_of_range);
  EXPECT_TRUE(result.options().names().empty());
}

TEST(Store, ThroughTheCollectorLandsInTheSameResult) {
  ParseResult result;
  OptionData data = occurrence(1, "a");
  static_cast<IResultCollector&>(result).store(makeOption({"level"}, vtString), data);
  EXPECT_EQ("@1 a@2", entry(result, "level"));
}

TEST(Store, EntriesAreInByteOrder) {
  ParseResult result;
  for (const char* name : {"b", "\xC3\xA4", "B", "a", "ab", "-"})
    store({name}, occurrence(1, "a"), result);
  string order;
  for (const std::string_view name : result.options().names())
    order += joined(name, " ");
  EXPECT_EQ("- B a ab b \xC3\xA4 ", order);
}

TEST(Defaults, NotGivenOptionHasItsDefaultAlone) {
  Command command;
  command.option("level", vtS32)->defaultValue(2);
  command.option("flag", vtNull);
  EXPECT_EQ("level(2)@+1 flag@+2", command.parsed({"--flag"}));
  EXPECT_FALSE(command.result().options().find("level"));
  EXPECT_EQ(variant_t(2), *command.result().options().findDefault("level")->value);
}

TEST(Defaults, GivenOptionHasItsDefaultBesideItsValues) {
  Command command;
  command.option("level", vtS32)->defaultValue(2);
  EXPECT_EQ("level(2)@+1 level=3@+2", command.parsed({"--level=3"}));
}

TEST(Defaults, EachNameDrawsAPositionInTheOrderOfDeclaration) {
  Command command;
  command.option("level,depth,l", vtS32)->defaultValue(2);
  command.option("a", vtS32)->defaultValue(1);
  EXPECT_EQ("level(2)@+1 a(1)@+4", command.parsed({}));
  const StoredOptions& options = command.result().options();
  const int first = options.findDefault("level")->position;
  EXPECT_EQ(first + 1, options.findDefault("depth")->position);
  EXPECT_EQ(first + 2, options.findDefault("l")->position);
}

TEST(Defaults, AreConvertedToTextByTheTypeOfTheOption) {
  const struct {
    variant_type_t type;
    variant_t value;
    const char* text;
  } cases[] = {
      {vtBool, true, "1"},    {vtS32, -5, "-5"},  {vtU64, u64_t{10}, "10"},
      {vtDouble, 0.5, "0.5"}, {vtDouble, 3, "3"}, {vtString, "a,b", "a,b"},
      {vtBool, 7, "1"},       {vtS32, true, "1"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    Command command;
    command.option("x", c.type)->defaultValue(c.value);
    EXPECT_EQ("x(" + string(c.text) + ")@+1", command.parsed({}));
  }
}

TEST(Defaults, EmptyVariantOrNoDeclarationIsNoDefault) {
  Command command;
  command.option("a", vtS32)->defaultValue(variant_t());
  command.option("b", vtS32);
  EXPECT_EQ("", command.parsed({}));
  EXPECT_TRUE(command.result().options().names().empty());
  EXPECT_EQ(0, command.positionsDrawn());
}

TEST(Defaults, ValueWithoutTheFlagIsNoDefault) {
  OptionDescription option = makeOption({"level"}, vtS32);
  option.m_defaultValue = 3;
  ParseResult result;
  applyDefault(option, result);
  EXPECT_TRUE(result.options().names().empty());
}

TEST(Defaults, AreNotValidated) {
  Command command;
  command.option("level", vtString)->allowValue("fast")->defaultValue("never allowed");
  EXPECT_EQ("level(never allowed)@+1", command.parsed({}));
}

TEST(Defaults, EmptyTextIsADefaultThatDrawsAPosition) {
  Command command;
  command.option("level", vtString)->defaultValue("");
  EXPECT_EQ("level()@+1", command.parsed({}));
}

TEST(Defaults, OptionWithoutNamesIsOutOfRange) {
  Command command;
  command.option("", vtS32)->defaultValue(3);
  EXPECT_EQ(3, command.parse({}));
  EXPECT_STREQ("", command.error());
}

TEST(Defaults, AreDrawnAfreshByEachParseIntoTheSameResult) {
  Command command;
  command.option("level", vtS32)->defaultValue(2);
  EXPECT_EQ(0, command.parse({"--level=3"}));
  EXPECT_EQ(0, command.parseMore({"--level=4"}));
  EXPECT_EQ("level=3@+2 level(2)@+4 level=4@+5", command.render());
}

TEST(Defaults, ThatHaveChangedKeepTheirFormerTextsValid) {
  Command command;
  IOption* const option = command.option("level,l", vtS32);
  command.parse({});
  std::vector<const char*> texts;
  for (int i = 0; i < 100; ++i) {
    option->defaultValue(i);
    EXPECT_EQ(0, command.parseMore({}));
    texts.push_back(command.result().get("l", firstPosition, lastPosition).text);
  }
  for (std::size_t i = 0; i < texts.size(); ++i)
    EXPECT_EQ(std::to_string(i), texts[i]);
  EXPECT_EQ(2u, command.result().options().names().size());
}

TEST(Defaults, OfSeveralParsersReplaceEachOtherNameByName) {
  Command one;
  Command other;
  one.option("a,b", vtString)->defaultValue("of one");
  other.option("b,c", vtString)->defaultValue("of the other");
  const char* const argv[] = {"tool"};
  const auto readAll = [&] {
    string all;
    for (const char* name : {"a", "b", "c"})
      all += string(name) + "=" + getLastValue(&one.result(), name, 0, lastPosition).text + " ";
    return all;
  };
  one.parse({});
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(0, other.parser().parseArgsVector(1, argv, &one.result()));
    EXPECT_EQ("a=of one b=of the other c=of the other ", readAll());
    EXPECT_EQ(0, one.parser().parseArgsVector(1, argv, &one.result()));
    EXPECT_EQ("a=of one b=of one c=of the other ", readAll());
  }
}

TEST(Result, IsIndependentOfItsParser) {
  ResultHandle result;
  {
    ParserHandle parser = makeParser();
    parser->option("level", "", vtString)->defaultValue("high");
    parser->option("depth", "", vtString);
    result = makeResult(*parser);
    const char* argv[] = {"tool", "--depth=low", "--", "rest"};
    EXPECT_EQ(0, parser->parseArgsVector(4, argv, result.get()));
  }
  EXPECT_STREQ("high", result->get("level").text);
  EXPECT_STREQ("low", result->get("depth").text);
  const char* text = nullptr;
  EXPECT_EQ(0, result->getFirstArgument(&text));
  EXPECT_STREQ("rest", text);
}

TEST(Result, TypedValuesThatWereReadOutliveIt) {
  Value given;
  Value standby;
  {
    const ParserHandle parser = makeParser();
    parser->option("tone", "", vtString)->allowValue("a tone too long for itself");
    parser->option("mood", "", vtString)->defaultValue("a mood too long for itself");
    const ResultHandle result = makeResult(*parser);
    const char* argv[] = {"tool", "--tone=a"};
    EXPECT_EQ(0, parser->parseArgsVector(2, argv, result.get()));
    given = result->get("tone");
    standby = result->get("mood");
  }
  EXPECT_EQ(vtString, given.value.type());
  EXPECT_STREQ("a tone too long for itself", given.value.get<const char*>());
  EXPECT_EQ(vtString, standby.value.type());
  EXPECT_STREQ("a mood too long for itself", standby.value.get<const char*>());
}

TEST(Store, TypedTextRefersToTheTextThatIsKept) {
  Command command;
  command.option("unit", vtString)->allowValue("metre")->allowValue("mile");
  EXPECT_EQ(0, command.parse({"--unit=metre,me"}));
  for (const GivenValue& value : givenTo(command.result(), "unit").values) {
    EXPECT_STREQ("metre", value.text);
    EXPECT_EQ(value.text, value.value.get<const char*>());
  }
}

TEST(Result, TextOfACompletedValueOutlivesTheParser) {
  ResultHandle result;
  {
    const ParserHandle parser = makeParser();
    parser->option("tone", "", vtString)->allowValue("friendly")->allowValue("cool");
    result = makeResult(*parser);
    const char* argv[] = {"tool", "--tone=fr,c"};
    EXPECT_EQ(0, parser->parseArgsVector(2, argv, result.get()));
  }
  EXPECT_STREQ("friendly", result->get("tone").text);
  EXPECT_STREQ("cool", result->next("tone").text);
}

TEST(Result, TextsStayValidUntilItsEnd) {
  Command command;
  command.option("level", vtString);
  command.parse({"--level=a,b"});
  const Value first = command.result().get("level", 0, lastPosition);
  const Value second = command.result().next("level");
  command.parseMore({"--level=c,d,e,f,g,h", "--", "x"});
  while (command.result().next("level").isEmpty == 0)
    continue;
  EXPECT_STREQ("a", first.text);
  EXPECT_STREQ("b", second.text);
}

}  // namespace

}  // namespace kivo_3_3
