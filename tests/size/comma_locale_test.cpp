// A global locale that writes 1234567.5 as 1.234.567,5. Values, defaults and allowed values are
// read and written in this locale; the trace is not.

#include <gtest/gtest.h>

#include <string>

#include "support/command.h"
#include "support/console_capture.h"
#include "support/global_locale.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

class CommaLocale : public ::testing::Test {
 protected:
  CommaLocale() {
    command.option("ratio", vtDouble)->tokenize('\0');
    command.option("number", vtS32);
    command.option("size", vtU64);
    command.option("file", vtString)->positional();
  }

  const GlobalLocale locale{localeWithDecimalComma()};
  Command command{parserFlags::leftoverArgumentsArePositional};
};

TEST_F(CommaLocale, ReadsNumbersAsTheLocaleWritesThem) {
  const struct {
    const char* argument;
    const char* option;
    double value;
  } cases[] = {
      {"--ratio=0,5", "ratio", 0.5},
      {"--ratio=1.234.567,5", "ratio", 1234567.5},
      {"--ratio=1234567,5", "ratio", 1234567.5},
      {"--number=-1.234.567", "number", -1234567},
      {"--number=1234567", "number", 1234567},
      {"--size=1.234", "size", 1234},
      {"--size=0x10", "size", 16},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.argument);
    ASSERT_EQ(0, command.parse({c.argument}));
    const Value value = command.result().get(c.option, firstPosition, lastPosition);
    EXPECT_EQ(c.value, value.value.get<double>());
    EXPECT_EQ(string(c.argument), "--" + string(c.option) + "=" + value.text);
  }
}

TEST_F(CommaLocale, RefusesNumbersOfAnotherLocaleAndQuotesThemAsTyped) {
  EXPECT_EQ(
      "2: Value validation problem in argument '--ratio=1234.5': Option 'ratio' can not parse "
      "'1234.5' value, requires a type 'double' here.",
      command.parsed({"--ratio=1234.5"}));
  EXPECT_EQ(
      "2: Value validation problem in argument '--number=12.34': Option 'number' can not "
      "parse '12.34' value, requires a type 'integer' here.",
      command.parsed({"--number=12.34"}));
}

TEST_F(CommaLocale, SplitsAValueAtCommasBeforeItReadsNumbers) {
  command.option("list", vtDouble);
  EXPECT_EQ("list=0,5@+1", command.parsed({"--list=0,5"}));
  EXPECT_EQ(2u, values(command.result(), "list").size());
}

TEST_F(CommaLocale, ShowsDefaultsAndAllowedValuesInHelpAndMessages) {
  Command other;
  IParser& parser = other.parser();
  parser.option("number", "One.", vtS32, "")->defaultValue(1234567);
  parser.option("ratio", "Two.", vtDouble, "")->defaultValue(1234.5);
  parser.option("size", "Three.", vtS32, "")->allowValue(1000)->allowValue(20000);
  EXPECT_STREQ(
      "-number=<integer> (1.234.567) One.\n"
      "-ratio=<double> (1.234,5)     Two.\n"
      "-size=1.000 | 20.000          Three.\n",
      parser.getDescription(false));
  EXPECT_EQ(
      "2: Value validation problem in argument '--size=1001': Option 'size' does not allow "
      "value '1001'. Possible values follows: '1.000', '20.000'",
      other.parsed({"--size=1001"}));
  EXPECT_EQ(0, other.parse({"--size=1.000,20000"}));
}

// std::cout does not use the global locale by itself: the second parse imbues it.
TEST_F(CommaLocale, LeavesTheTraceAlone) {
  const std::vector<string> traced = {"kivooption=kivologenable=1", "--number=1234567", "--", "x"};
  const ConsoleCapture console;
  ASSERT_EQ(0, command.parse(traced));
  const string plain = console.out();
  const std::locale previous = std::cout.imbue(std::locale());
  EXPECT_EQ(0, command.parse(traced));
  std::cout.imbue(previous);
  EXPECT_EQ(plain + plain, console.out());
  EXPECT_NE(string::npos, plain.find("value: '1234567'\n"));
}

}  // namespace

}  // namespace kivo_3_3::testing
