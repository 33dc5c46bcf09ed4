#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/assertion_recorder.h"
#include "tried.h"

// A tool describes itself, and its commands, as JSON. Each option is a line of it.

namespace kivo_3_3 {
namespace {

class ToolDescribed : public ::testing::Test {
 protected:
  // The description of the tool.
  const std::string& all() {
    EXPECT_EQ(0, tool.run({"kivooption=kivodescribe=json"}));
    EXPECT_EQ("", tool.err);
    return tool.out;
  }

  // The line that begins with a text, without a comma or a line end after it.
  std::string line(const std::string& begin) {
    const std::string json = '\n' + (tool.out.empty() ? all() : tool.out);
    const std::size_t first = json.find('\n' + begin);
    if (first == std::string::npos)
      return "no such line";
    const std::string found = json.substr(first + 1, json.find('\n', first + 1) - first - 1);
    return found.substr(0, found.find_last_not_of(',') + 1);
  }
  std::string option(const std::string& name) { return line("{\"names\":[\"" + name + '"'); }

  // The line of an option without anything beyond the fields that are always there.
  static std::string plain(const std::string& names, const std::string& type,
                           const std::string& help, const std::string& further = "") {
    return R"({"names":[)" + names + R"(],"kind":"option","type":")" + type +
           R"(","description":")" + help +
           R"(","section":"","hidden":false,"separator":null,"positional":false)" + further;
  }

  Tried tool{"archive", "Packs files.", "2.1"};
  bool one = false, two = false;
  int level = 5;
  std::string text;
};

TEST_F(ToolDescribed, IsAsOneText) {
  const std::string begin =
      R"({"schema":"kivo-description/1",)"
      R"("tool":{"name":"archive","version":"2.1","summary":"Packs files."},"sections":[)"
      "\n"
      R"({"heading":"","introduction":"","hidden":false}],"options":[)"
      "\n";
  const std::string end =
      R"(],"together":[],"unknownArguments":"error","dashArguments":"options",)"
      R"("leftoverArguments":"positional","annotations":{"dashes":["two"],"loneDash":["operand"]}})"
      "\n";
  EXPECT_EQ(begin + plain(R"("help","h")", "none", "Show this help.", "},\n") +
                plain(R"("version","V")", "none", "Show the version.", "}") + end,
            all());
}

TEST_F(ToolDescribed, IsAskedForByTheFirstArgumentAlone) {
  std::vector<std::string> words;
  tool.rest("word", words, "Words.");
  EXPECT_EQ(-1, tool.run({"a", "kivooption=kivodescribe=json"}));
  EXPECT_EQ((std::vector<std::string>{"a", "kivooption=kivodescribe=json"}), words);
}

TEST_F(ToolDescribed, DoesNotLookAtFurtherArguments) {
  EXPECT_EQ(0, tool.run({"kivooption=kivodescribe=json", "--bogus", "--help"}));
  EXPECT_EQ(0U, tool.out.find("{\"schema\":"));
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolDescribed, IsAskedForInExactlyTheseWords) {
  EXPECT_EQ(2, tool.run({"kivooption=kivodescribe=jsonx"}));
  EXPECT_EQ("archive: Unexpected argument: kivooption=kivodescribe=jsonx\nTry 'archive --help'.\n",
            tool.err);
}

TEST_F(ToolDescribed, OptionsHaveAnnotations) {
  tool.option("level,l", level, "How hard.").range(1, 9).env("LEVEL").placeholder("N").required();
  EXPECT_EQ(plain(R"("level","l")", "integer", "How hard.",
                  R"(,"annotations":{"environment":["LEVEL"],"placeholder":["N"],)"
                  R"("range":["1 to 9"],"required":["required"]}})"),
            option("level"));
}

TEST_F(ToolDescribed, OptionsHaveTheDefaultThatIsShown) {
  text = "/home/me/.rc";
  tool.option("rc", text, "A file.").shownDefault("~/.rc").deprecated("use --config");
  EXPECT_EQ(plain(R"("rc")", "string", "A file.",
                  R"(,"annotations":{"deprecated":["use --config"],"shownDefault":["~/.rc"]}})"),
            option("rc"));
}

TEST_F(ToolDescribed, OptionsHaveTheirChoices) {
  text = "low";
  tool.option("tone", text, "How.").choices({"low", "high"}).deprecatedChoice("loud", "high");
  const std::string expected = plain(R"("tone")", "string", "How.",
                                     R"(,"allowed":["low","high"],"deprecated":[)"
                                     "\n"
                                     R"({"value":"loud","replacement":"high"}],"default":"low"})");
  EXPECT_NE(std::string::npos, all().find('\n' + expected + ",\n")) << tool.out;
}

TEST_F(ToolDescribed, OptionsMayBeHidden) {
  tool.flag("one", one, "One.").hidden();
  EXPECT_EQ(R"({"names":["one"],"kind":"option","type":"none","description":"One.",)"
            R"("section":"kivo_hidden","hidden":true,"separator":null,"positional":false})",
            option("one"));
}

TEST_F(ToolDescribed, OptionsTellTheirActions) {
  tool.action("list,l", "List all.", [] { return 7; });
  tool.flag("one", one, "One.").only("list");
  EXPECT_EQ(R"({"names":["list","l"],"kind":"action","type":"none","description":"List all.",)"
            R"("section":"","hidden":false,"separator":null,"positional":false})",
            option("list"));
  EXPECT_EQ(
      R"({"names":["one"],"kind":"modifier","type":"none","description":"One.",)"
      R"("section":"","hidden":false,"separator":null,"positional":false,"actions":["list"]})",
      option("one"));
}

TEST_F(ToolDescribed, OperandsKeepTheirOrderAndNamesThatNobodyTypesAndTellHowManyTheyTake) {
  std::vector<std::string> words;
  tool.operand("from", level, "From.");
  tool.rest("to", words, "To.").split(',');
  EXPECT_EQ(R"({"names":[" from"],"kind":"option","type":"integer","description":"From.",)"
            R"("section":"","hidden":false,"separator":null,"positional":true,"default":"5",)"
            R"("annotations":{"takes":["one"]}})",
            option(" from"));
  EXPECT_EQ(
      R"({"names":[" to"],"kind":"option","type":"string","description":"To.",)"
      R"("section":"","hidden":false,"separator":",","positional":true,)"
      R"("annotations":{"takes":["many"]}}],"together":[],"unknownArguments":"error","dashArguments":"options",)"
      R"("leftoverArguments":"positional",)"
      R"("annotations":{"dashes":["two"],"loneDash":["operand"]}})",
      option(" to"));
}

TEST_F(ToolDescribed, ToolsTellTheirFooters) {
  tool.footer("See the guide.");
  tool.footer("Or ask.");
  EXPECT_NE(
      std::string::npos,
      all().find(R"("annotations":{"dashes":["two"],"footer":["See the guide.\u000aOr ask."],)"
                 R"("loneDash":["operand"]}})"));
}

TEST_F(ToolDescribed, CommandsTellTheirOwnOptions) {
  bool worked = false;
  tool.option("one", one, "One.");
  tool.command("remote add", "Add a remote.", [&](Tool& inner) {
    inner.flag("force,f", two, "Replace it.");
    if (const std::optional<int> exit = inner.parse())
      return *exit;
    worked = true;
    return 7;
  });
  const std::string json = all();
  EXPECT_EQ(R"({"words":"remote add","summary":"Add a remote.","sections":[)"
            "\n"
            R"({"heading":"","introduction":"","hidden":false}],"options":[)"
            "\n" +
                plain(R"("force","f")", "none", "Replace it.", "}") +
                R"(],"together":[],"unknownArguments":"error","dashArguments":"options",)"
                R"("leftoverArguments":"positional"}]})"
                "\n",
            json.substr(json.find("{\"words\"")));
  EXPECT_FALSE(worked);
}

TEST_F(ToolDescribed, CommandsKeepTheirOrder) {
  for (const char* words : {"show", "add", "remove"})
    tool.command(words, "", [](Tool& inner) { return inner.parse().value_or(0); });
  const std::string json = all();
  EXPECT_LT(json.find(R"("words":"show")"), json.find(R"("words":"add")"));
  EXPECT_LT(json.find(R"("words":"add")"), json.find(R"("words":"remove")"));
  EXPECT_GT(json.size(), json.find(R"("words":"remove")"));
}

TEST_F(ToolDescribed, CommandsMayNameOptionsOfTheToolInGroups) {
  const testing::AssertionRecorder assertions;
  tool.flag("one", one, "One.");
  tool.command("add", "", [&](Tool& inner) {
    inner.flag("two", two, "Two.");
    inner.atMostOne({"one", "two"});
    return inner.parse().value_or(0);
  });
  all();
  EXPECT_EQ("", assertions.expressions());
}

TEST_F(ToolDescribed, CommandsThatReturnWithoutParseAreAMistake) {
  const testing::AssertionRecorder assertions;
  tool.command("add", "", [](Tool&) { return 7; });
  EXPECT_NE(std::string::npos, all().find(R"("words":"add")"));
  EXPECT_EQ("the command 'add' returned without parse()", assertions.expressions());
}

TEST_F(ToolDescribed, CommandsMayThrow) {
  tool.command("fall", "", [](Tool&) -> int { throw std::runtime_error("fallen"); });
  EXPECT_THROW(tool.run({"kivooption=kivodescribe=json"}), std::runtime_error);
  EXPECT_EQ("", tool.out + tool.err);
}

}  // namespace
}  // namespace kivo_3_3
