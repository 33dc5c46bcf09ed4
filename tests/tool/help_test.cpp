#include <fcntl.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tried.h"

// The help page.

namespace kivo_3_3 {
namespace {

class ToolHelp : public ::testing::Test {
 protected:
  ToolHelp() { setenv("COLUMNS", "80", 1); }
  ~ToolHelp() override { unsetenv("COLUMNS"); }
};

// The longest line of a page for a width.
std::size_t widest(const char* columns) {
  columns != nullptr ? setenv("COLUMNS", columns, 1) : unsetenv("COLUMNS");
  std::string text;
  for (int i = 0; i < 200; ++i)
    text += "a ";
  const std::string page = Tried("tool", text.c_str()).help();
  std::size_t longest = 0;
  for (std::size_t at = 0, end = 0; (end = page.find('\n', at)) != std::string::npos; at = end + 1)
    longest = std::max(longest, end - at);
  return longest;
}

TEST_F(ToolHelp, ShowsAllThatIsDeclared) {
  Tried tool;
  int size = 3;
  bool color = true;
  std::string tone = "warm", file;
  std::vector<std::string> rest;
  tool.option("size,s", size, "How big.").range(1, 9).env("SIZE");
  tool.option("color", color, "Use colors.");
  tool.option("secret", size, "Secret.").hidden();
  tool.section("Tones");
  tool.option("tone", tone, "Which.").choices({"warm", "cold"}).placeholder("TONE");
  tool.option("old", tone, "Former.").deprecated("use --tone").shownDefault("none").required();
  tool.operand("file", file, "What to read.").required();
  tool.rest("more", rest, "More.");
  tool.footer("That is all.");
  EXPECT_EQ(0, tool.run({"--hel"}));
  EXPECT_EQ(
      "Usage: tool [OPTION]... FILE [MORE...]\n\nTries a tool.\n\n"
      "Operands:\n  FILE     What to read.\n  MORE...  More.\n\n"
      "Options:\n"
      "  -s, --size=SIZE   How big. From 1 to 9. Default: 3. Environment: SIZE.\n"
      "      --[no-]color  Use colors. Default: true.\n"
      "  -h, --help        Show this help.\n  -V, --version     Show the version.\n\n"
      "Tones:\n      --tone=TONE  Which. One of: warm, cold. Default: warm.\n"
      "      --old=OLD    Former. Default: none. Required. Deprecated: use --tone.\n\n"
      "That is all.\n",
      tool.out);
}

TEST_F(ToolHelp, ASectionKeepsTheIntroductionOfItsFirstDeclaration) {
  Tried tool("tool", "", nullptr);
  bool given = false;
  tool.section("Size: How big it is: in metres.");
  tool.flag("large", given, "Large.");
  tool.section("Empty:");
  tool.flag("none", given, "None.");
  tool.section("Size:Something else.");
  tool.flag("tiny", given, "Tiny.");
  EXPECT_EQ(
      "Usage: tool [OPTION]...\n\n"
      "Size:\n  How big it is: in metres.\n      --large  Large.\n      --tiny   Tiny.\n\n"
      "Empty:\n      --none  None.\n\n"
      "Options:\n  -h, --help  Show this help.\n",
      tool.help());
}

TEST_F(ToolHelp, ALetterOfSeveralBytesHasOneDash) {
  Tried tool("tool", "", nullptr);
  bool given = false;
  int number = 0;
  tool.option("\u00e9,\u00e9t\u00e9", given, "Summer.");
  tool.option("\u00e0", number, "A number.").required();
  EXPECT_EQ(
      "Usage: tool [OPTION]...\n\n"
      "Options:\n  -\u00e9, --[no-]\u00e9t\u00e9  Summer.\n"
      "  -\u00e0=\u00e0            A number. Required.\n"
      "  -h, --help      Show this help.\n",
      tool.help());
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ("tool: Option '-\u00e0' is required\nTry 'tool --help'.\n", tool.err);
}

TEST_F(ToolHelp, ShowsNoDefaultOfWhatIsRequired) {
  Tried tool("tool", "", nullptr);
  int size = 3;
  std::vector<int> numbers = {1, 2};
  std::string file = "f";
  tool.option("size", size, "How big.").required().range(1, 9);
  tool.option("numbers", numbers, "Which.").required();
  tool.operand("file", file, "What to read.").required();
  EXPECT_EQ(
      "Usage: tool [OPTION]... FILE\n\n"
      "Operands:\n  FILE  What to read.\n\n"
      "Options:\n"
      "      --size=SIZE        How big. From 1 to 9. Required.\n"
      "      --numbers=NUMBERS  Which. Required.\n"
      "  -h, --help             Show this help.\n",
      tool.help());
}

TEST_F(ToolHelp, IsAsWideAsColumnsBetweenSixtyAndAHundred) {
  EXPECT_EQ(79U, widest("80"));
  EXPECT_EQ(59U, widest("10"));
  EXPECT_EQ(99U, widest("1000"));
  EXPECT_EQ(65U, widest("65"));
}

TEST_F(ToolHelp, AWidthThatIsNoNumberIsPassedOver) {
  ASSERT_FALSE(isatty(STDOUT_FILENO));
  for (const char* columns : {"", "-5", "65x", " 65", "0"})
    EXPECT_EQ(79U, widest(columns)) << columns;
  EXPECT_EQ(79U, widest(nullptr));
}

TEST_F(ToolHelp, BreaksLinesBetweenCharacters) {
  std::string word;
  for (int i = 0; i < 100; ++i)
    word += "\xC3\xA9";
  Tried tool("tool", word.c_str(), nullptr);
  EXPECT_EQ("Usage: tool [OPTION]...\n\n" + word.substr(0, 160) + '\n' + word.substr(160) +
                "\n\nOptions:\n  -h, --help  Show this help.\n",
            tool.help());
}

TEST_F(ToolHelp, BreaksAWordAtTheWidthOfThePage) {
  const std::string word(101, 'x');
  const std::size_t columns[][2] = {{1, 60}, {60, 60}, {61, 61}, {80, 80}, {100, 100}, {101, 100}};
  for (const auto& [variable, width] : columns) {
    setenv("COLUMNS", std::to_string(variable).c_str(), 1);
    EXPECT_NE(std::string::npos,
              Tried("tool", word.c_str())
                  .help()
                  .find("\n\n" + word.substr(0, width) + '\n' + word.substr(width) + '\n'))
        << variable;
  }
  unsetenv("COLUMNS");
  EXPECT_NE(std::string::npos,
            Tried("tool", word.c_str()).help().find("\n" + word.substr(0, 80) + '\n'));
}

TEST_F(ToolHelp, TakesLineEndsForBlanks) {
  bool given = false;
  Tried tool("tool", "One\ntwo\n\n three.", nullptr);
  tool.flag("flag", given, "Four\nfive.");
  tool.footer("\nSix\nseven.\n");
  EXPECT_EQ(
      "Usage: tool [OPTION]...\n\nOne two three.\n\n"
      "Options:\n      --flag  Four five.\n  -h, --help  Show this help.\n\nSix seven.\n",
      tool.help());
}

TEST_F(ToolHelp, OfLongNamesAloneBeginsItsTextsAtTheWidestColumn) {
  bool given = false;
  Tried tool("tool", "", nullptr);
  tool.section("Long");
  tool.flag("a-name-that-is-longer-than-the-column", given, "Long.");
  const std::string help = tool.help();
  EXPECT_EQ(
      "Long:\n      --a-name-that-is-longer-than-the-column\n" + std::string(32, ' ') + "Long.\n\n",
      help.substr(help.find("Long:"), help.find("Options:") - help.find("Long:")));
}

TEST_F(ToolHelp, ShowsTheActionsThatAnOptionGoesWith) {
  bool given = false;
  Tried tool("tool", "", nullptr);
  tool.action("go", "", [] { return 0; });
  tool.action("stay", "", [] { return 0; });
  tool.flag("fast", given, "Be fast.").only("go,stay");
  EXPECT_NE(std::string::npos, tool.help().find("--fast  Be fast. Only with: go,stay.\n"));
}

TEST_F(ToolHelp, ShowsNoOperandsThatAreHiddenOrWithoutHelp) {
  std::string text;
  Tried tool("tool", "", nullptr);
  tool.operand("plain", text, "");
  tool.operand("secret", text, "Secret.").hidden();
  EXPECT_EQ("Usage: tool [OPTION]... [PLAIN]\n\nOptions:\n  -h, --help  Show this help.\n",
            tool.help());
}

TEST_F(ToolHelp, WithoutOptionsHasNoneInItsUsage) {
  bool given = false;
  Tried tool("tool", "", nullptr);
  tool.flag("help,h", given, "").hidden();
  EXPECT_EQ("Usage: tool\n", tool.help());
}

TEST_F(ToolHelp, ListsCommandsThatGoOnAfterWholeWords) {
  Tried tool;
  for (const char* words : {"remote add", "remote remove", "remotely", "remotely add"})
    tool.command(words, "Help.", [](Tool& inner) { return inner.parse().value_or(0); });
  EXPECT_EQ(0, tool.run({"remote"})) << tool.err;
  EXPECT_EQ("  remote add     Help.\n  remote remove  Help.\n", tool.out);
}

TEST_F(ToolHelp, ALongWordTakesNoLongTime) {
  const std::string word(2'000'000, 'x');
  EXPECT_LT(word.size(), Tried("tool", word.c_str()).help().size());
}

TEST_F(ToolHelp, VersionAndHelpWinOverErrors) {
  Tried tool;
  EXPECT_EQ(0, tool.run({"--wrong", "stray", "-V"}));
  EXPECT_EQ("tool 1.0\n", tool.out);
  EXPECT_EQ("", tool.err);
}

TEST_F(ToolHelp, AfterTwoDashesHelpIsAnOperand) {
  Tried tool;
  EXPECT_EQ(2, tool.run({"--", "--help"}));
  EXPECT_EQ("tool: Unexpected argument: --help\nTry 'tool --help'.\n", tool.err);
}

TEST_F(ToolHelp, TheAuthorMayDeclareHelpAndVersion) {
  Tried tool;
  bool help = false, version = false;
  tool.flag("help,h", help, "Own.");
  tool.flag("version,V", version, "Own.");
  EXPECT_EQ(-1, tool.run({"-h", "-V"}));
  EXPECT_TRUE(help && version);
  EXPECT_EQ("", tool.out);
}

TEST_F(ToolHelp, HelpThatCannotBeWrittenEndsWithOne) {
  std::fflush(stdout);
  const int kept = dup(STDOUT_FILENO);
  ASSERT_NE(nullptr, std::freopen("/dev/full", "w", stdout));
  const std::optional<int> status = Tool("tool", "A tool.", "1").parse({"--help"});
  std::clearerr(stdout);
  dup2(kept, STDOUT_FILENO);
  close(kept);
  EXPECT_EQ(1, status.value_or(-1));
}

TEST_F(ToolHelp, PutsTextsAfterLongNamesOnTheirOwnLines) {
  Tried tool;
  bool given = false;
  tool.flag("a-name-that-is-longer-than-the-column", given, "Long.");
  tool.flag("x", given, "");
  EXPECT_EQ(
      "Usage: tool [OPTION]...\n"
      "\n"
      "Tries a tool.\n"
      "\n"
      "Options:\n"
      "      --a-name-that-is-longer-than-the-column\n"
      "                 Long.\n"
      "  -x\n"
      "  -h, --help     Show this help.\n"
      "  -V, --version  Show the version.\n",
      tool.help());
}

// A terminal of 70 columns in place of standard output.
class NarrowTerminal {
 public:
  NarrowTerminal() : m_kept(dup(STDOUT_FILENO)), m_terminal(posix_openpt(O_RDWR | O_NOCTTY)) {
    winsize size{};
    size.ws_col = 70;
    ioctl(m_terminal, TIOCSWINSZ, &size);
    dup2(m_terminal, STDOUT_FILENO);
  }
  NarrowTerminal(const NarrowTerminal&) = delete;
  NarrowTerminal& operator=(const NarrowTerminal&) = delete;
  ~NarrowTerminal() {
    dup2(m_kept, STDOUT_FILENO);
    close(m_kept);
    close(m_terminal);
  }

 private:
  int m_kept;
  int m_terminal;
};

TEST_F(ToolHelp, IsAsWideAsTheTerminal) {
  std::fflush(stdout);
  std::size_t longest = 0;
  {
    const NarrowTerminal terminal;
    longest = widest(nullptr);
  }
  EXPECT_EQ(69U, longest);  // "a a ... a": an odd number of columns
  {
    const NarrowTerminal terminal;
    longest = widest("90");
  }
  EXPECT_EQ(89U, longest);
}

TEST_F(ToolHelp, NamesNoActionThatIsHidden) {
  Tried tool("tool", "", nullptr);
  bool one = false, two = false;
  tool.action("go", "Go.", [] { return 0; }).hidden();
  tool.action("stay", "Stay.", [] { return 0; });
  tool.flag("one", one, "One.").only("go,stay");
  tool.flag("two", two, "Two.").only("go");
  EXPECT_EQ(
      "Usage: tool [OPTION]...\n\nActions:\n      --stay  Stay.\n\nOptions:\n"
      "      --one   One. Only with: stay.\n      --two   Two.\n  -h, --help  Show this help.\n",
      tool.help());
}

TEST_F(ToolHelp, ShowsTheDefaultsOfFlagsAndCounts) {
  Tried tool("tool", "", nullptr);
  bool set = true, unset = false;
  int three = 3, none = 0;
  tool.flag("set", set, "Set.");
  tool.flag("unset", unset, "Unset.");
  tool.count("three", three, "Three.");
  tool.count("none", none, "None.");
  EXPECT_EQ(
      "Usage: tool [OPTION]...\n\nOptions:\n      --set    Set. Default: true.\n"
      "      --unset  Unset.\n      --three  Three. Default: 3.\n      --none   None.\n"
      "  -h, --help   Show this help.\n",
      tool.help());
}

TEST_F(ToolHelp, IsAtMostAHundredColumnsWide) { EXPECT_EQ(99U, widest("99999999999999999999999")); }

}  // namespace
}  // namespace kivo_3_3
