// Names, values, descriptions and unknown arguments with any bytes. The library does not interpret
// characters: every byte that goes in comes out unchanged, in messages and help too.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/command.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

// Invalid UTF-8: cut short, overlong, a surrogate, beyond the last character, bytes that never
// occur.
const char* const noUtf8[] = {"\xE2",         "\xE2\x80",         "a\x80z",   "\xC0\xAF",
                              "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xFE\xFF", "\xF0\x9F\x99"};

string everyByte() {
  string bytes;
  for (int byte = 1; byte < 256; ++byte)
    bytes += static_cast<char>(byte);
  return bytes;
}

string without(string text, const string& bytes) {
  const auto isMeant = [&](char byte) { return bytes.find(byte) != string::npos; };
  text.erase(std::remove_if(text.begin(), text.end(), isMeant), text.end());
  return text;
}

// A byte that ends the name leaves "n", which is an abbreviation of the declared name.
TEST(OddBytes, InANameAreFoundUnlessTheyEndIt) {
  for (const char byte : everyByte()) {
    SCOPED_TRACE(static_cast<int>(byte));
    const bool endsIt = string("= \t\n\v\f\r").find(byte) != string::npos;
    const string name = string("n") + byte + "x";
    Command command;
    command.option("first", vtString)->synonym(name.c_str())->tokenize('\0');
    ASSERT_EQ(0, command.parse({"--" + name + "=value"}));
    EXPECT_EQ(endsIt ? "x=value" : "value", valueOr<string>(command.result(), name.c_str(), ""));
    EXPECT_EQ(endsIt ? "x=value" : "value", valueOr<string>(command.result(), "first", ""));
  }
}

TEST(OddBytes, InAValueArriveUnchanged) {
  Command command;
  command.option("text", vtString)->tokenize('\0');
  command.option("file", vtString)->positional()->tokenize('\0');
  ASSERT_EQ(0, command.parse({"--text=" + everyByte(), "--text", everyByte(), everyByte(), "--",
                              everyByte()}));
  const std::vector<Value> texts = values(command.result(), "text");
  ASSERT_EQ(2u, texts.size());
  EXPECT_EQ(everyByte(), texts[0].text);
  EXPECT_EQ(everyByte(), texts[1].value.get<const char*>());
  EXPECT_EQ(everyByte(), valueOr<string>(command.result(), "file", ""));
  EXPECT_EQ(everyByte(), leftovers(command.result()).at(0));
}

TEST(OddBytes, InAStreamArriveUnchangedButForTheLineFeed) {
  const string bytes = without(everyByte(), "\n");
  Command command;
  command.option("text", vtString)->tokenize('\0');
  ASSERT_EQ(0, command.parseStream(("--text=" + bytes + "\n--\n\xFF" + bytes).c_str()));
  EXPECT_EQ(bytes, valueOr<string>(command.result(), "text", ""));
  EXPECT_EQ("\xFF" + bytes, leftovers(command.result()).at(0));
}

TEST(OddBytes, EachMaySeparateValues) {
  for (const char byte : everyByte()) {
    SCOPED_TRACE(static_cast<int>(byte));
    const char* const parts = byte == 'a' || byte == 'b' ? "xy" : "ab";
    Command command;
    command.option("text", vtString)->tokenize(byte);
    ASSERT_EQ(0, command.parse({string("--text=") + parts[0] + byte + byte + parts[1] + byte}));
    const std::vector<Value> read = values(command.result(), "text");
    ASSERT_EQ(2u, read.size());
    EXPECT_EQ(parts, string(read[0].text) + read[1].text);
  }
}

TEST(OddBytes, OfAnUnknownArgumentAreQuotedUnchanged) {
  Command command(parserFlags::unknownArgumentIsError);
  EXPECT_EQ(2, command.parse({"--" + everyByte()}));
  EXPECT_EQ("Unknown option: --" + everyByte(), command.error());
  for (const string bytes : noUtf8)
    for (const string& argument : {bytes, "-" + bytes, "\u2013" + bytes, bytes + "\u2013"})
      EXPECT_EQ("2: Unknown option: " + argument, command.parsed({argument}));
}

TEST(OddBytes, OfARefusedValueAreQuotedUnchanged) {
  const string value = without(everyByte(), ",");
  Command command;
  command.option("number", vtS32);
  const string argument = "--number=" + value;
  EXPECT_EQ(2, command.parse({argument}));
  EXPECT_EQ("Value validation problem in argument '" + argument +
                "': Option 'number' can not parse '" + value +
                "' value, requires a type 'integer' here.",
            command.error());
}

TEST(OddBytes, ThatAreNoUtf8MakeANameLikeAnyOther) {
  for (const string bytes : noUtf8) {
    SCOPED_TRACE(bytes);
    Command command;
    command.option((bytes + "1").c_str(), vtString);
    command.option((bytes + "2").c_str(), vtString);
    EXPECT_EQ(0, command.parse({"-" + bytes + "1=" + bytes}));
    EXPECT_EQ(bytes, valueOr<string>(command.result(), (bytes + "1").c_str(), ""));
    EXPECT_EQ("2: Ambiguous option '" + bytes + "' in argument: '-" + bytes + "', could be: '" +
                  bytes + "1', '" + bytes + "2'",
              command.parsed({"-" + bytes}));
    EXPECT_EQ("2: Option '" + bytes + "2' requires a value in argument: '-" + bytes + "2'",
              command.parsed({"-" + bytes + "2"}));
  }
}

TEST(OddBytes, InHelpAreKeptWhereverLinesAreBroken) {
  string description;
  for (int i = 0; i < 4; ++i)
    description += everyByte();
  Command command;
  command.parser().option("\xFF\x80name", description.c_str(), vtNull, "\xC0key:\xE2title");
  const string help = command.parser().getDescription(false);
  EXPECT_EQ("\xC0key\n \xE2title\n\n-\xFF\x80name" + string(23, ' '), help.substr(0, 44));
  EXPECT_EQ(without(description, " \n"), without(help.substr(44), " \n"));
}

TEST(OddBytes, InATopicAreQuotedUnchanged) {
  Command command;
  EXPECT_EQ("Help for " + everyByte() + " not available.Please use one of the following topics:\n",
            string(command.parser().getDescription(everyByte().c_str(), false)));
}

}  // namespace

}  // namespace kivo_3_3::testing
