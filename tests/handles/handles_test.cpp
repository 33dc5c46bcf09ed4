#include <gtest/gtest.h>
#include <kivo/kivo.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/command.h"

// The functions of kivo/handles.h. The order of values and the bounds of ranges are tested with the
// result itself; these tests cover what the functions add.

namespace kivo_3_3 {
namespace {

using testing::Command;

IParseResult& resultOf(Command& command) { return command.result(); }

std::string joined(const std::vector<Value>& all) {
  std::string line;
  for (const Value& value : all)
    line += std::string(line.empty() ? "" : " ") + value.text;
  return line;
}

std::string joined(const std::vector<const char*>& all) {
  std::string line;
  for (const char* text : all)
    line += std::string(line.empty() ? "" : " ") + text;
  return line;
}

// Counts the calls of destroy(), like an object that a handle owns.
class Mortal {
 public:
  explicit Mortal(int& ends) : m_ends(ends) {}
  void destroy() { ++m_ends; }

 private:
  int& m_ends;
};

TEST(Handles, DestroyWhatTheyOwn) {
  int ends = 0;
  Mortal mortal(ends);
  { const std::unique_ptr<Mortal, Destroy> handle(&mortal); }
  EXPECT_EQ(1, ends);
}

TEST(Handles, AResultOutlivesAllParsersThatFilledIt) {
  ParserHandle first = makeParser();
  ParserHandle second = makeParser();
  first->option("level,l", "", vtS32)->defaultValue(1);
  second->option("name,n", "", vtString);
  const ResultHandle result = makeResult(*first);
  EXPECT_EQ(0, first->parseStream("--level=3", result.get()));
  // Status 1, because the result has a name that the second parser has not declared: "level".
  EXPECT_EQ(1, second->parseStream("--name=Ada", result.get()));
  EXPECT_EQ(1, first->parseStream("--level=4", result.get()));
  first.reset();
  second.reset();
  EXPECT_EQ(4, valueOr(*result, "l", 0));
  EXPECT_STREQ("Ada", valueOr(*result, "name", ""));
  EXPECT_FALSE(result->present("other"));
}

TEST(Handles, AResultOutlivesItsParser) {
  ParserHandle parser = makeParser();
  parser->option("name", "", vtString);
  const ResultHandle result = makeResult(*parser);
  const char* const argv[] = {"tool", "--name=Ada"};
  ASSERT_EQ(status::success, parser->parseArgsVector(2, argv, result.get()));
  parser.reset();
  EXPECT_EQ("Ada", valueOr<std::string>(*result, "name", ""));
}

TEST(Handles, MakeParserPassesTheFlagsOn) {
  const ParserHandle parser = makeParser(parserFlags::unknownArgumentIsError);
  const char* const argv[] = {"tool", "stray"};
  EXPECT_EQ(status::usageError, parser->parseArgsVector(2, argv, nullptr));
  EXPECT_EQ(status::success, makeParser()->parseArgsVector(2, argv, nullptr));
}

TEST(Values, AreAllOfThemInCommandLineOrder) {
  Command command;
  command.option("level,l", vtS32);
  ASSERT_EQ(0, command.parse({"--level=3,1", "-l", "2"}));
  EXPECT_EQ("3 1 2", joined(values(command.result(), "level")));
  EXPECT_EQ("3 1 2", joined(values(command.result(), "l")));
}

TEST(Values, CarryTheTypedValueAndThePosition) {
  Command command;
  command.option("level", vtS32);
  ASSERT_EQ(0, command.parse({"--level=3", "--level=-4"}));
  const std::vector<Value> all = values(command.result(), "level");
  ASSERT_EQ(2U, all.size());
  EXPECT_EQ(3, all[0].value.get<int>());
  EXPECT_EQ(-4, all[1].value.get<int>());
  EXPECT_EQ(all[0].position + 2, all[1].position);  // the second occurrence has the one between
}

TEST(Values, AreTheDefaultWhereTheOptionWasNotGiven) {
  Command command;
  command.option("level", vtS32)->defaultValue(7);
  ASSERT_EQ(0, command.parse({}));
  EXPECT_EQ("7", joined(values(command.result(), "level")));
  ASSERT_EQ(0, command.parse({"--level=8"}));
  EXPECT_EQ("8", joined(values(command.result(), "level")));
}

TEST(Values, OfARangeHaveTheBoundsOfGet) {
  Command command;
  command.option("level", vtS32);
  ASSERT_EQ(0, command.parse({"--level=1,2", "--level=3"}));
  const std::vector<Value> all = values(command.result(), "level");
  ASSERT_EQ(3U, all.size());
  const int second = all[1].position;
  const int third = all[2].position;
  // A value at the upper bound is in the range, an occurrence at it is not.
  EXPECT_EQ("1 2", joined(values(command.result(), "level", firstPosition, second)));
  EXPECT_EQ("2 3", joined(values(command.result(), "level", second, third)));
  EXPECT_EQ("", joined(values(command.result(), "level", second, third - 1)));
}

TEST(Values, OfOptionsThatAreNotGivenOrUnknownAreNone) {
  Command command;
  command.option("level", vtS32);
  ASSERT_EQ(0, command.parse({}));
  EXPECT_TRUE(values(command.result(), "level").empty());
  EXPECT_TRUE(values(command.result(), "lev").empty());
  EXPECT_TRUE(values(command.result(), nullptr).empty());
}

TEST(Values, LeaveOutOccurrencesWithoutAValue) {
  Command command;
  command.option("flag", vtNull);
  command.option("file", vtString)->positional();
  ASSERT_EQ(0, command.parse({"--flag", ""}));
  EXPECT_TRUE(resultOf(command).present("flag"));
  EXPECT_TRUE(values(command.result(), "flag").empty());
  EXPECT_TRUE(resultOf(command).present("file"));
  EXPECT_TRUE(values(command.result(), "file").empty());
}

TEST(Values, AreNotDisturbedByQueriesInTheLoop) {
  Command command;
  command.option("outer", vtString);
  command.option("inner", vtString);
  ASSERT_EQ(0, command.parse({"--outer=a,b", "--inner=1,2"}));
  std::string pairs;
  for (const Value& outer : values(command.result(), "outer")) {
    for (const Value& inner : values(command.result(), "inner"))
      pairs += std::string(outer.text) + inner.text + ' ';
  }
  EXPECT_EQ("a1 a2 b1 b2 ", pairs);
}

TEST(Values, MoveTheCursorOfTheResult) {
  Command command;
  command.option("a", vtString);
  command.option("b", vtString);
  ASSERT_EQ(0, command.parse({"-a=1,2", "-b=3"}));
  EXPECT_STREQ("1", resultOf(command).get("a").text);
  EXPECT_EQ("3", joined(values(command.result(), "b")));
  EXPECT_EQ(1, resultOf(command).next("a").isEmpty);
}

TEST(Leftovers, AreTheArgumentsAfterTheDashes) {
  Command command;
  ASSERT_EQ(0, command.parse({"--", "a", "--", "-b", ""}));
  EXPECT_EQ("a -- -b ", joined(leftovers(command.result())));
  ASSERT_EQ(4U, leftovers(command.result()).size());
}

TEST(Leftovers, AreNoneWithoutTheDashes) {
  Command command;
  ASSERT_EQ(0, command.parse({"a"}));
  EXPECT_TRUE(leftovers(command.result()).empty());
}

TEST(Leftovers, LeaveTheWalkOverValuesAlone) {
  Command command;
  command.option("a", vtString);
  ASSERT_EQ(0, command.parse({"-a=1,2", "--", "rest"}));
  EXPECT_STREQ("1", resultOf(command).get("a").text);
  EXPECT_EQ("rest", joined(leftovers(command.result())));
  EXPECT_STREQ("2", resultOf(command).next("a").text);
  const char* text = nullptr;
  EXPECT_EQ(1, resultOf(command).getNextArgument(&text));
}

TEST(ValueOr, IsTheLastValueGiven) {
  Command command;
  command.option("level,l", vtS32)->defaultValue(1);
  ASSERT_EQ(0, command.parse({"--level=3", "-l=4,5"}));
  EXPECT_EQ(5, valueOr(command.result(), "level", 9));
}

TEST(ValueOr, IsTheDefaultWhereNothingWasGiven) {
  Command command;
  command.option("level", vtS32)->defaultValue(1);
  ASSERT_EQ(0, command.parse({}));
  EXPECT_EQ(1, valueOr(command.result(), "level", 9));
}

TEST(ValueOr, IsTheFallbackWhereThereIsNeither) {
  Command command;
  command.option("level", vtS32);
  ASSERT_EQ(0, command.parse({}));
  EXPECT_EQ(9, valueOr(command.result(), "level", 9));
  EXPECT_EQ(9, valueOr(command.result(), "nobody", 9));
  EXPECT_EQ(9, valueOr(command.result(), nullptr, 9));
}

TEST(ValueOr, IsTheFallbackForAnOccurrenceWithoutAValue) {
  Command command;
  command.option("flag", vtNull);
  command.option("file", vtString)->positional();
  ASSERT_EQ(0, command.parse({"--flag", ""}));
  EXPECT_FALSE(valueOr(command.result(), "flag", false));
  EXPECT_STREQ("none", valueOr(command.result(), "file", "none"));
}

TEST(ValueOr, OfARangeIsTheLastValueInIt) {
  Command command;
  command.option("level", vtS32);
  ASSERT_EQ(0, command.parse({"--level=3", "--level=4"}));
  const int last = getLastValue(&command.result(), "level").position;
  EXPECT_EQ(4, valueOr(command.result(), "level", 9, firstPosition, last));
  EXPECT_EQ(3, valueOr(command.result(), "level", 9, firstPosition, last - 1));
  EXPECT_EQ(9, valueOr(command.result(), "level", 9, last));
}

TEST(ValueOr, ReadsEveryTypeAnOptionCanHave) {
  Command command;
  command.option("bool", vtBool);
  command.option("s32", vtS32);
  command.option("u32", vtU32);
  command.option("s64", vtS64);
  command.option("u64", vtU64);
  command.option("double", vtDouble);
  command.option("string", vtString);
  ASSERT_EQ(0, command.parse({"--no-bool", "--s32=-2147483648", "--u32=4294967295",
                              "--s64=-9223372036854775808", "--u64=0xffffffffffffffff",
                              "--double=0.5", "--string=text"}));
  IParseResult& result = command.result();
  EXPECT_FALSE(valueOr(result, "bool", true));
  EXPECT_EQ(std::numeric_limits<int>::min(), valueOr(result, "s32", 0));
  EXPECT_EQ(4294967295U, valueOr(result, "u32", 0U));
  EXPECT_EQ(std::numeric_limits<long long>::min(), valueOr(result, "s64", 0LL));
  EXPECT_EQ(std::numeric_limits<std::int64_t>::min(),
            valueOr<std::int64_t>(result, "s64", std::int64_t{0}));
  EXPECT_EQ(0xffffffffffffffffULL, valueOr(result, "u64", 0ULL));
  EXPECT_DOUBLE_EQ(0.5, valueOr(result, "double", 0.0));
  EXPECT_STREQ("text", valueOr(result, "string", "none"));
  EXPECT_EQ("text", valueOr<std::string>(result, "string", "none"));
}

TEST(ValueOr, GivesTheTextOfAnOptionOfAnyType) {
  Command command;
  command.option("u64", vtU64);
  command.option("verbose", vtBool);
  ASSERT_EQ(0, command.parse({"--u64=0x1F", "--verbose"}));
  EXPECT_EQ("0x1F", valueOr<std::string>(command.result(), "u64", ""));
  EXPECT_EQ("1", valueOr<std::string>(command.result(), "verbose", ""));
}

TEST(ValueOr, TakesTheTypeOfItsFallback) {
  using Result = IParseResult&;
  EXPECT_TRUE((std::is_same_v<bool, decltype(valueOr(std::declval<Result>(), "", false))>));
  EXPECT_TRUE((std::is_same_v<const char*, decltype(valueOr(std::declval<Result>(), "", ""))>));
}

TEST(ValueOr, GivesANullFallbackBack) {
  Command command;
  EXPECT_EQ(nullptr, valueOr<const char*>(command.result(), "name", nullptr));
}

TEST(ValueOr, GivesATextThatLivesAsLongAsTheResult) {
  Command command;
  command.option("name", vtString);
  ASSERT_EQ(0, command.parse({"--name=Ada", "--name=Grace"}));
  const char* const last = valueOr(command.result(), "name", "");
  EXPECT_EQ("Ada Grace", joined(values(command.result(), "name")));
  EXPECT_STREQ("Grace", last);
}

}  // namespace
}  // namespace kivo_3_3
