// Nothing at all: no options, no arguments, no names, empty texts.

#include <gtest/gtest.h>

#include <string>

#include "support/command.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

TEST(NothingGiven, ToAParserWithoutOptionsIsAllRight) {
  Command command(parserFlags::unknownArgumentIsError);
  EXPECT_EQ("", command.parsed({}));
  EXPECT_EQ(0, command.parseStream(""));
  EXPECT_EQ(0, command.parseStream(nullptr));
  EXPECT_STREQ("", command.error());
  EXPECT_EQ("| @+1", command.parsed({"--", ""}));
  EXPECT_EQ("2: Unknown option: ", command.parsed({""}));
  EXPECT_EQ("2: Unknown option: -", command.parsed({"-"}));
}

TEST(NothingGiven, AsArgvIsAllRight) {
  Command command(parserFlags::unknownArgumentIsError);
  const char* const none[] = {nullptr};
  IParser& parser = command.parser();
  for (const int argc : {0, 1, 5, -5}) {
    SCOPED_TRACE(argc);
    EXPECT_EQ(0, parser.parseArgsVector(argc, nullptr, &command.result()));
    EXPECT_EQ(0, parser.parseArgsVector(argc, nullptr, nullptr));
  }
  EXPECT_EQ(0, parser.parseArgsVector(0, none, &command.result()));
}

TEST(NothingGiven, HasEmptyHelp) {
  Command command;
  IParser& parser = command.parser();
  for (const bool hidden : {false, true}) {
    EXPECT_STREQ("", parser.getDescription(hidden));
    EXPECT_STREQ("", parser.getGlobalModifiersDescription(hidden));
    EXPECT_STREQ("Help for  not available.Please use one of the following topics:\n",
                 parser.getDescription("", hidden));
    EXPECT_STREQ("Help for  not available.Please use one of the following topics:\n",
                 parser.getActionModifiersDescription(nullptr, hidden));
  }
}

TEST(NothingGiven, LeavesNothingToRead) {
  Command command;
  ASSERT_EQ(0, command.parse({}));
  IParseResult& result = command.result();
  const char* text = "untouched";
  for (const char* name : {"", "level", static_cast<const char*>(nullptr)}) {
    EXPECT_FALSE(result.present(name));
    EXPECT_EQ(1, result.get(name).isEmpty);
    EXPECT_EQ(1, result.next(name).isEmpty);
    EXPECT_EQ(lastPosition, result.nextPosition());
  }
  EXPECT_NE(0, result.getFirstArgument(&text));
  EXPECT_NE(0, result.getNextArgument(&text));
  EXPECT_STREQ("untouched", text);
}

// "," lists one name, the empty one; "" lists none.
TEST(NothingGiven, AsANameNamesNothing) {
  for (const char* names : {",", "", static_cast<const char*>(nullptr)}) {
    SCOPED_TRACE(names != nullptr ? names : "null");
    Command command(parserFlags::unknownArgumentIsError);
    command.parser().option(names, "", vtString, "")->synonym(nullptr)->tag(nullptr)->tag("");
    EXPECT_EQ("", command.parsed({}));
    EXPECT_EQ("2: Unknown option: --x", command.parsed({"--x"}));
    EXPECT_EQ("2: Unknown option: -", command.parsed({"-"}));
  }
}

TEST(NothingGiven, AsThePositionalNameFailsWhenAnArgumentNeedsIt) {
  Command command;
  command.parser().option("", "", vtString, nullptr)->positional();
  EXPECT_EQ("", command.parsed({}));
  EXPECT_EQ("4: Unidentified problem detected.", command.parsed({"x"}));
  EXPECT_EQ("", command.parsed({}));
}

TEST(NothingGiven, AsAValueIsNoValue) {
  Command command;
  command.option("text", vtString);
  command.option("flag", vtBool);
  command.option("file", vtString)->positional();
  EXPECT_EQ("2: Option 'text' requires a value in argument: '--text='",
            command.parsed({"--text="}));
  EXPECT_EQ("2: Option 'text' requires a value in argument: '--text'",
            command.parsed({"--text", ""}));
  EXPECT_EQ("flag=1@+1", command.parsed({"--flag="}));
  EXPECT_EQ("file@+1", command.parsed({""}));
}

TEST(NothingGiven, AsAnOptionFileIsUnreadable) {
  Command command;
  command.optionFiles();
  EXPECT_EQ("2: Option 'option-file' requires a value in argument: '--option-file='",
            command.parsed({"--option-file="}));
  EXPECT_EQ(0, command.parse({"--option-file=/dev/null"}));
}

}  // namespace

}  // namespace kivo_3_3::testing
