// A value of a hundred million bytes, on every path that a value can take.

#include <gtest/gtest.h>

#include <string>

#include "size/measurement.h"
#include "support/command.h"
#include "support/temporary_folder.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

constexpr std::size_t hundredMillion = 100000000;

// Compares texts that are too long to be printed: a failure shows the length and the beginning.
::testing::AssertionResult are(const string& expected, const char* text) {
  if (text != nullptr && expected == text)
    return ::testing::AssertionSuccess();
  const string actual(text != nullptr ? text : "");
  return ::testing::AssertionFailure()
         << actual.size() << " bytes that begin with '" << actual.substr(0, 100) << "'";
}

class LargeValue : public ::testing::Test {
 protected:
  LargeValue() { command.option("text", vtString)->tokenize('\0'); }

  int parse(const string& argument) {
    const char* argv[] = {"tool", argument.c_str()};
    return command.parser().parseArgsVector(2, argv, &command.result());
  }
  const char* text() { return command.result().get("text", firstPosition, lastPosition).text; }

  // Checks that the text is refused as a number, by each kind of conversion.
  static void expectRefused(const string& text, const string& what) {
    const struct {
      variant_type_t type;
      const char* typeName;
    } cases[] = {{vtS32, "integer"}, {vtU64, "unsigned 64 bit or hex"}, {vtDouble, "double"}};
    const string argument = "--number=" + text;
    for (const auto& c : cases) {
      SCOPED_TRACE(c.typeName);
      Command numbers;
      numbers.option("number", c.type);
      const char* argv[] = {"tool", argument.c_str()};
      const Measurement measured(what + c.typeName);
      ASSERT_EQ(2, numbers.parser().parseArgsVector(2, argv, &numbers.result()));
      EXPECT_TRUE(are("Value validation problem in argument '" + argument +
                          "': Option 'number' can not parse '" + text +
                          "' value, requires a type '" + c.typeName + "' here.",
                      numbers.error()));
    }
  }

  Command command;
  const string value = string(hundredMillion - 1, 'x') + '!';
};

TEST_F(LargeValue, InItsOwnArgumentIsReadWhole) {
  const string argument = "--text=" + value;
  const Measurement measured("a value of 100 MB in one argument");
  ASSERT_EQ(0, parse(argument));
  EXPECT_TRUE(are(value, text()));
}

TEST_F(LargeValue, AfterItsOptionIsReadWhole) {
  const char* argv[] = {"tool", "--text", value.c_str()};
  const Measurement measured("a value of 100 MB after its option");
  ASSERT_EQ(0, command.parser().parseArgsVector(3, argv, &command.result()));
  EXPECT_TRUE(are(value, text()));
}

TEST_F(LargeValue, ThatIsSplitAndHasNoCommaIsReadWhole) {
  command.option("list", vtString);
  const string argument = "--list=" + value;
  const Measurement measured("a value of 100 MB that might be split");
  ASSERT_EQ(0, parse(argument));
  EXPECT_TRUE(are(value, command.result().get("list", firstPosition, lastPosition).text));
}

TEST_F(LargeValue, InAStreamIsReadWhole) {
  const string stream = "--text=" + value + "\n";
  const Measurement measured("a value of 100 MB in a stream");
  ASSERT_EQ(0, command.parseStream(stream.c_str()));
  EXPECT_TRUE(are(value, text()));
}

TEST_F(LargeValue, InAnOptionFileIsReadWhole) {
  command.optionFiles();
  const TemporaryFolder folder;
  const string file = "--option-file=" + folder.write("options", "--text=" + value);
  const Measurement measured("a value of 100 MB in an option file");
  ASSERT_EQ(0, parse(file));
  EXPECT_TRUE(are(value, text()));
}

TEST_F(LargeValue, LeftOverIsReadWhole) {
  const char* argv[] = {"tool", "--", value.c_str()};
  const Measurement measured("a leftover argument of 100 MB");
  ASSERT_EQ(0, command.parser().parseArgsVector(3, argv, &command.result()));
  const char* leftover = nullptr;
  ASSERT_EQ(0, command.result().getFirstArgument(&leftover));
  EXPECT_TRUE(are(value, leftover));
}

TEST_F(LargeValue, ThatIsNoNumberIsQuotedWhole) {
  expectRefused(value, "a value of 100 MB that is no number, type ");
}

TEST_F(LargeValue, OfDigitsIsOutOfRange) {
  expectRefused(string(hundredMillion, '7'), "a value of 100 million digits, type ");
}

TEST_F(LargeValue, InAnUnknownArgumentIsQuotedWhole) {
  Command strict(parserFlags::unknownArgumentIsError);
  const string argument = "--" + value;
  const char* argv[] = {"tool", argument.c_str()};
  const Measurement measured("an unknown argument of 100 MB");
  ASSERT_EQ(2, strict.parser().parseArgsVector(2, argv, &strict.result()));
  EXPECT_TRUE(are("Unknown option: " + argument, strict.error()));
}

// Each word fills a line of the help.
TEST(LargeHelp, WrapsADescriptionOfAHundredMillionBytes) {
  const string word(48, 'd');
  string description = word;
  string help = "-name" + string(25, ' ') + word;
  while (description.size() < hundredMillion) {
    description += ' ' + word;
    help += " \n" + string(30, ' ') + word;
  }
  Command command;
  const Measurement measured("a description of 100 MB, declared and wrapped");
  command.parser().option("name", description.c_str(), vtNull, "");
  EXPECT_TRUE(are(help + "\n", command.parser().getDescription(false)));
}

}  // namespace

}  // namespace kivo_3_3::testing
