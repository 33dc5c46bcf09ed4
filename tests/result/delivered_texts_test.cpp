// What a result hands out: equal texts of one result have one address, and the typed form of a
// text has one block of characters, which all copies share.

#include <gtest/gtest.h>
#include <kivo/kivo.h>

#include <string>
#include <vector>

#include "allocation/allocation_limit.h"
#include "support/command.h"
#include "support/recording_handler.h"

namespace kivo_3_3 {

namespace {

using testing::AllocationLimit;
using testing::Command;
using testing::Failing;
using testing::TestHandler;

IParseResult& resultOf(Command& command) { return command.result(); }

class Delivered : public ::testing::Test {
 protected:
  Delivered() {
    command.option("name,n", vtString);
    command.option("level", vtS32);
  }

  IParseResult& result() { return command.result(); }

  const char* leftover() {
    const char* text = nullptr;
    EXPECT_EQ(0, result().getFirstArgument(&text));
    return text;
  }

  static const char* characters(const Value& value) { return value.value.get<const char*>(); }

  Command command;
};

TEST_F(Delivered, EqualTextsHaveOneAddress) {
  command.option("word", vtString)->defaultValue("xyz");
  command.parse({"--name=xyz", "--name=xyz", "--", "xyz"});
  const char* const text = result().get("name").text;
  EXPECT_STREQ("xyz", text);
  EXPECT_EQ(text, result().next("name").text);
  EXPECT_EQ(text, leftover());
  EXPECT_EQ(text, result().get("word").text);
}

TEST_F(Delivered, ATextReadAgainHasTheAddressItHad) {
  command.option("word", vtString)->defaultValue("xyz");
  command.parse({"--name=abc", "--level=5", "--", "5", "abc", "xyz"});
  const char* const name = result().get("name").text;
  const char* const level = result().get("level").text;
  const char* const word = result().get("word").text;
  EXPECT_EQ(name, result().get("n").text);
  EXPECT_EQ(name, getLastValue(&result(), "name").text);
  EXPECT_EQ(word, result().get("word").text);
  EXPECT_EQ((std::vector<const char*>{level, name, word}), leftovers(result()));
}

TEST_F(Delivered, EmptyTextsHaveOneAddressToo) {
  command.parse({"--", "", "a", ""});
  const std::vector<const char*> texts = leftovers(result());
  EXPECT_EQ(texts[0], texts[2]);
  EXPECT_STREQ("", texts[0]);
}

TEST_F(Delivered, ADefaultSharesTheAddressWithALaterValueOfAnotherParse) {
  command.parser().option("size", "", vtS32, nullptr)->defaultValue(7);
  command.parse({});
  const char* const text = result().get("size").text;
  command.parseMore({"--name=7", "--size=7"});
  EXPECT_EQ(text, result().get("name").text);
  EXPECT_EQ(text, result().get("size").text);
}

TEST_F(Delivered, ATextOutlivesTheParserAndTheDefaultsItCameFrom) {
  ResultHandle kept;
  const char* text = nullptr;
  {
    const ParserHandle parser = makeParser();
    parser->option("size", "", vtS32)->defaultValue(7);
    kept = makeResult(*parser);
    const char* const argv[] = {"tool"};
    parser->parseArgsVector(1, argv, kept.get());
    text = kept->get("size").text;
    parser->option("more", "", vtS32)->defaultValue(8);
    parser->parseArgsVector(1, argv, kept.get());
    EXPECT_EQ(text, kept->get("size").text);
  }
  EXPECT_STREQ("7", text);
  EXPECT_EQ(text, kept->get("size").text);
}

TEST_F(Delivered, TypedTextsOfOneValueShareTheirCharacters) {
  command.parse({"--name=a long text that needs memory of its own,b"});
  const Value first = result().get("name");
  const Value again = result().get("n");
  EXPECT_EQ(characters(first), characters(again));
  EXPECT_NE(characters(first), characters(result().next("n")));
}

TEST_F(Delivered, TypedTextsOfTwoValuesHaveCharactersOfTheirOwn) {
  command.parse({"--name=a", "--name=a"});
  const Value first = result().get("name");
  const Value second = result().next("name");
  EXPECT_EQ(first.text, second.text);
  EXPECT_NE(characters(first), characters(second));
}

TEST_F(Delivered, ATypedTextOutlivesTheResult) {
  Value value;
  {
    Command other;
    other.option("name", vtString);
    other.parse({"--name=a text"});
    value = resultOf(other).get("name");
  }
  EXPECT_STREQ("a text", value.value.get<const char*>());
}

// A synonym that is added between two parses gives each name a record of its own.
TEST_F(Delivered, TypedTextsAreSharedWhereNamesAreStoredApart) {
  IOption* const option = command.option("word", vtString);
  command.parse({"--word=a"});
  option->synonym("w");
  command.parseMore({"--word=b"});
  result().get("word");
  const Value underFirst = result().next("word");
  const Value underSecond = result().get("w");
  EXPECT_STREQ("b", underFirst.text);
  EXPECT_STREQ("b", underSecond.text);
  EXPECT_EQ(characters(underFirst), characters(underSecond));
}

// Another parser gives one of the names to an option of its own, which separates the names.
TEST_F(Delivered, TypedTextsAreStillSharedWhenNamesAreSeparatedLater) {
  command.parse({"--name=first", "--name=second"});
  const ParserHandle other = makeParser();
  other->option("n", "", vtString);
  const char* const arguments[] = {"tool", "--n=third"};
  EXPECT_EQ(1, other->parseArgsVector(2, arguments, &result()));  // it does not know "name"
  const std::vector<Value> underName = values(result(), "name");
  const std::vector<Value> underSynonym = values(result(), "n");
  ASSERT_EQ(2U, underName.size());
  ASSERT_EQ(3U, underSynonym.size());
  for (std::size_t i = 0; i < underName.size(); ++i) {
    EXPECT_STREQ(underName[i].text, underSynonym[i].text);
    EXPECT_EQ(characters(underName[i]), characters(underSynonym[i]));
  }
}

TEST_F(Delivered, TypedTextsAreSharedWhereAnOptionHasOneNameTwice) {
  command.option("twice,twice", vtString);
  command.parse({"--twice=a", "--twice=b"});
  const std::vector<Value> all = values(result(), "twice");
  ASSERT_EQ(3u, all.size());  // the second occurrence is stored once per name
  EXPECT_STREQ("b", all[1].text);
  EXPECT_EQ(characters(all[1]), characters(all[2]));
}

// A handler that keeps the values it is notified of.
class Keeper final : public TestHandler {
 public:
  bool onValueParse(const char*, const Value& value) override {
    values.push_back(value);
    return true;
  }

  std::vector<Value> values;
};

TEST_F(Delivered, AHandlerAndTheResultShareTheCharactersOfATypedText) {
  Keeper handler;
  command.parser().addHandler(&handler);
  command.parse({"--name=a,b"});
  ASSERT_EQ(2u, handler.values.size());
  EXPECT_EQ(characters(handler.values[0]), characters(result().get("name")));
  EXPECT_EQ(characters(handler.values[1]), characters(result().next("name")));
}

TEST_F(Delivered, ATypedDefaultSharesTheCharactersOfTheTool) {
  const variant_t text("a text");
  command.option("word", vtString)->defaultValue(text);
  command.parse({});
  EXPECT_EQ(text.get<const char*>(), characters(result().get("word")));
}

TEST_F(Delivered, WhatWasReadBeforeIsReadWithoutAnAllocation) {
  command.option("word", vtString)->defaultValue("a default that needs memory of its own");
  command.parse({"--name=a text that needs memory of its own,b", "--level=5", "--", "leftover"});
  const auto readAll = [&] {
    getLastValue(&result(), "name");
    result().get("level");
    result().get("word");
    leftover();
  };
  readAll();
  const AllocationLimit limit(0, Failing::forEver);
  for (Value value = result().get("name"); value.isEmpty == 0; value = result().next("name"))
    EXPECT_NE(nullptr, value.text);
  EXPECT_STREQ("5", result().get("level").text);
  EXPECT_STREQ("a default that needs memory of its own", result().get("word").text);
  EXPECT_STREQ("leftover", leftover());
  EXPECT_FALSE(limit.reached());
}

}  // namespace

}  // namespace kivo_3_3
