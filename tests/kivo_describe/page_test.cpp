#include "page.h"

#include <gtest/gtest.h>

#include "sample_description.h"

// What a page says, whatever its markup. A page is shown as lines: "## heading", a paragraph, or
// "- label: line; line"; <literal> and {variable}.

namespace kivo_describe {
namespace {

using testing::emptyTool;
using testing::option;
using testing::replaced;
using testing::toolWith;

std::string shown(const Line& line) {
  std::string text;
  for (const Span& span : line) {
    const bool isLiteral = span.style == Span::Style::literal;
    const bool isVariable = span.style == Span::Style::variable;
    text += (isLiteral    ? "<"
             : isVariable ? "{"
                          : "") +
            span.text +
            (isLiteral    ? ">"
             : isVariable ? "}"
                          : "");
  }
  return text;
}

std::string shown(const std::vector<Line>& lines) {
  std::string text;
  for (const Line& line : lines)
    text += (text.empty() ? "" : "; ") + shown(line);
  return text;
}

struct Shown {
  std::string operator()(const Heading& heading) const {
    return std::string(static_cast<std::size_t>(heading.level), '#') + ' ' + heading.text;
  }
  std::string operator()(const Paragraph& paragraph) const { return shown(paragraph.lines); }
  std::string operator()(const Item& item) const {
    return "- " + shown(item.label) + ": " + shown(item.lines);
  }
};

// The lines of a page from one of its headings to the next of the first level.
std::string chapter(const std::string& heading, const std::string& json) {
  std::string text;
  bool isInside = false;
  for (const Block& block : makePage(readDescription(json)).blocks) {
    const std::string line = std::visit(Shown(), block);
    if (line.rfind("# ", 0) == 0)
      isInside = line == "# " + heading;
    else if (isInside)
      text += line + '\n';
  }
  return text;
}

std::string options(const std::string& json) { return chapter("OPTIONS", json); }

// The fields of an option of another kind.
std::string action(const std::string& names) {
  return replaced(option(names, "", "none"), R"("option")", R"("action")");
}

std::string modifier(const std::string& names, const std::string& actions) {
  return replaced(option(names, R"(,"actions":)" + actions, "none"), R"("option")",
                  R"("modifier")");
}

std::string hidden(const std::string& option) {
  return replaced(option, R"("hidden":false)", R"("hidden":true)");
}

std::string positional(const std::string& option) {
  return replaced(option, R"("positional":false)", R"("positional":true)");
}

std::string annotated(const std::string& annotations) {
  return replaced(emptyTool, R"("together")",
                  R"("annotations":{)" + annotations + R"(},"together")");
}

TEST(Page, AllNamesAreShownAndTheTypeOfTheValue) {
  EXPECT_EQ("- <-a>, <-b> {string}: Text.\n", options(toolWith(option(R"("a","b")"))));
  EXPECT_EQ("- <-a>: Text.\n", options(toolWith(option(R"("a")", "", "none"))));
}

TEST(Page, ABooleanHasANegatedForm) {
  EXPECT_EQ("- <-a>, <-b>, <-no-a>: Text.\n",
            options(toolWith(option(R"("a","b")", "", "boolean"))));
}

TEST(Page, WithTwoDashesLongNamesHaveTwo) {
  const std::string json =
      replaced(toolWith(option(R"("a","bc","\u00e9","\u00e9\u00e9")", "", "boolean")),
               R"("together")", R"("annotations":{"dashes":["two","one"]},"together")");
  EXPECT_EQ("- <-a>, <--bc>, <-\u00e9>, <--\u00e9\u00e9>, <--no-a>: Text.\n", options(json));
}

TEST(Page, APlaceholderStandsForTheTypeUnlessValuesAreAllowed) {
  const std::string placeholder = R"(,"annotations":{"placeholder":["FILE","later"]})";
  EXPECT_EQ("- <-a> {FILE}: Text.\n", options(toolWith(option(R"("a")", placeholder))));
  EXPECT_EQ("- <-a> {string}: Text.; Allowed values: <x>.\n",
            options(toolWith(option(R"("a")", placeholder + R"(,"allowed":["x"])"))));
}

TEST(Page, DeprecatedValuesAreNotAmongTheAllowed) {
  const std::string values =
      R"(,"allowed":["x","","y z"],"deprecated":[{"value":"x","replacement":"y z"},)"
      R"({"value":"w","replacement":""}])";
  EXPECT_EQ(
      "- <-a> {string}: Text.; Allowed values: <\"\">, <y z>. Out of use: <x> (now <y z>), <w> "
      "(now "
      "<\"\">).\n",
      options(toolWith(option(R"("a")", values))));
  EXPECT_EQ("- <-a> {string}: Text.; Out of use: <x> (now <>>).\n",
            options(toolWith(option(
                R"("a")", R"(,"allowed":["x"],"deprecated":[{"value":"x","replacement":">"}])"))));
}

TEST(Page, FactsStandBesideTheDescription) {
  EXPECT_EQ(
      "- <-a> {string}: Text.; This is required. Range: 1 to 12. Default: <3>. Environment "
      "variable: "
      "<A_B>.\n",
      options(toolWith(
          option(R"("a")", R"(,"default":"3","annotations":{"required":[""],"range":["1 to 12"],)"
                           R"("environment":["A_B"]})"))));
}

TEST(Page, AnotherDefaultMayBeShownOrNone) {
  const auto shownAs = [](const std::string& text) {
    return options(toolWith(
        option(R"("a")", R"(,"default":"3","annotations":{"shownDefault":[")" + text + R"("]})")));
  };
  EXPECT_EQ("- <-a> {string}: Text.; Default: <~/.rc>.\n", shownAs("~/.rc"));
  EXPECT_EQ("- <-a> {string}: Text.\n", shownAs(" "));
}

TEST(Page, ValuesOfBlanksAreToldFromTheEmptyText) {
  EXPECT_EQ(R"(- <-a> {string}: Text.; Allowed values: <"">, <" ">, <" ">. Default: <" ">.)"
            "\n",
            options(toolWith(option(R"("a")", R"(,"allowed":[""," ","\t\t"],"default":"  ")"))));
}

TEST(Page, ADeprecatedOptionIsListedWithItsReason) {
  EXPECT_EQ("- <-a> {string}: Text.; Deprecated: use -b\n",
            options(toolWith(option(R"("a")", R"(,"annotations":{"deprecated":["use -b"]})"))));
}

TEST(Page, AModifierNamesTheVisibleActionsItGoesWith) {
  const std::string json =
      toolWith(action(R"("x","y")") + ',' + hidden(action(R"("secret")")) + ',' +
               modifier(R"("m")", R"(["secret","x"])") + ',' + modifier(R"("n")", R"(["secret"])"));
  EXPECT_EQ("- <-m>: Text.; Only with: <-x>.\n- <-n>: Text.\n", options(json));
  EXPECT_EQ("- <-x>, <-y>: Text.\n", chapter("ACTIONS", json));
}

TEST(Page, ActionsThatMayBeGivenTogetherAreNamedIfTheyAreVisible) {
  const std::string tool =
      toolWith(action(R"("x")") + ',' + action(R"("y")") + ',' + hidden(action(R"("z")")));
  const auto after = [&](const std::string& sets) {
    return chapter("ACTIONS", replaced(tool, R"("together":[])", R"("together":[)" + sets + "]"));
  };
  const std::string list = "- <-x>: Text.\n- <-y>: Text.\n";
  EXPECT_EQ(list + "May be given together: <-x>, <-y>.\n", after(R"(["nobody","x","y","z"])"));
  EXPECT_EQ(list, after(R"(["x","z"],["x"],[])"));
}

TEST(Page, AnOptionWithoutDescriptionIsListedToo) {
  EXPECT_EQ("- <-a> {string}: \n", options(replaced(toolWith(option(R"("a")")), "Text.", "\\n")));
}

TEST(Page, NothingHiddenIsShown) {
  const std::string json =
      replaced(toolWith(hidden(option(R"("a")")) + ',' + hidden(positional(option(R"("b")")))),
               R"("heading":"","introduction":"")", R"("heading":"","introduction":"Secret.")");
  EXPECT_EQ("", options(json));
  EXPECT_EQ("", chapter("OPERANDS", json));
  EXPECT_EQ("<fx>\n", chapter("SYNOPSIS", json));
}

TEST(Page, APositionalOptionIsAnOperand) {
  const std::string json =
      toolWith(positional(option(R"("a","b")")) + ',' + positional(option(R"("c")")));
  EXPECT_EQ("- {a}: Text.\n- {c}: Text.\n", chapter("OPERANDS", json));
  EXPECT_EQ("", options(json));
  EXPECT_EQ("<fx> [{a} ...]\n", chapter("SYNOPSIS", json));
}

TEST(Page, AHiddenFirstOperandHidesTheOthersFromTheSynopsis) {
  EXPECT_EQ(
      "<fx> [{option} ...]\n",
      chapter("SYNOPSIS", toolWith(option(R"("x")") + ',' + hidden(positional(option(R"("a")"))) +
                                   ',' + positional(option(R"("c")")))));
}

TEST(Page, OperandsThatTellWhatTheyTakeAreAllInTheSynopsis) {
  const auto taking = [](const char* name, const char* facts) {
    return positional(option(name, R"(,"annotations":{)" + std::string(facts) + '}'));
  };
  EXPECT_EQ("<fx> {from} [{to}] [{rest} ...]\n",
            chapter("SYNOPSIS", toolWith(taking(R"("from")", R"("takes":["one"],"required":[""])") +
                                         ',' + taking(R"("to")", R"("takes":["one"])") + ',' +
                                         taking(R"("rest")", R"("takes":["many"])"))));
  EXPECT_EQ(
      "<fx> {FILE} ...\n",
      chapter("SYNOPSIS", toolWith(taking(R"("file")", R"("takes":["many"],"placeholder":["FILE"],)"
                                                       R"("required":["required"])") +
                                   ',' + positional(option(R"("unsaid")")))));
  EXPECT_EQ("<fx> [{b}]\n",
            chapter("SYNOPSIS", toolWith(hidden(taking(R"("a")", R"("takes":["one"])")) + ',' +
                                         taking(R"("b")", R"("takes":["one"])"))));
}

TEST(Page, SectionsAreSubheadingsAndThatWithoutAHeadingComesFirst) {
  const std::string other = R"({"heading":"Other","introduction":"About\nit.","hidden":false})";
  const std::string unused = R"({"heading":"Unused","introduction":"Never.","hidden":false})";
  const std::string json =
      replaced(toolWith(replaced(option(R"("a")"), R"("section":"")", R"("section":"Other")") +
                        ',' + option(R"("b")")),
               R"("sections":[)", R"("sections":[)" + other + ',' + unused + ',');
  EXPECT_EQ("- <-b> {string}: Text.\n## Other\nAbout it.\n- <-a> {string}: Text.\n", options(json));
}

TEST(Page, TheDescriptionHasSummaryAndVersion) {
  const std::string syntax =
      "The name of an option may be cut short if no other name begins that way. The value of an "
      "option follows after a blank or an equals sign.\n";
  EXPECT_EQ("Does it.\nVersion: 1.\n" + syntax, chapter("DESCRIPTION", emptyTool));
  EXPECT_EQ(syntax, chapter("DESCRIPTION", replaced(replaced(emptyTool, "Does it.", ""),
                                                    R"("version":"1")", R"("version":" ")")));
}

TEST(Page, ExitStatusesOfTheToolAndThenTheFooterStandAtTheEnd) {
  const std::string last =
      chapter("EXIT STATUS", annotated(R"("exitStatus":["10 Ten.","x"],"footer":["Bye.","No."])"));
  EXPECT_EQ("- <10>: Ten.\nx\nBye.\n", last.substr(last.find("- <10>")));
  EXPECT_EQ(0U, last.rfind("- <0>: The tool did what it was asked to do.\n- <1>: ", 0)) << last;
}

TEST(Page, AnExitStatusMayHaveNoMeaning) {
  const std::string last = chapter("EXIT STATUS", annotated(R"("exitStatus":["10","11 "])"));
  EXPECT_EQ("- <10>: \n- <11>: \n", last.substr(last.find("- <10>")));
}

// Otherwise they would seem to belong to the section of the operand.
TEST(Page, OptionsWithoutASectionComeBeforeTheSectionsOfACommandsOperands) {
  const std::string json = replaced(
      emptyTool, R"("together")",
      R"("commands":[{"words":"\u0001","summary":"Adds.","sections":[)"
      R"({"heading":"S","introduction":"Which.","hidden":false},)"
      R"({"heading":"","introduction":"","hidden":false}],"options":[)" +
          replaced(positional(option(R"("file")")), R"("section":"")", R"("section":"S")") + ',' +
          option(R"("force")", "", "none") +
          R"(],"together":[],"unknownArguments":"error","dashArguments":"options",)"
          R"("leftoverArguments":"kept"}],"together")");
  EXPECT_EQ("## \" \"\nAdds.\n- <-force>: Text.\n### S\nWhich.\n- {file}: Text.\n",
            chapter("COMMANDS", json));
}

TEST(Page, EachCommandHasItsOwnOptions) {
  const std::string tool = toolWith(option(R"("own")", "", "none"));
  const std::string fields = tool.substr(tool.find(R"("sections")"));
  const std::string command = replaced(replaced(fields, R"("own")", R"("force")"), R"("options":[)",
                                       R"("options":[)" + positional(option(R"("file")")) + ',');
  const std::string headed = replaced(replaced(command, R"("heading":"")", R"("heading":"S")"),
                                      R"("section":"")", R"("section":"S")");
  const std::string json = tool.substr(0, tool.size() - 1) +
                           R"(,"commands":[{"words":"remote add","summary":"Adds.",)" + command +
                           R"(,{"words":"list","summary":"",)" +
                           replaced(headed, R"("section":"")", R"("section":"S")") + "]}";
  EXPECT_EQ(
      "<fx remote add> [{option} ...] [{file} ...]\n"
      "<fx list> [{option} ...] [{file} ...]\n",
      replaced(chapter("SYNOPSIS", json), "; ", "\n"));
  EXPECT_EQ(
      "## remote add\nAdds.\n- {file}: Text.\n- <-force>: Text.\n"
      "## list\n### S\n- {file}: Text.\n- <-force>: Text.\n",
      chapter("COMMANDS", json));
  EXPECT_EQ("- <-own>: Text.\n", options(json));
}

}  // namespace
}  // namespace kivo_describe
