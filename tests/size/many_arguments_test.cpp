// Many of everything: arguments, lines, options, values in one argument. All of it is
// read back and compared.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "size/allocation_count.h"
#include "size/measurement.h"
#include "support/command.h"
#include "support/temporary_folder.h"

namespace kivo_3_3::testing {

namespace {

using std::string;
using Arguments = std::vector<string>;

constexpr int million = 1000000;
constexpr int manyOptions = 10000;
constexpr int manyTokens = 100000;

string numbered(const char* what, int number) { return what + std::to_string(number); }

Arguments numberedArguments(const char* what, int count) {
  Arguments arguments;
  for (int i = 0; i < count; ++i)
    arguments.push_back(numbered(what, i));
  return arguments;
}

string asLines(const Arguments& arguments) {
  string text;
  for (const string& argument : arguments)
    text += argument + '\n';
  return text;
}

string joined(const Arguments& words, char separator) {
  string text;
  for (const string& word : words)
    text += (text.empty() ? "" : string(1, separator)) + word;
  return text;
}

// The first difference, or an empty text if there is none: a list of a million differences is no
// help.
template <class Texts, class TextOf>
string difference(const Texts& texts, const char* what, int count, TextOf textOf) {
  if (texts.size() != static_cast<std::size_t>(count))
    return std::to_string(texts.size()) + " texts";
  for (int i = 0; i < count; ++i) {
    const string text = textOf(texts[static_cast<std::size_t>(i)]);
    if (text != numbered(what, i))
      return "'" + text + "' as text number " + std::to_string(i);
  }
  return "";
}

string differenceOfValues(Command& command, const char* option, const char* what, int count) {
  return difference(values(command.result(), option), what, count,
                    [](const Value& value) { return value.text; });
}

string differenceOfLeftovers(Command& command, const char* what, int count) {
  return difference(leftovers(command.result()), what, count,
                    [](const char* text) { return text; });
}

// A parser with a named option, a positional option, and option files.
class ManyArguments : public ::testing::Test {
 protected:
  ManyArguments() {
    command.option("text,t", vtString);
    command.option("file", vtString)->positional();
    command.optionFiles();
  }

  Command command{parserFlags::unknownArgumentIsError};
};

TEST_F(ManyArguments, NamedOnTheCommandLineAreAllThere) {
  const Arguments arguments = numberedArguments("--text=", million);
  {
    const Measurement measured("a million named arguments, parsed");
    ASSERT_EQ(0, command.parse(arguments));
  }
  const Measurement measured("a million values, read");
  EXPECT_EQ("", differenceOfValues(command, "t", "", million));
}

TEST_F(ManyArguments, WithoutAResultAreNotStored) {
  const Arguments arguments = numberedArguments("--text=", million);
  std::vector<const char*> argv = {"tool"};
  for (const string& argument : arguments)
    argv.push_back(argument.c_str());
  const int argc = static_cast<int>(argv.size());
  startCounting();
  EXPECT_EQ(0, command.parser().parseArgsVector(argc, argv.data(), nullptr));
  EXPECT_GT(1'000, countedSoFar().peakBytes);
}

TEST_F(ManyArguments, NamedWithValuesInTheNextArgumentAreAllThere) {
  Arguments arguments;
  for (int i = 0; i < million / 2; ++i)
    arguments.insert(arguments.end(), {"-t", numbered("value", i)});
  const Measurement measured("half a million named arguments, each value an argument");
  ASSERT_EQ(0, command.parse(arguments));
  EXPECT_EQ("", differenceOfValues(command, "text", "value", million / 2));
}

TEST_F(ManyArguments, PositionalOnesAreAllThere) {
  const Arguments arguments = numberedArguments("file", million);
  const Measurement measured("a million positional arguments");
  ASSERT_EQ(0, command.parse(arguments));
  EXPECT_EQ("", differenceOfValues(command, "file", "file", million));
}

TEST_F(ManyArguments, LeftOverAreAllThere) {
  Arguments arguments = numberedArguments("--left", million);
  arguments.insert(arguments.begin(), "--");
  const Measurement measured("a million leftover arguments");
  ASSERT_EQ(0, command.parse(arguments));
  EXPECT_EQ("", differenceOfLeftovers(command, "--left", million));
}

TEST_F(ManyArguments, UnknownOnesArePassedOver) {
  Command tolerant;
  tolerant.option("text", vtString);
  Arguments arguments = numberedArguments("--none", million);
  arguments.push_back("--text=last");
  const Measurement measured("a million unknown arguments");
  EXPECT_EQ("text=last@+1", tolerant.parsed(arguments));
}

TEST_F(ManyArguments, InAStreamAreAllThere) {
  const string text = asLines(numberedArguments("--text=", million)) + "--\n" +
                      asLines(numberedArguments("left", million));
  const Measurement measured("two million lines of a stream, values and leftovers");
  ASSERT_EQ(0, command.parseStream(text.c_str()));
  EXPECT_EQ("", differenceOfValues(command, "text", "", million));
  EXPECT_EQ("", differenceOfLeftovers(command, "left", million));
}

TEST_F(ManyArguments, InAnOptionFileAreAllThere) {
  const TemporaryFolder folder;
  const string file = folder.write("options", asLines(numberedArguments("-t=", million)));
  const Measurement measured("a million lines of an option file");
  ASSERT_EQ(0, command.parse({"--option-file=" + file}));
  EXPECT_EQ("", differenceOfValues(command, "text", "", million));
}

TEST_F(ManyArguments, BeforeABadOneAreStoredAndTheBadOneIsReported) {
  Arguments arguments = numberedArguments("--text=", million);
  arguments.push_back("--text");
  EXPECT_EQ(2, command.parse(arguments));
  EXPECT_STREQ("Option 'text' requires a value in argument: '--text'", command.error());
  EXPECT_EQ("", differenceOfValues(command, "text", "", million));
}

TEST_F(ManyArguments, CanBeReadOccurrenceByOccurrence) {
  ASSERT_EQ(0, command.parse(numberedArguments("--text=", million)));
  const Measurement measured("a million occurrences, each asked for its value");
  std::vector<int> places;
  ASSERT_TRUE(command.result().present("text", firstPosition, lastPosition));
  for (int at = command.result().nextPosition(); at != lastPosition;
       at = command.result().nextPosition())
    places.push_back(at);
  std::vector<Value> first;
  for (const int place : places)
    first.push_back(command.result().get("text", place, lastPosition));
  EXPECT_EQ("", difference(first, "", million, [](const Value& value) { return value.text; }));
}

TEST(ManyOptions, AreAllFoundAndAllHaveTheirHelp) {
  Command command(parserFlags::unknownArgumentIsError);
  string help = "\n";
  Arguments arguments;
  {
    const Measurement measured("ten thousand options, declared");
    for (int i = 0; i < manyOptions; ++i)
      command.parser().option(numbered("option", 100000 + i).c_str(), "What it does.", vtS32, "");
  }
  for (int i = 0; i < manyOptions; ++i) {
    arguments.push_back("--" + numbered("option", 100000 + i) + "=" + std::to_string(i));
    help += "-option" + std::to_string(100000 + i) + "=<integer>       What it does.\n";
  }
  {
    const Measurement measured("ten thousand options, each given once");
    ASSERT_EQ(0, command.parse(arguments));
  }
  for (int i = 0; i < manyOptions; ++i)
    ASSERT_EQ(i, valueOr(command.result(), numbered("option", 100000 + i).c_str(), -1));
  const Measurement measured("ten thousand options, the help for all");
  EXPECT_TRUE(help.substr(1) == command.parser().getDescription(false))
      << string(command.parser().getDescription(false)).substr(0, 200);
}

TEST(ManyOptions, AreAllNamedAsCandidates) {
  Command command;
  string candidates;
  for (int i = 0; i < manyOptions; ++i) {
    command.parser().option(numbered("option", i).c_str(), "", vtNull, nullptr);
    candidates += (i == 0 ? "'" : ", '") + numbered("option", i) + "'";
  }
  EXPECT_EQ(2, command.parse({"--opt"}));
  EXPECT_EQ("Ambiguous option 'opt' in argument: '--opt', could be: " + candidates,
            command.error());
}

TEST(ManyOptions, HaveTheirDefaultsUnlessGiven) {
  Command command;
  for (int i = 0; i < manyOptions; ++i)
    command.parser().option(numbered("option", i).c_str(), "", vtS32, nullptr)->defaultValue(i);
  ASSERT_EQ(0, command.parse({"--option9999=1"}));
  for (int i = 0; i < manyOptions - 1; ++i)
    ASSERT_EQ(i, valueOr(command.result(), numbered("option", i).c_str(), -1));
  EXPECT_EQ(1, valueOr(command.result(), "option9999", -1));
}

class ManyActions : public ::testing::Test {
 protected:
  ManyActions() {
    std::set<string> together;
    for (int i = 0; i < manyOptions; ++i) {
      command.action(numbered("action", i).c_str());
      arguments.push_back("--" + numbered("action", i));
      together.insert(numbered("action", i));
    }
    command.parser().allowSimultaneousActions(together);
  }

  Command command;
  Arguments arguments;
};

TEST_F(ManyActions, AllowedTogetherMayBeGivenTogether) {
  const Measurement measured("ten thousand actions, all given together");
  ASSERT_EQ(0, command.parse(arguments));
  for (int i = 0; i < manyOptions; ++i)
    ASSERT_TRUE(command.result().present(numbered("action", i).c_str(), 0, lastPosition));
}

TEST_F(ManyActions, OfWhichOneIsNotAllowedAreAnErrorThatNamesIt) {
  command.action("zap");
  arguments.push_back("--zap");
  EXPECT_EQ(2, command.parse(arguments));
  EXPECT_STREQ("Action '-zap' and action '-action0' were defined, but only one action possible.",
               command.error());
}

TEST(ManyTokens, OfOneArgumentAreAllThere) {
  Command command;
  command.option("text,t", vtString);
  const string argument = "--text=" + joined(numberedArguments("token", manyTokens), ',');
  const Measurement measured("a hundred thousand values in one argument, texts");
  ASSERT_EQ(0, command.parse({argument}));
  EXPECT_EQ("", differenceOfValues(command, "t", "token", manyTokens));
}

TEST(ManyTokens, OfIntegersAreAllThereAndABadOneAtTheEndIsReported) {
  Command command;
  command.option("number", vtS32);
  const string good = "--number=" + joined(numberedArguments("", manyTokens), ',');
  {
    const Measurement measured("a hundred thousand values in one argument, integers");
    ASSERT_EQ(0, command.parse({good}));
  }
  const std::vector<Value> read = values(command.result(), "number");
  ASSERT_EQ(static_cast<std::size_t>(manyTokens), read.size());
  for (int i = 0; i < manyTokens; ++i)
    ASSERT_EQ(i, read[static_cast<std::size_t>(i)].value.get<int>());

  ASSERT_EQ(2, command.parse({good + ",12x"}));
  EXPECT_EQ("Value validation problem in argument '" + good +
                ",12x': Option 'number' can not parse '12x' value, requires a type 'integer' here.",
            command.error());
  EXPECT_FALSE(command.result().present("number", firstPosition, lastPosition));
}

TEST(ManyTokens, AreCheckedAgainstTheAllowedValues) {
  Command command;
  IOption* const option = command.option("letter", vtString);
  for (char letter = 'a'; letter <= 'z'; ++letter)
    option->allowValue(string(1, letter).c_str());
  string argument = "--letter=a";
  for (int i = 1; i < manyTokens; ++i)
    argument += {',', static_cast<char>('a' + i % 26)};
  const Measurement measured("a hundred thousand values in one argument, of 26 allowed");
  ASSERT_EQ(0, command.parse({argument}));
  EXPECT_EQ(static_cast<std::size_t>(manyTokens), values(command.result(), "letter").size());
}

TEST(ManyTokens, ThatAreSeparatorsAloneAreNoValue) {
  Command command;
  command.option("text", vtString);
  const string commas(million, ',');
  EXPECT_EQ(2, command.parse({"--text=" + commas}));
  EXPECT_EQ("No value parsed in argument '" + commas + "' for option 'text'", command.error());
}

}  // namespace

}  // namespace kivo_3_3::testing
