// Reading a result: by option, by value, by occurrence, by leftover argument.

#include "result/result_cursor.h"

#include <kivo/handles.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <utility>

#include "options/make_option.h"
#include "recognizers/argument_parser.h"
#include "result/parse_result.h"
#include "support/command.h"
#include "support/stored.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::applyDefault;
using testing::given;
using testing::givenTo;
using testing::makeOption;
using testing::render;

// A value rendered as "text@position", "-" for no value.
string shown(const Value& value) {
  if (value.isEmpty != 0)
    return "-";
  return (value.text != nullptr ? value.text : "null") + ("@" + std::to_string(value.position));
}

class Reading : public ::testing::Test {
 protected:
  using Values = std::vector<std::pair<const char*, int>>;

  void store(const char* name, const std::vector<int>& positions, const Values& values) {
    OptionData data;
    data.positions.assign(positions.begin(), positions.end());
    for (const auto& value : values)
      data.values.push_back(given(value.first, nullptr, value.second));
    result.store(makeOption({name}, vtString), data);
  }

  // Stores a default and no occurrence.
  void storeDefault(const char* name, const char* text, int position) {
    OptionDescription option = makeOption({name}, vtString);
    option.defaultValue(text);
    const int drawn = std::exchange(IArgumentParser::m_idx, position);
    applyDefault(option, result);
    IArgumentParser::m_idx = drawn;
  }

  string get(const char* name, int from = 0, int to = lastPosition) {
    return shown(result.get(name, from, to));
  }
  string next() { return shown(result.next("level")); }

  // All values of the range: one get(), then next() until there is no value.
  string all(const char* name, int from = 0, int to = lastPosition) {
    string text = get(name, from, to);
    for (string value = next(); value != "-"; value = next())
      text += " " + value;
    return text;
  }

  ParseResult result;
};

TEST_F(Reading, ValuesComeOneByOneAndThenNone) {
  store("level", {2, 6}, {{"a", 3}, {"b", 7}});
  EXPECT_EQ("a@3", get("level", 0, 2147483647));
  EXPECT_EQ("b@7", next());
  EXPECT_EQ("-", next());
  EXPECT_EQ("-", next());
}

TEST_F(Reading, ValuesCarryTextTypeAndPosition) {
  store("level", {2}, {{"a", 3}});
  const Value value = result.get("level", 0, lastPosition);
  EXPECT_STREQ("a", value.as<const char*>());
  EXPECT_EQ(variant_t("a"), value.value);
  EXPECT_EQ(3, value.position);
}

TEST_F(Reading, RangeBeginsWithTheOccurrenceInIt) {
  store("level", {1, 5}, {{"a", 2}, {"b", 6}});
  EXPECT_EQ("b@6", get("level", 5, 2147483647));
  EXPECT_EQ("-", next());
}

TEST_F(Reading, OccurrenceAtTheUpperBoundIsOutside) {
  store("level", {7}, {{"a", 8}});
  EXPECT_FALSE(result.present("level", 0, 7));
  EXPECT_TRUE(result.present("level", 0, 8));
  EXPECT_EQ("-", get("level", 0, 7));
}

TEST_F(Reading, OccurrenceAtTheLowerBoundIsInside) {
  store("level", {7}, {{"a", 8}});
  EXPECT_TRUE(result.present("level", 7, 8));
  EXPECT_FALSE(result.present("level", 8, 9));
  EXPECT_FALSE(result.present("level", 7, 7));
}

TEST_F(Reading, ValueAtTheUpperBoundIsInside) {
  store("level", {7}, {{"a", 8}, {"b", 9}});
  EXPECT_EQ("a@8", all("level", 0, 8));
  EXPECT_EQ("a@8 b@9", all("level", 0, 9));
}

TEST_F(Reading, ValueBelowTheRangeIsSkipped) {
  store("level", {1, 4}, {{"a", 2}, {"b", 3}, {"c", 5}});
  EXPECT_EQ("c@5", all("level", 4, 2147483647));
  EXPECT_EQ("b@3 c@5", all("level", 3, 2147483647));  // the occurrence of "b" is before the range
}

TEST_F(Reading, RangeWithAnOccurrenceButNoValueIsEmpty) {
  store("level", {1}, {{"a", 3}});
  EXPECT_TRUE(result.present("level", 0, 2));
  EXPECT_EQ("-", get("level", 0, 2));
}

// The value is in the range, but no occurrence is: only next() finds it.
TEST_F(Reading, SelectionThatFindsNoOccurrenceStillWalksTheValues) {
  store("level", {1}, {{"a", 2}});
  EXPECT_EQ("-", get("level", 2, 9));
  EXPECT_EQ("a@2", next());
  EXPECT_EQ(2147483647, result.nextPosition());
}

TEST_F(Reading, ValueAboveTheRangeKeepsTheCursor) {
  store("level", {1}, {{"a", 2}, {"b", 9}});
  EXPECT_EQ("a@2", all("level", 0, 5));
  EXPECT_EQ("-", next());
}

TEST_F(Reading, UnknownOptionIsNothing) {
  store("level", {1}, {{"a", 2}});
  EXPECT_TRUE(result.present("level", 0, lastPosition));
  EXPECT_FALSE(result.present("lev", 0, lastPosition));  // a result knows no abbreviations
  EXPECT_EQ("-", next());
  EXPECT_EQ("-", get("LEVEL"));
  EXPECT_EQ("-", next());
  EXPECT_EQ("a@2", get("level"));
}

TEST_F(Reading, NullNameIsNothing) {
  store("level", {1}, {{"a", 2}});
  EXPECT_FALSE(result.present(nullptr, 0, lastPosition));
  EXPECT_EQ("-", get(nullptr));
  EXPECT_EQ("-", next());
}

TEST_F(Reading, NullNameIsNotTheEmptyName) {
  store("", {1}, {{"a", 2}});
  EXPECT_TRUE(result.present("", 0, lastPosition));
  EXPECT_FALSE(result.present(nullptr, 0, lastPosition));
}

TEST_F(Reading, BeforeAnySelectionThereIsNothingNext) {
  store("level", {1}, {{"a", 2}});
  EXPECT_EQ("-", next());
  EXPECT_EQ(2147483647, result.nextPosition());
}

TEST_F(Reading, NextIgnoresTheName) {
  store("level", {1}, {{"a", 2}, {"b", 3}, {"c", 4}});
  store("depth", {5}, {{"x", 6}});
  EXPECT_EQ("a@2", get("level"));
  EXPECT_EQ("b@3", shown(result.next("depth")));
  EXPECT_EQ("c@4", shown(result.next(nullptr)));
}

TEST_F(Reading, EachSelectionBeginsAfresh) {
  store("level", {1}, {{"a", 2}, {"b", 3}});
  EXPECT_EQ("a@2 b@3", all("level"));
  EXPECT_EQ("a@2 b@3", all("level"));
  EXPECT_TRUE(result.present("level", 0, lastPosition));
  EXPECT_EQ("a@2", next());
}

TEST_F(Reading, NextAfterPresentKeepsToItsRange) {
  store("level", {1, 4, 7}, {{"a", 2}, {"b", 5}, {"c", 8}});
  EXPECT_TRUE(result.present("level", 3, 6));
  EXPECT_EQ("b@5", next());
  EXPECT_EQ("-", next());
}

TEST_F(Reading, DefaultIsPresentInEveryRange) {
  storeDefault("level", "high", 3);
  EXPECT_TRUE(result.present("level", 0, lastPosition));
  EXPECT_TRUE(result.present("level", 100, 200));
  EXPECT_TRUE(result.present("level", 3, 3));
  EXPECT_TRUE(result.present("level", 9, 1));
  EXPECT_EQ("high@3", get("level", 100, 200));
}

TEST_F(Reading, DefaultIsDeliveredOnce) {
  storeDefault("level", "high", 3);
  EXPECT_EQ("high@3", get("level"));
  EXPECT_EQ("-", next());
  EXPECT_TRUE(result.present("level", 0, lastPosition));
  EXPECT_EQ("high@3", next());
  EXPECT_EQ("-", next());
}

TEST_F(Reading, DefaultIsDeliveredOnceAfterPresentInAnyRange) {
  storeDefault("level", "high", 3);
  EXPECT_TRUE(result.present("level", 100, 200));
  EXPECT_EQ("high@3", next());
  EXPECT_EQ("-", next());
  EXPECT_EQ("high@3", get("level", lastPosition, 5));
  EXPECT_EQ("-", next());
  EXPECT_EQ("high@3", get("level", 5, lastPosition));
  EXPECT_EQ("-", next());
}

// present() sets these bounds to mark a default that next() has yet to deliver, so the default is
// delivered once more.
TEST_F(Reading, DefaultComesTwiceInTheRangeAtTheVeryEnd) {
  storeDefault("level", "high", 3);
  EXPECT_EQ("high@3", get("level", lastPosition, lastPosition));
  EXPECT_EQ("high@3", next());
  EXPECT_EQ("-", next());
}

TEST_F(Reading, DefaultHasNoOccurrence) {
  storeDefault("level", "high", 3);
  EXPECT_TRUE(result.present("level", 0, lastPosition));
  EXPECT_EQ(2147483647, result.nextPosition());
}

TEST_F(Reading, OccurrenceStoredAfterAQueryForTheDefaultIsTheFirst) {
  storeDefault("level", "high", 3);
  EXPECT_EQ("high@3", get("level"));
  store("level", {4}, {{"a", 5}});
  EXPECT_EQ(4, result.nextPosition());
  EXPECT_EQ(2147483647, result.nextPosition());
}

TEST_F(Reading, DefaultWithAnEmptyTextIsNotSeen) {
  storeDefault("level", "", 3);
  EXPECT_FALSE(result.present("level", 0, lastPosition));
  EXPECT_EQ("-", get("level"));
  EXPECT_EQ("-", next());
}

TEST_F(Reading, DefaultOfAGivenOptionIsNotSeen) {
  storeDefault("level", "high", 3);
  store("level", {5}, {{"low", 6}});
  EXPECT_EQ("low@6", all("level"));
  EXPECT_FALSE(result.present("level", 0, 5));
  EXPECT_EQ("-", get("level", 0, 5));
}

TEST_F(Reading, DefaultOfAFlagThatWasGivenIsNotSeen) {
  storeDefault("flag", "high", 3);
  store("flag", {5}, {});
  EXPECT_EQ("null@5", all("flag"));
}

TEST_F(Reading, FlagDeliversItsPositionsAlone) {
  store("flag", {4, 9}, {});
  const Value first = result.get("flag", 0, lastPosition);
  EXPECT_EQ(0, first.isEmpty);
  EXPECT_EQ(4, first.position);
  EXPECT_EQ(nullptr, first.text);
  EXPECT_EQ(vtNull, first.value.type());
  EXPECT_EQ("null@9", next());
  EXPECT_EQ("-", next());
}

TEST_F(Reading, PositionsAreWalkedAfterPresent) {
  store("flag", {4, 9}, {});
  EXPECT_TRUE(result.present("flag", 0, lastPosition));
  EXPECT_EQ(4, result.nextPosition());
  EXPECT_EQ(9, result.nextPosition());
  EXPECT_EQ(2147483647, result.nextPosition());
}

TEST_F(Reading, WalkOfPositionsBeginsInTheRangeAndContinuesAfterIt) {
  store("flag", {1, 4, 9}, {});
  EXPECT_TRUE(result.present("flag", 3, 5));
  EXPECT_EQ(4, result.nextPosition());
  EXPECT_EQ(9, result.nextPosition());
  EXPECT_EQ("null@4 null@9", all("flag", 3, 5));
}

TEST_F(Reading, FlagSharesItsCursorBetweenValuesAndPositions) {
  store("flag", {1, 4, 9}, {});
  EXPECT_EQ("null@1", get("flag"));
  EXPECT_EQ(4, result.nextPosition());
  EXPECT_EQ("null@9", next());
  EXPECT_EQ(2147483647, result.nextPosition());
}

TEST_F(Reading, ValuesAndPositionsAreWalkedApart) {
  store("level", {1, 4}, {{"a", 2}, {"b", 5}});
  EXPECT_EQ("a@2", get("level"));
  EXPECT_EQ(1, result.nextPosition());
  EXPECT_EQ("b@5", next());
  EXPECT_EQ(4, result.nextPosition());
}

TEST_F(Reading, CursorsSurviveWhateverIsStoredMeanwhile) {
  store("level", {1}, {{"a", 2}, {"b", 3}});
  EXPECT_EQ("a@2", get("level"));
  for (int position = 4; position < 400; position += 2)
    store("level", {position}, {{"more", position + 1}});
  store("another", {401}, {{"x", 402}});
  EXPECT_EQ("b@3", next());
  EXPECT_EQ("more@5", next());
  EXPECT_EQ(1, result.nextPosition());
  EXPECT_EQ(4, result.nextPosition());
}

TEST_F(Reading, ExhaustedWalkGoesOnWithWhatIsStoredLater) {
  store("level", {1}, {{"a", 2}});
  EXPECT_EQ("a@2", all("level"));
  store("level", {3}, {{"b", 4}});
  EXPECT_EQ("b@4", next());
}

TEST_F(Reading, OfAnUnknownNameDoesNotGoOnWithTheEmptyName) {
  OptionData data;
  data.positions = {1};
  data.values = {given("7", nullptr, 2)};
  result.store(makeOption({"", "e"}, vtS32), data);
  EXPECT_EQ("7@2", get(""));
  EXPECT_EQ("-", get("nobody"));
  EXPECT_EQ("-", next());
  EXPECT_EQ(lastPosition, result.nextPosition());
}

TEST_F(Reading, ReadingChangesNothing) {
  store("level", {1}, {{"a", 2}});
  storeDefault("depth", "high", 3);
  for (const char* name : {"level", "depth", "unknown"}) {
    result.present(name, 0, lastPosition);
    all(name);
    result.nextPosition();
  }
  EXPECT_EQ(2u, result.options().names().size());
  EXPECT_EQ("a@2", all("level"));
  EXPECT_EQ("high@3", all("depth"));
}

TEST_F(Reading, LastValueOfTheRange) {
  store("level", {1, 4, 7}, {{"a", 2}, {"b", 5}, {"c", 8}});
  storeDefault("depth", "high", 3);
  store("flag", {4, 9}, {});
  const struct {
    const char* name;
    int from, to;
    const char* value;
  } cases[] = {
      {"level", 0, lastPosition, "c@8"},
      {"level", 0, 8, "c@8"},
      {"level", 0, 7, "b@5"},
      {"level", 4, 5, "b@5"},
      {"level", 9, 20, "-"},
      {"level", 2, 3, "-"},
      {"depth", 50, 60, "high@3"},
      {"flag", 0, 5, "null@9"},
      {"unknown", 0, 9, "-"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name + std::to_string(c.from) + ".." + std::to_string(c.to));
    EXPECT_EQ(c.value, shown(getLastValue(&result, c.name, c.from, c.to)));
  }
}

TEST_F(Reading, LastValueOfNothingIsNoValue) {
  store("level", {1}, {{"a", 2}});
  EXPECT_EQ("-", shown(getLastValue(nullptr, "level", 0, lastPosition)));
  EXPECT_EQ("-", shown(getLastValue(&result, nullptr, 0, lastPosition)));
  EXPECT_EQ("-", shown(getLastValue(nullptr, nullptr, 0, lastPosition)));
}

// A result that a tool implements. Its values have a text and a position even if they are empty.
class OddResult final : public IParseResult {
 public:
  explicit OddResult(int count) : m_left(count) {}

  void destroy() override {}
  bool present(const char*, int, int) override { return false; }
  Value get(const char* name, int, int) override { return next(name); }
  Value next(const char*) override {
    Value value("odd", variant_t(m_left), m_left);
    value.isEmpty = m_left == 0 ? 1 : 0;
    m_left -= m_left == 0 ? 0 : 1;
    return value;
  }
  int nextPosition() override { return lastPosition; }
  int getFirstArgument(const char**) override { return 1; }
  int getNextArgument(const char**) override { return 1; }

 private:
  int m_left;
};

TEST(LastValue, OfAnotherResultIsTheLastOneThatIsNotEmpty) {
  OddResult three(3);
  const Value last = getLastValue(&three, "any", firstPosition, lastPosition);
  EXPECT_STREQ("odd", last.text);
  EXPECT_EQ(0, last.isEmpty);
  EXPECT_EQ(1, last.position);
  EXPECT_EQ(variant_t(1), last.value);
  OddResult none(0);
  const Value nothing = getLastValue(&none, "any", firstPosition, lastPosition);
  EXPECT_EQ(nullptr, nothing.text);
  EXPECT_EQ(1, nothing.isEmpty);
  EXPECT_EQ(lastPosition, nothing.position);
  EXPECT_EQ(variant_t(), nothing.value);
}

TEST(LeftoverArguments, NoneLeavesTheOutputUntouched) {
  ParseResult result;
  const char* const before = "before";
  const char* text = before;
  EXPECT_EQ(1, result.getFirstArgument(&text));
  EXPECT_EQ(1, result.getNextArgument(&text));
  EXPECT_EQ(before, text);
}

TEST(LeftoverArguments, AreWalkedInOrderAndThenEnd) {
  ParseResult result;
  result.addArgument("a", 1);
  result.addArgument("", 2);
  result.addArgument("a", 3);
  const char* text = nullptr;
  EXPECT_EQ(0, result.getFirstArgument(&text));
  EXPECT_STREQ("a", text);
  EXPECT_EQ(0, result.getNextArgument(&text));
  EXPECT_STREQ("", text);
  EXPECT_EQ(0, result.getNextArgument(&text));
  EXPECT_STREQ("a", text);
  text = "before";
  EXPECT_EQ(1, result.getNextArgument(&text));
  EXPECT_STREQ("before", text);
  EXPECT_EQ(0, result.getFirstArgument(&text));
  EXPECT_STREQ("a", text);
}

TEST(LeftoverArguments, NullOutputOnlyMovesOn) {
  ParseResult result;
  result.addArgument("a", 1);
  result.addArgument("b", 2);
  EXPECT_EQ(0, result.getFirstArgument(nullptr));
  const char* text = nullptr;
  EXPECT_EQ(0, result.getNextArgument(&text));
  EXPECT_STREQ("b", text);
}

TEST(LeftoverArguments, CursorSurvivesWhatIsAddedMeanwhile) {
  ParseResult result;
  result.addArgument("a", 1);
  const char* text = nullptr;
  EXPECT_EQ(0, result.getFirstArgument(&text));
  for (int position = 2; position < 100; ++position)
    result.addArgument("b", position);
  EXPECT_EQ(0, result.getNextArgument(&text));
  EXPECT_STREQ("b", text);
}

TEST_F(Reading, CursorPastTheEndOfAReplacedEntryHasNothingLeft) {
  store("shared", {1}, {{"a", 2}, {"b", 3}, {"c", 4}});
  EXPECT_EQ("a@2", get("shared"));
  EXPECT_EQ("b@3", next());
  EXPECT_EQ("c@4", next());
  OptionData data;
  data.positions = {5};
  data.values.push_back(given("d", nullptr, 6));
  result.store(makeOption({"other", "shared"}, vtString), data);
  EXPECT_EQ("-", next());
  EXPECT_EQ("d@6", get("shared"));
}

TEST_F(Reading, LeftoverArgumentsAreWalkedApartFromOptions) {
  store("level", {1}, {{"a", 2}, {"b", 3}});
  result.addArgument("x", 4);
  result.addArgument("y", 5);
  const char* text = nullptr;
  EXPECT_EQ(0, result.getFirstArgument(&text));
  EXPECT_EQ("a@2", get("level"));
  EXPECT_EQ(0, result.getNextArgument(&text));
  EXPECT_STREQ("y", text);
  EXPECT_EQ("b@3", next());
}

// The values that get() and next() must find, by a linear search of all occurrences and values.
string walked(const GivenOption& data, int from, int to) {
  bool occurs = false;
  for (const int at : data.positions)
    occurs = occurs || (from <= at && at < to);
  string texts;
  for (const GivenValue& value : data.values) {
    if (!occurs || value.position > to)
      break;
    if (value.position >= from)
      texts += value.text + string(" ");
  }
  return texts;
}

// Positions do not ascend if one parse stored into the result during another one.
TEST(Occurrences, InAnyOrderAreReadAsIfWalked) {
  constexpr int largest = 8;
  std::mt19937 random(1);
  for (int round = 0; round < 200; ++round) {
    ParseResult result;
    const OptionDescription option = makeOption({"name"}, vtString);
    for (int stored = 0; stored < 4; ++stored) {
      OptionData data;
      data.positions = {static_cast<int>(random() % largest)};
      const int at = static_cast<int>(random() % largest);
      const char* const text = result.memory().copy(std::to_string(at)).data();
      data.values.push_back(given(at, text, at));
      result.store(option, data);
    }
    const GivenOption& all = givenTo(result, "name");
    for (int from = 0; from < largest; ++from)
      for (int to = from; to <= largest; ++to) {
        string texts;
        for (const Value& value : values(result, "name", from, to))
          texts += value.text + string(" ");
        ASSERT_EQ(walked(all, from, to), texts) << render(all);
      }
  }
}

// The tool passes the bounds that present() sets to mark a default.
TEST(ReadingDefaults, TheEmptyRangeAtTheEndDeliversOnlyDefaults) {
  testing::Command command;
  command.option("level", vtString)->defaultValue("");
  command.option("depth", vtS32)->defaultValue(2);
  command.parse({});
  ParseResult& result = command.result();
  for (const char* name : {"unknown", "level"}) {
    EXPECT_EQ(1, result.get(name, lastPosition, lastPosition).isEmpty) << name;
    EXPECT_EQ(1, result.next(name).isEmpty) << name;
  }
  EXPECT_STREQ("2", result.get("depth", lastPosition, lastPosition).text);
  EXPECT_STREQ("2", result.next("depth").text);
  EXPECT_EQ(1, result.next("depth").isEmpty);
}

// From some ten thousand texts on, the slots of later values are prefetched, up to the last value.
TEST(ReadingManyValues, EndsAtTheLastOne) {
  constexpr int count = 40000;
  const ParserHandle parser = makeParser(parserFlags::noTokenizer);
  parser->option("a", "", vtString);
  string line;
  for (int i = 0; i < count; ++i)
    line += "--a=" + std::to_string(i) + '\n';
  const ResultHandle result = makeResult(*parser);
  ASSERT_EQ(0, parser->parseStream(line.c_str(), result.get()));
  int next = 0;
  for (const Value& value : values(*result, "a"))
    EXPECT_EQ(std::to_string(next++), value.text);
  EXPECT_EQ(count, next);
}

}  // namespace

}  // namespace kivo_3_3
