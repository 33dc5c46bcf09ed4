#include "description_reader.h"

#include <gtest/gtest.h>

#include "sample_description.h"

// What is read, and what is refused with which reason.

namespace kivo_describe {
namespace {

using testing::emptyTool;
using testing::option;
using testing::replaced;
using testing::toolWith;

std::string refusal(const std::string& json) {
  try {
    readDescription(json);
    return "accepted";
  } catch (const NoDescription& problem) {
    return problem.what();
  }
}

TEST(DescriptionReader, ReadsEveryField) {
  const Description read = readDescription(replaced(
      toolWith(option(
          R"("a","b")",
          R"(,"allowed":["x","y"],"deprecated":[{"value":"y","replacement":"x"}],"default":"x",)"
          R"("annotations":{"range":["1 to 2","later"]})")),
      R"("together":[])", R"("together":[["a","b"]],"annotations":{"footer":["Bye."]})"));
  EXPECT_EQ("fx 1 Does it.", read.name + ' ' + read.version + ' ' + read.summary);
  ASSERT_EQ(1U, read.declarations.options.size());
  const Option& first = read.declarations.options.front();
  EXPECT_EQ((Texts{"a", "b"}), first.names);
  EXPECT_EQ("option string Text. ",
            first.kind + ' ' + first.type + ' ' + first.description + ' ' + first.section);
  EXPECT_EQ((Texts{"x", "y"}), first.allowed);
  EXPECT_EQ("y x", first.deprecated.at(0).value + ' ' + first.deprecated.at(0).replacement);
  EXPECT_EQ("x", first.defaultValue);
  EXPECT_EQ(std::nullopt, first.separator);
  EXPECT_EQ("1 to 2", firstText(first.annotations, "range"));
  EXPECT_EQ((std::vector<Texts>{{"a", "b"}}), read.declarations.together);
  EXPECT_EQ("error options kept", read.declarations.unknownArguments + ' ' +
                                      read.declarations.dashArguments + ' ' +
                                      read.declarations.leftoverArguments);
  EXPECT_EQ("Bye.", firstText(read.declarations.annotations, "footer"));
}

TEST(DescriptionReader, TheDefaultOfABooleanIsAText) {
  const std::string json = toolWith(option(R"("a")", R"(,"default":false)", "boolean"));
  EXPECT_EQ("false", readDescription(json).declarations.options.at(0).defaultValue);
}

TEST(DescriptionReader, AnOptionOfAHiddenSectionIsHidden) {
  const std::string json =
      replaced(toolWith(option(R"("a")")), R"("hidden":false})", R"("hidden":true})");
  EXPECT_TRUE(readDescription(json).declarations.options.at(0).hidden);
}

TEST(DescriptionReader, PassesOverUnknownFieldsOfAnyDepth) {
  const std::string deep = std::string(100000, '[') + std::string(100000, ']');
  const std::string values[] = {"1",    "-0.5e-3",      "1e999",     std::string(400, '9'),
                                "null", R"("\"1e999")", "[1,-2e+9]", deep};
  for (const std::string& value : values) {
    const std::string field = R"("later":)" + value + ',';
    EXPECT_EQ("accepted", refusal(replaced(emptyTool, R"("schema")", field + R"("schema")")));
    EXPECT_EQ("accepted", refusal(replaced(emptyTool, R"("name")", field + R"("name")")));
    EXPECT_EQ("accepted", refusal(replaced(emptyTool, R"("heading")", field + R"("heading")")));
  }
}

TEST(DescriptionReader, AnEmptyListIsLikeNone) {
  const std::string more =
      R"(,"actions":[],"allowed":[],"deprecated":[],"default":"","annotations":{"range":[]})";
  const Option read = readDescription(toolWith(option(R"("a")", more))).declarations.options.at(0);
  EXPECT_TRUE(read.allowed.empty() && read.deprecated.empty() && read.annotations.empty());
  EXPECT_EQ("", read.defaultValue);
}

TEST(DescriptionReader, RefusesWhatIsNoJson) {
  const std::string whole = emptyTool;
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_EQ(0U, refusal(whole.substr(0, length)).rfind("not JSON: ", 0)) << length;
  const std::string texts[] = {
      whole + 'x',
      "\xEF\xBB\xBF" + whole,
      replaced(whole, "Does", "Do\nes"),
      replaced(whole, "Does", "Do\xFF"),
      replaced(whole, "Does", "Do\\x"),
      replaced(whole, "Does", "Do\\ud800"),
      whole + '\0',
      whole + "\n" + '\0' + "{}",
      replaced(whole, "{", R"({"x":01,)"),
      replaced(whole, "{", R"({"x":1e,)"),
      replaced(whole, "{", R"({"x":-,)"),
      replaced(whole, "{", R"({"x":1.,)"),
      replaced(whole, "{", R"({"x":.5,)"),
      replaced(whole, "{", R"({"x":+1,)"),
      replaced(whole, "{", R"({"x":1-2,)"),
      replaced(whole, "{", R"({"x":1e+,)"),
      std::string(100000, '['),
      std::string(100000, '{'),
  };
  for (const std::string& text : texts)
    EXPECT_EQ(0U, refusal(text).rfind("not JSON: ", 0)) << text.substr(0, 100);
}

TEST(DescriptionReader, RefusesAKeyThatStandsTwice) {
  EXPECT_EQ("the key 'name' stands twice in an object",
            refusal(replaced(emptyTool, R"("name")", R"("name":"a","name")")));
  EXPECT_EQ("the key 'x' stands twice in an object", refusal(R"({"a":[{"x":{"x":1},"x":1}]})"));
}

TEST(DescriptionReader, SaysWhatIsMissing) {
  const std::pair<const char*, const char*> fields[] = {
      {"schema", "schema"},
      {"tool", "tool"},
      {"name", "tool.name"},
      {"version", "tool.version"},
      {"summary", "tool.summary"},
      {"sections", "sections"},
      {"heading", "sections[0].heading"},
      {"introduction", "sections[0].introduction"},
      {"hidden", "sections[0].hidden"},
      {"options", "options"},
      {"names", "options[0].names"},
      {"kind", "options[0].kind"},
      {"type", "options[0].type"},
      {"description", "options[0].description"},
      {"section", "options[0].section"},
      {"separator", "options[0].separator"},
      {"positional", "options[0].positional"},
      {"together", "together"},
      {"unknownArguments", "unknownArguments"},
      {"dashArguments", "dashArguments"},
      {"leftoverArguments", "leftoverArguments"},
  };
  for (const auto& [field, place] : fields) {
    const std::string key = '"' + std::string(field) + "\":";
    EXPECT_EQ(std::string(place) + " is missing",
              refusal(replaced(toolWith(option(R"("a")")), key, R"("unknown":)")));
  }
}

TEST(DescriptionReader, SaysWhatIsWrong) {
  const struct {
    const char* old;
    const char* by;
    const char* reason;
  } cases[] = {
      {"kivo-description/1", "kivo-description/10", "schema has an unknown value"},
      {R"("fx")", "1", "tool.name is not a text"},
      {R"("fx")", R"("f x")", "tool.name is not usable as the name of a tool"},
      {R"("options":[)", R"("options":[1,)", "options[0] is not an object"},
      {R"("together":[])", R"("together":{})", "together is not a list"},
      {R"("together":[])", R"("together":[["a",1]])", "together[0][1] is not a text"},
      {R"(["a"])", "[]", "options[0].names is an empty list"},
      {R"("option")", R"("command")", "options[0].kind has an unknown value"},
      {R"("option")", R"("modifier")", "options[0].actions is missing"},
      {R"("string")", R"("float")", "options[0].type has an unknown value"},
      {R"("separator":null)", R"("separator":",,")", "options[0].separator is not one character"},
      {R"("separator":null)", R"("separator":"")", "options[0].separator is not one character"},
      {R"("separator":null)", R"("separator":0)", "options[0].separator is not a text"},
      {R"("positional":false)", R"("positional":0)",
       "options[0].positional is neither true nor false"},
      {R"("positional":false)", R"("positional":false,"deprecated":[{"value":""}])",
       "options[0].deprecated[0].replacement is missing"},
      {R"("positional":false)", R"("positional":false,"default":true)",
       "options[0].default is not a text"},
      {R"("positional":false)", R"("positional":false,"allowed":[1])",
       "options[0].allowed[0] is not a text"},
      {R"("positional":false)", R"("positional":false,"annotations":[])",
       "options[0].annotations is not an object"},
      {R"("positional":false)", R"("positional":false,"annotations":{"x":["",1]})",
       "options[0].annotations.x[1] is not a text"},
      {R"("section":"")", R"("section":"x")", "options has an option of an unknown section"},
      {R"("sections":[)", R"("sections":[{"heading":"","introduction":"","hidden":false},)",
       "sections has a section twice"},
      {R"("error")", R"("passed")", "unknownArguments has an unknown value"},
  };
  for (const auto& [old, by, reason] : cases)
    EXPECT_EQ(reason, refusal(replaced(toolWith(option(R"("a")")), old, by))) << by;
  EXPECT_EQ("the description is not an object", refusal("[]"));
}

// A tool with commands, of which each has the same declarations as the tool.
std::string withCommands(const std::string& first, const std::string& second,
                         const std::string& more = "") {
  const std::string whole = emptyTool;
  const std::string fields = whole.substr(whole.find(R"("sections")"));
  const auto command = [&](const std::string& words) {
    return R"({"words":")" + words + R"(","summary":"",)" + more + fields;
  };
  return whole.substr(0, whole.size() - 1) + R"(,"commands":[)" + command(first) + ',' +
         command(second) + "]}";
}

TEST(DescriptionReader, ReadsCommandsInOrder) {
  const Description read = readDescription(withCommands("remote add", "remote"));
  ASSERT_EQ(2U, read.commands.size());
  EXPECT_EQ("remote add, remote", read.commands[0].words + ", " + read.commands[1].words);
}

TEST(DescriptionReader, RefusesWordsThatCannotBeTyped) {
  const std::string reason =
      "commands[1].words is not one or more words, separated by single blanks, none of which "
      "begins with '-'";
  for (const char* const words : {"", " ", " a", "a ", "a  b", "-a", "a -b", "a\\tb"})
    EXPECT_EQ(reason, refusal(withCommands("first", words))) << words;
}

TEST(DescriptionReader, RefusesCommandsThatNobodyCouldTellApart) {
  EXPECT_EQ("commands has two commands of the same words", refusal(withCommands("a b", "a b")));
  EXPECT_EQ("commands[0] has commands of its own",
            refusal(withCommands("a", "b", R"("commands":[],)")));
  EXPECT_EQ("commands is an empty list",
            refusal(replaced(emptyTool, R"("together")", R"("commands":[],"together")")));
}

}  // namespace
}  // namespace kivo_describe
