// What a result stores: occurrences, values, defaults and leftover arguments.

#include "result/parse_result.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "recognizers/argument_parser.h"
#include "support/command.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;

string render(const OptionData& data) {
  string text;
  for (const int position : data.positions)
    text += "@" + std::to_string(position) + " ";
  for (const auto& value : data.values)
    text += value.first.first + "@" + std::to_string(value.second) + " ";
  const auto& standby = data.defaultValue;
  return text + "(" + standby.first.first + "@" + std::to_string(standby.second) + ")";
}

OptionDescription named(const std::vector<string>& names) {
  OptionDescription option;
  option.m_names = names;
  return option;
}

// One occurrence with one value right behind it.
OptionData occurrence(int position, const char* value) {
  OptionData data;
  data.positions = {position};
  data.values = {{{value, value}, position + 1}};
  return data;
}

string entry(ParseResult& result, const char* name) {
  const auto found = result.options().find(name);
  return found != result.options().end() ? render(found->second) : "none";
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

TEST(OptionData, IsEmptyWhenMade) {
  const OptionData data;
  EXPECT_EQ("(@0)", render(data));
  EXPECT_EQ(vtNull, data.defaultValue.first.second.type());
}

TEST(OptionData, KnowsWhetherItsPositionsAscend) {
  const struct {
    const char* why;
    std::vector<int> positions[2];  // of two occurrences that are appended in turn
    std::vector<int> values[2];
    bool ascends;
  } cases[] = {
      {"as they are drawn", {{1}, {4}}, {{2, 3}, {5}}, true},
      {"nothing", {{}, {}}, {{}, {}}, true},
      {"one of each kind", {{1}, {}}, {{2}, {}}, true},
      {"occurrences turn back between two", {{4}, {1}}, {{5}, {6}}, false},
      {"occurrences turn back within one", {{2, 1}, {}}, {{3}, {}}, false},
      {"occurrences turn back within the second", {{1}, {3, 2}}, {{4}, {5}}, false},
      {"values turn back between two", {{1}, {4}}, {{5, 6}, {3}}, false},
      {"values turn back within the first", {{1}, {4}}, {{3, 2}, {5}}, false},
      {"values turn back within the second", {{1}, {4}}, {{2, 3}, {6, 5}}, false},
      {"values turn back before the last", {{1}, {9}}, {{3, 2, 4}, {10}}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    OptionData entry;
    for (int i = 0; i < 2; ++i) {
      OptionData data;
      data.positions = c.positions[i];
      for (const int position : c.values[i])
        data.values.push_back({{"v", "v"}, position});
      entry.append(data);
    }
    EXPECT_EQ(c.ascends, entry.isAscending);
  }
}

TEST(OptionData, OnceOutOfOrderStaysOutOfOrder) {
  OptionData entry;
  for (const int position : {3, 1, 5})
    entry.append(occurrence(position, "v"));
  EXPECT_FALSE(entry.isAscending);
}

TEST(OptionData, TakesBackWhatWasAppendedLast) {
  OptionData entry;
  entry.append(occurrence(1, "a"));
  entry.append(occurrence(3, "b"));
  entry.takeBack(occurrence(3, "b"));
  EXPECT_EQ("@1 a@2 (@0)", render(entry));
}

TEST(Store, OneNameTwiceHasEachLaterOccurrenceTwice) {
  ParseResult result;
  const OptionDescription option = named({"level", "l", "l"});
  result.store(option, occurrence(1, "a"));
  result.store(option, occurrence(3, "b"));
  EXPECT_EQ("@1 @3 a@2 b@4 (@0)", entry(result, "level"));
  EXPECT_EQ("@1 @3 @3 a@2 b@4 b@4 (@0)", entry(result, "l"));
}

TEST(Store, EveryNameHasAllOccurrencesInTheOrderTheyCame) {
  ParseResult result;
  const OptionDescription option = named({"level", "depth", "l"});
  result.store(option, occurrence(1, "a"));
  result.store(option, occurrence(3, "b"));
  result.store(option, occurrence(5, "c"));
  for (const char* name : {"level", "depth", "l"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ("@1 @3 @5 a@2 b@4 c@6 (@0)", entry(result, name));
  }
  EXPECT_EQ(3u, result.options().size());
}

TEST(Store, ThreeTimesUnderTwoSynonymsCountsUnderEveryName) {
  Command command;
  command.option("level,depth", vtS32);
  EXPECT_EQ(0, command.parse({"--level=7", "--depth=8", "--level=9"}));
  for (const char* name : {"level", "depth"}) {
    SCOPED_TRACE(name);
    const OptionData& data = command.result().options().at(name);
    EXPECT_EQ(3u, data.positions.size());
    ASSERT_EQ(3u, data.values.size());
    EXPECT_EQ("7", data.values[0].first.first);
    EXPECT_EQ("8", data.values[1].first.first);
    EXPECT_EQ("9", data.values[2].first.first);
  }
}

TEST(Store, TwiceWithoutValuesIsTwoPositionsAndNoValues) {
  ParseResult result;
  OptionData data;
  data.positions = {4};
  result.store(named({"flag"}), data);
  data.positions = {9};
  result.store(named({"flag"}), data);
  EXPECT_EQ("@4 @9 (@0)", entry(result, "flag"));
}

TEST(Store, FirstOccurrenceIsAssignedWholeAndLaterOnesLeaveTheDefault) {
  ParseResult result;
  OptionData data = occurrence(1, "a");
  data.defaultValue = {{"first", "first"}, 8};
  result.store(named({"level"}), data);
  EXPECT_EQ("@1 a@2 (first@8)", entry(result, "level"));
  data.defaultValue = {{"second", "second"}, 9};
  result.store(named({"level"}), data);
  EXPECT_EQ("@1 @1 a@2 a@2 (first@8)", entry(result, "level"));
}

TEST(Store, OnlyTheFirstNameTellsWhetherTheOptionIsKnown) {
  ParseResult result;
  result.store(named({"depth"}), occurrence(1, "a"));
  result.store(named({"level", "depth"}), occurrence(3, "b"));  // depth is overwritten
  EXPECT_EQ("@3 b@4 (@0)", entry(result, "depth"));
  result.store(named({"level", "other"}), occurrence(5, "c"));  // other is new
  EXPECT_EQ("@3 @5 b@4 c@6 (@0)", entry(result, "level"));
  EXPECT_EQ("@5 c@6 (@0)", entry(result, "other"));
}

TEST(Store, OptionWithoutNamesIsOutOfRange) {
  ParseResult result;
  EXPECT_THROW(result.store(named({}), occurrence(1, "a")), std::out_of_range);
  EXPECT_TRUE(result.options().empty());
}

TEST(Store, ThroughTheCollectorLandsInTheSameResult) {
  ParseResult result;
  static_cast<IResultCollector&>(result).store(named({"level"}), occurrence(1, "a"));
  EXPECT_EQ("@1 a@2 (@0)", entry(result, "level"));
}

TEST(Store, EntriesAreInByteOrder) {
  ParseResult result;
  for (const char* name : {"b", "\xC3\xA4", "B", "a", "ab", "-"})
    result.store(named({name}), OptionData());
  string order;
  for (const auto& option : result.options())
    order += option.first + " ";
  EXPECT_EQ("- B a ab b \xC3\xA4 ", order);
}

TEST(Defaults, NotGivenOptionHasItsDefaultAlone) {
  Command command;
  command.option("level", vtS32)->defaultValue(2);
  command.option("flag", vtNull);
  EXPECT_EQ("level(2)@+1 flag@+2", command.parsed({"--flag"}));
  const OptionData& data = command.result().options().at("level");
  EXPECT_TRUE(data.positions.empty());
  EXPECT_TRUE(data.values.empty());
  EXPECT_EQ(variant_t(2), data.defaultValue.first.second);
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
  const int first = command.result().options().at("level").defaultValue.second;
  EXPECT_EQ(first + 1, command.result().options().at("depth").defaultValue.second);
  EXPECT_EQ(first + 2, command.result().options().at("l").defaultValue.second);
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
  EXPECT_TRUE(command.result().options().empty());
  EXPECT_EQ(0, command.positionsDrawn());
}

TEST(Defaults, ValueWithoutTheFlagIsNoDefault) {
  OptionDescription option = named({"level"});
  option.m_defaultValue = 3;
  ParseResult result;
  result.applyDefault(option);
  EXPECT_TRUE(result.options().empty());
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
