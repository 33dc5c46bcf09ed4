// What all recognizers share: binding one value text to an option, and the counter that
// positions are drawn from.

#include "recognizers/argument_parser.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "options/make_option.h"
#include "support/arguments.h"
#include "support/command.h"
#include "support/console_capture.h"
#include "support/recording_handler.h"
#include "support/stored.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using testing::ConsoleCapture;
using testing::givenTo;
using testing::leftOf;
using testing::makeOption;
using testing::RecordingHandler;
using testing::WindowOn;

// A recognizer that only binds.
class Binder final : public IArgumentParser {
 public:
  using IArgumentParser::IArgumentParser;
  using IArgumentParser::parseValueAndAddOption;

  int recognize(ArgumentWindow&, OptionList&, string&) override { return 1; }
  int parse(ArgumentWindow&, IResultCollector*, OptionList&, unsigned int&, string&) override {
    return 1;
  }
  int getPriority() override { return 0; }
};

// Renders what is stored. Positions are relative to the last one drawn before this object was made.
class Collector final : public IResultCollector {
 public:
  void store(const OptionDescription& option, const OptionData& data) override {
    text += option.firstName();
    for (const int position : data.positions)
      text += at(position);
    for (const GivenValue& value : data.values)
      text += " " + textOf(value) + at(value.position);
  }

  string text;
  const int before = IArgumentParser::m_idx - 1;

 private:
  static string textOf(const GivenValue& given) {
    return given.value.can_get<const char*>() ? given.value.get<const char*>() : given.text;
  }
  string at(int position) const { return "@+" + std::to_string(position - before); }
};

class ValueBinding : public ::testing::Test {
 protected:
  // Binds the value of "--level=" and renders what was stored, or status and message.
  string bind(const string& value) {
    Collector collector;
    const string argument = "--level=" + value;
    const WindowOn args({argument, "next"});
    string message = "untouched";
    const int status = binder.parseValueAndAddOption(value, message, option, args, &collector);
    drawn = IArgumentParser::m_idx - 1 - collector.before;
    EXPECT_EQ(2u, leftOf(args).size());
    if (status == 0)
      return collector.text;
    EXPECT_EQ("", collector.text);
    return std::to_string(status) + ": " + message;
  }

  Garbage garbage;
  RecordingHandler handler;
  Binder binder{&handler, &garbage.memory(), 0};
  OptionDescription option = makeOption({"level", "l"}, vtString, &garbage);
  int drawn = 0;
};

TEST_F(ValueBinding, EmptyValueStoresTheOptionWithoutValues) {
  option.m_type = vtS32;  // an empty text would not convert
  EXPECT_EQ("level@+1", bind(""));
  EXPECT_EQ("", handler.events);
  EXPECT_EQ(1, drawn);
}

TEST_F(ValueBinding, SeparatorsAloneAreNoValue) {
  EXPECT_EQ("2: No value parsed in argument ',,,' for option 'level'", bind(",,,"));
  EXPECT_EQ("", handler.events);
  EXPECT_EQ(1, drawn);
}

TEST_F(ValueBinding, EmptyTokensAreDropped) {
  const struct {
    const char* value;
    const char* stored;
  } cases[] = {
      {"a", "level@+1 a@+2"},
      {"a,b", "level@+1 a@+2 b@+3"},
      {"a,,b", "level@+1 a@+2 b@+3"},
      {",a", "level@+1 a@+2"},
      {"a,", "level@+1 a@+2"},
      {",,a,,,b,,", "level@+1 a@+2 b@+3"},
      {" a, b ", "level@+1  a@+2  b @+3"},  // white space belongs to its token
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.value);
    EXPECT_EQ(c.stored, bind(c.value));
  }
}

TEST_F(ValueBinding, ValuesHaveThePositionsAfterTheirOption) {
  EXPECT_EQ("level@+1 c@+2 a@+3 b@+4", bind("c,a,b"));
  EXPECT_EQ(4, drawn);
}

TEST_F(ValueBinding, OptionSplitsOnItsOwnCharacterOnly) {
  option.tokenize(';');
  EXPECT_EQ("level@+1 a,b@+2 c@+3", bind("a,b;c"));
  EXPECT_EQ("2: No value parsed in argument ';' for option 'level'", bind(";"));
}

TEST_F(ValueBinding, UntokenizedValueIsPassedWhole) {
  option.tokenize('\0');
  EXPECT_EQ("level@+1 a,,b;c@+2", bind("a,,b;c"));
  EXPECT_EQ("value level=a,,b;c", handler.events);
  EXPECT_EQ(2, drawn);
}

TEST_F(ValueBinding, UntokenizedSeparatorsAreAValue) {
  option.tokenize('\0');
  EXPECT_EQ("level@+1 ,,,@+2", bind(",,,"));
}

TEST_F(ValueBinding, InvalidTokenKeepsEverythingFromBeingStored) {
  option.m_type = vtS32;
  EXPECT_EQ(
      "2: Value validation problem in argument '--level=1,x,3': Option 'level' can not parse 'x' "
      "value, requires a type 'integer' here.",
      bind("1,x,3"));
  EXPECT_EQ("value level=1", handler.events);  // announced before the invalid token
  EXPECT_EQ(2, drawn);                         // the option and its first value
}

TEST_F(ValueBinding, InvalidUntokenizedValueIsReportedTheSameWay) {
  option.m_type = vtS32;
  option.tokenize('\0');
  EXPECT_EQ(
      "2: Value validation problem in argument '--level=1,2': Option 'level' can not parse '1,2' "
      "value, requires a type 'integer' here.",
      bind("1,2"));
  EXPECT_EQ("", handler.events);
  EXPECT_EQ(1, drawn);
}

TEST_F(ValueBinding, ValueThatIsNotAllowedIsReportedWithTheList) {
  option.allowValue("fast")->allowValue("slow");
  EXPECT_EQ(
      "2: Value validation problem in argument '--level=medium': Option 'level' does not allow "
      "value 'medium'. Possible values follows: 'fast', 'slow'",
      bind("medium"));
}

TEST_F(ValueBinding, RefusedTokenIsReportedWithTheWholeValue) {
  handler.refusedValues = {"b"};
  EXPECT_EQ("1: Value 'a,b,c' is not valid for option 'level' in argument '--level=a,b,c'",
            bind("a,b,c"));
  EXPECT_EQ("value level=a; value level=b", handler.events);
  EXPECT_EQ(3, drawn);  // the option, the accepted value, the refused value
}

TEST_F(ValueBinding, RefusedUntokenizedValueIsReported) {
  option.tokenize('\0');
  handler.refusedValues = {"a,b"};
  EXPECT_EQ("1: Value 'a,b' is not valid for option 'level' in argument '--level=a,b'",
            bind("a,b"));
  EXPECT_EQ(2, drawn);
}

TEST_F(ValueBinding, CompletedValuesAreAnnouncedAndStored) {
  option.allowValue("fast")->allowValue("slow");
  EXPECT_EQ("level@+1 slow@+2 fast@+3", bind("sl,f"));
  EXPECT_EQ("value level=slow; value level=fast", handler.events);
  handler.events.clear();
  option.tokenize('\0');
  EXPECT_EQ("level@+1 slow@+2", bind("sl"));
  EXPECT_EQ("value level=slow", handler.events);
}

// The validator completes the text that it is given: without a tokenizer the whole value, which the
// message quotes, and with one only a token.
TEST_F(ValueBinding, RefusalQuotesTheTypedTextOnlyIfTheValueIsSplit) {
  option.allowValue("fast")->allowValue("slow");
  handler.refusedValues = {"slow"};
  EXPECT_EQ("1: Value 'f,sl' is not valid for option 'level' in argument '--level=f,sl'",
            bind("f,sl"));
  option.tokenize('\0');
  EXPECT_EQ("1: Value 'slow' is not valid for option 'level' in argument '--level=sl'", bind("sl"));
}

TEST_F(ValueBinding, TypedValueIsStored) {
  struct Typed final : IResultCollector {
    void store(const OptionDescription&, const OptionData& data) override {
      for (const GivenValue& value : data.values)
        values.push_back(value.value);
    }
    std::vector<variant_t> values;
  } typed;
  option.m_type = vtU64;
  string error;
  const WindowOn args({"--level=10,0x10"});
  EXPECT_EQ(0, binder.parseValueAndAddOption("10,0x10", error, option, args, &typed));
  EXPECT_EQ((std::vector<variant_t>{u64_t{10}, u64_t{16}}), typed.values);
  EXPECT_EQ(vtU64, typed.values.back().type());
}

class ValueKeeper final : public testing::TestHandler {
 public:
  bool onValueParse(const char* name, const Value& given) override {
    EXPECT_STREQ("level", name);
    EXPECT_STREQ("07", given.text);
    value = given;
    return true;
  }
  Value value;
};

TEST_F(ValueBinding, HandlerReceivesTheFirstNameAndTheWholeValue) {
  ValueKeeper keeper;
  Binder announcing(&keeper, &garbage.memory(), 0);
  option.m_type = vtS32;
  string error;
  const WindowOn args({"--level=07"});
  const int before = IArgumentParser::m_idx - 1;
  EXPECT_EQ(0, announcing.parseValueAndAddOption("07", error, option, args, nullptr));
  EXPECT_EQ(0, keeper.value.isEmpty);
  EXPECT_EQ(before + 2, keeper.value.position);
  EXPECT_EQ(variant_t(7), keeper.value.value);
}

TEST_F(ValueBinding, WithoutACollectorEverythingButTheStoringIsDone) {
  string error;
  const WindowOn args({"--level=a,b"});
  EXPECT_EQ(0, binder.parseValueAndAddOption("a,b", error, option, args, nullptr));
  EXPECT_EQ("value level=a; value level=b", handler.events);
}

TEST_F(ValueBinding, TokenMessageQuotesTheToken) {
  EXPECT_EQ(" in argument: '--level'", binder.formatTokenMessage("--level"));
}

class ValueBindingTrace : public ValueBinding {
 protected:
  ~ValueBindingTrace() override { internal::kivoLogEnabled = false; }

  string traceOf(const string& value) {
    const ConsoleCapture console;
    internal::kivoLogEnabled = true;
    bind(value);
    internal::kivoLogEnabled = false;
    return console.out();
  }
};

TEST_F(ValueBindingTrace, TokenizedValue) {
  EXPECT_EQ(
      "UndefinedParser: adding values to result container:\n"
      "UndefinedParser: using tokenizer on char: ','\n"
      "UndefinedParser: value is: 'a'\n"
      "UndefinedParser: sent event on value parsed, option: 'level', value: 'a'\n"
      "UndefinedParser: value is: 'b'\n"
      "UndefinedParser: sent event on value parsed, option: 'level', value: 'b'\n"
      "UndefinedParser: stored option to result container.\n",
      traceOf("a,,b"));
}

TEST_F(ValueBindingTrace, UntokenizedValue) {
  option.tokenize('\0');
  EXPECT_EQ(
      "UndefinedParser: adding values to result container:\n"
      "UndefinedParser: not using tokenizer\n"
      "UndefinedParser: stored option to result container.\n",
      traceOf("a,b"));
}

TEST_F(ValueBindingTrace, EmptyValue) {
  EXPECT_EQ("UndefinedParser: stored option to result container.\n", traceOf(""));
}

TEST_F(ValueBindingTrace, NoToken) {
  EXPECT_EQ(
      "UndefinedParser: adding values to result container:\n"
      "UndefinedParser: using tokenizer on char: ','\n"
      "UndefinedParser: No value parsed in argument ',' for option 'level'\n",
      traceOf(","));
}

TEST_F(ValueBindingTrace, InvalidValue) {
  option.m_type = vtS32;
  option.tokenize('\0');
  EXPECT_EQ(
      "UndefinedParser: adding values to result container:\n"
      "UndefinedParser: not using tokenizer\n"
      "UndefinedParser: Value validation problem in argument '--level=x': Option 'level' can not "
      "parse 'x' value, requires a type 'integer' here.\n",
      traceOf("x"));
}

TEST_F(ValueBindingTrace, CompletedTokenIsTracedAsTypedAndThenAsSent) {
  option.allowValue("fast")->allowValue("slow");
  EXPECT_EQ(
      "UndefinedParser: adding values to result container:\n"
      "UndefinedParser: using tokenizer on char: ','\n"
      "UndefinedParser: value is: 'sl'\n"
      "UndefinedParser: sent event on value parsed, option: 'level', value: 'slow'\n"
      "UndefinedParser: stored option to result container.\n",
      traceOf("sl"));
}

TEST_F(ValueBindingTrace, RefusalFollowsTheNameWithoutASeparator) {
  handler.refusedValues = {"a"};
  const string refusal =
      "UndefinedParserValue 'a' is not valid for option 'level' in argument '--level=a' One of "
      "the handler signaled the value is not valid.\n";
  EXPECT_EQ(
      "UndefinedParser: adding values to result container:\n"
      "UndefinedParser: using tokenizer on char: ','\n"
      "UndefinedParser: value is: 'a'\n" +
          refusal,
      traceOf("a"));
  option.tokenize('\0');
  EXPECT_EQ(
      "UndefinedParser: adding values to result container:\n"
      "UndefinedParser: not using tokenizer\n" +
          refusal,
      traceOf("a"));
}

// The statement runs in a new process, which has not drawn a position yet.
TEST(PositionCounterDeathTest, FirstPositionOfAProcessIsOneAndTheNextTwo) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  const auto leaveWithFirstTwo = [] {
    const int first = IArgumentParser::getNewPositionIndex();
    const int second = IArgumentParser::getNewPositionIndex();
    std::exit(10 * first + second);
  };
  EXPECT_EXIT(leaveWithFirstTwo(), ::testing::ExitedWithCode(12), "");
}

TEST(PositionCounterDeathTest, FirstOptionOfAProcessHasPositionOne) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  const auto leaveWithPositions = [] {
    Command command;
    command.option("level", vtS32);
    command.parse({"--level=3", "--", "rest"});
    const int option = givenTo(command.result(), "level").positions[0];
    const int value = givenTo(command.result(), "level").values[0].position;
    std::exit(100 * option + 10 * value + command.result().arguments().at(0).position);
  };
  EXPECT_EXIT(leaveWithPositions(), ::testing::ExitedWithCode(123), "");
}

TEST(PositionCounter, HandsOutItsValueAndThenAdvances) {
  const int next = IArgumentParser::m_idx;
  EXPECT_EQ(next, IArgumentParser::getNewPositionIndex());
  EXPECT_EQ(next + 1, IArgumentParser::m_idx);
  EXPECT_EQ(next + 1, IArgumentParser::getNewPositionIndex());
}

TEST(PositionCounter, GoesOnFromParseToParseAndFromParserToParser) {
  Command first;
  Command second;
  first.option("level", vtS32);
  second.option("depth", vtS32);
  first.parse({"--level=1"});
  const int before = givenTo(first.result(), "level").values[0].position;
  second.parse({"--depth=1"});
  const int between = givenTo(second.result(), "depth").positions[0];
  EXPECT_EQ(before + 1, between);
  first.parse({"--level=1"});
  EXPECT_EQ(between + 2, givenTo(first.result(), "level").positions[0]);
}

TEST(PositionCounter, FullRangeCoversWhateverPositionAProcessHandsOut) {
  ParseResult result;
  OptionData data;
  data.positions = {1};
  result.store(makeOption({"early", "e"}, vtNull), data);
  data.positions = {lastPosition - 1};
  result.store(makeOption({"late", "l"}, vtNull), data);
  EXPECT_EQ(1, result.get("early", 0, 2147483647).position);
  EXPECT_EQ(2147483646, result.get("late", 0, 2147483647).position);
}

}  // namespace

}  // namespace kivo_3_3
