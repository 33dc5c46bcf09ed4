#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "process.h"

// notebook as its users run it, in a folder that is their home too.

namespace end_to_end {
namespace {

using Arguments = std::vector<std::string>;

Outcome prints(const std::string& out) { return {0, out, ""}; }

// A wrong command line of a command, or of the tool itself without one.
Outcome refuses(const std::string& command, const std::string& reason) {
  const std::string words = command.empty() ? "notebook" : "notebook " + command;
  return {2, "", "notebook: " + reason + "\nTry '" + words + " --help'.\n"};
}

class Notebook : public testing::Test {
 protected:
  Outcome notebook(const Arguments& arguments) const { return notebookWith({}, arguments); }
  // With variables of the environment, such as "NOTEBOOK_STYLE=full".
  Outcome notebookWith(const Arguments& variables, const Arguments& arguments) const {
    Arguments command = {"env",
                         "-u",
                         "NOTEBOOK_FILE",
                         "-u",
                         "NOTEBOOK_STYLE",
                         "-u",
                         "NOTEBOOK_QUIET",
                         "-u",
                         "NOTEBOOK_CONFIG",
                         "-u",
                         "NOTEBOOK_LIMIT",
                         "HOME=" + m_folder.path(),
                         "COLUMNS=80"};
    command.insert(command.end(), variables.begin(), variables.end());
    for (const std::string& word : runner())
      command.push_back(word);
    command.emplace_back(NOTEBOOK_PATH);
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run(command, m_folder.path(), "");
  }
  Outcome toFullDevice(const std::string& arguments) const {
    std::string line;
    for (const std::string& word : runner())
      line += word + ' ';
    line += NOTEBOOK_PATH " " + arguments + " >/dev/full";
    return run({"sh", "-c", line}, m_folder.path(), "");
  }
  std::string path(const std::string& name) const { return m_folder.path() + '/' + name; }
  void write(const std::string& name, const std::string& text) const {
    writeFile(path(name), text);
  }
  std::string read(const std::string& name) const { return readFile(path(name)); }
  void writeThree() const { write("notes.txt", three); }

  const std::string three =
      "notebook 1\n"
      "1\tnormal\t-\t-\tCall Ada\n"
      "3\thigh\t2026-05-01\tgarden,home\tBuy seeds\n"
      "4\tlow\t2026-04-01\tgarden\tRake leaves\n";

 private:
  TemporaryFolder m_folder;
};

TEST_F(Notebook, AddsNotesWithRisingNumbers) {
  EXPECT_EQ(prints("1. Call Ada\n"), notebook({"add", "Call", "Ada"}));
  EXPECT_EQ(prints("2. Buy seeds #garden #home\n"),
            notebook({"add", "-p=hi", "Buy seeds", "-d=2026-05-01", "-t=home,garden"}));
  EXPECT_EQ(prints(""), notebook({"add", "--quiet", "--", "--due", "soon"}));
  EXPECT_EQ(
      "notebook 1\n"
      "1\tnormal\t-\t-\tCall Ada\n"
      "2\thigh\t2026-05-01\tgarden,home\tBuy seeds\n"
      "3\tnormal\t-\t-\t--due soon\n",
      read("notes.txt"));
}

TEST_F(Notebook, ListsNotesInTheOrderThatIsAskedFor) {
  EXPECT_EQ(prints(""), notebook({"list"}));
  writeThree();
  const std::string ada = "1. Call Ada\n";
  const std::string seeds = "3. Buy seeds #garden #home\n";
  const std::string leaves = "4. Rake leaves #garden\n";
  EXPECT_EQ(prints(ada + seeds + leaves), notebook({"list"}));
  EXPECT_EQ(prints(leaves + seeds + ada), notebook({"list", "--sort=due"}));
  EXPECT_EQ(prints(seeds + ada + leaves), notebook({"list", "-s", "priority"}));
  EXPECT_EQ(prints(ada), notebook({"list", "--limit=1"}));
  EXPECT_EQ(prints(seeds), notebook({"list", "-t=garden,home"}));
  EXPECT_EQ(prints(leaves), notebook({"list", "--due-by=2026-04-30"}));
  EXPECT_EQ(prints(ada), notebook({"list", "--undated"}));
  EXPECT_EQ(prints(leaves), notebook({"list", "--priority", "low"}));
}

TEST_F(Notebook, ShowsAllAboutNotes) {
  writeThree();
  EXPECT_EQ(prints("4. Rake leaves #garden (low priority, due on 2026-04-01)\n"
                   "1. Call Ada (normal priority)\n"),
            notebook({"show", "4", "1"}));
  EXPECT_EQ(refuses("", "No note 2 in 'notes.txt'"), notebook({"show", "2"}));
}

TEST_F(Notebook, ChangesTags) {
  writeThree();
  EXPECT_EQ(prints("1. Call Ada #home #phone\n"), notebook({"tag", "add", "1", "phone", "home"}));
  EXPECT_EQ(prints("3. Buy seeds #garden\n"), notebook({"tag", "remove", "3", "-t", "home"}));
  EXPECT_EQ(prints("1. Call Ada\n"), notebook({"tag", "rem", "1", "--all"}));
  EXPECT_EQ(
      "notebook 1\n"
      "1\tnormal\t-\t-\tCall Ada\n"
      "3\thigh\t2026-05-01\tgarden\tBuy seeds\n"
      "4\tlow\t2026-04-01\tgarden\tRake leaves\n",
      read("notes.txt"));
}

TEST_F(Notebook, TagsAreGivenInOneWay) {
  EXPECT_EQ(refuses("tag remove", "One of these is required: --tag, --all"),
            notebook({"tag", "remove", "1"}));
  EXPECT_EQ(refuses("tag remove", "At most one of these may be given: --tag, --all"),
            notebook({"tag", "remove", "1", "-a", "-t=x"}));
  EXPECT_EQ(refuses("list", "At most one of these may be given: --due-by, --undated"),
            notebook({"list", "--undated", "--due-by=2026-01-01"}));
}

TEST_F(Notebook, DatesHaveToExist) {
  const struct {
    const char* date;
    const char* expected;
  } cases[] = {
      {"soon", "a date such as 2026-05-01"},       {"2026-5-1", "a date such as 2026-05-01"},
      {"2026/05/01", "a date such as 2026-05-01"}, {"2026-13-01", "a month from 01 to 12"},
      {"2026-00-01", "a month from 01 to 12"},     {"2026-02-29", "a day that its month has"},
      {"1900-02-29", "a day that its month has"},  {"2026-04-31", "a day that its month has"},
      {"2026-04-00", "a day that its month has"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(refuses("add", "Option 'due' does not take '" + std::string(c.date) +
                                 "', expected: " + c.expected),
              notebook({"add", "x", "--due", c.date}));
  EXPECT_EQ(prints("1. x\n"), notebook({"add", "x", "--due=2024-02-29"}));
  EXPECT_EQ(prints("2. x\n"), notebook({"add", "x", "--due=2000-02-29"}));
}

TEST_F(Notebook, RefusesWhatItsFileCannotHold) {
  EXPECT_EQ(refuses("add",
                    "Operand 'word' does not take 'a\tb', expected: a text without tabs "
                    "and line ends"),
            notebook({"add", "a\tb"}));
  EXPECT_EQ(refuses("tag add",
                    "Operand 'tag' does not take 'a,b', expected: a word without "
                    "commas and blanks"),
            notebook({"tag", "add", "1", "a,b"}));
  EXPECT_FALSE(std::filesystem::exists(path("notes.txt")));
}

TEST_F(Notebook, ABrokenFileIsRefusedWithItsLine) {
  const struct {
    const char* text;
    const char* reason;
  } cases[] = {
      {"", "1: Expected 'notebook 1'"},
      {"notebook 2\n", "1: Expected 'notebook 1'"},
      {"notebook 1\n1\tlow\n", "2: Expected five fields between tabs"},
      {"notebook 1\nx\tlow\t-\t-\ta\n", "2: Expected a number up to 999999 in field 1"},
      {"notebook 1\n1000000\tlow\t-\t-\ta\n", "2: Expected a number up to 999999 in field 1"},
      {"notebook 1\n1\tl\t-\t-\ta\n", "2: Expected low, normal or high in field 2"},
      {"notebook 1\n1\tlow\tx\t-\ta\n", "2: Expected a date such as 2026-05-01 or - in field 3"},
      {"notebook 1\n1\tlow\t-\t-\ta\n1\tlow\t-\t-\tb\n", "3: Expected a higher number than before"},
  };
  for (const auto& c : cases) {
    write("broken", c.text);
    EXPECT_EQ(refuses("", std::string("broken:") + c.reason), notebook({"list", "-f", "broken"}));
    EXPECT_EQ(refuses("", std::string("broken:") + c.reason),
              notebook({"add", "-f", "broken", "x"}));
    EXPECT_EQ(c.text, read("broken"));
  }
}

TEST_F(Notebook, AFileThatCannotBeUsedIsNamed) {
  EXPECT_EQ(refuses("", "'/' is no regular file"), notebook({"list", "--file=/"}));
  EXPECT_EQ(refuses("", "'/dev/full' is no regular file"), notebook({"add", "-f=/dev/full", "x"}));
  EXPECT_EQ(refuses("", "Cannot write 'none/notes': No such file or directory"),
            notebook({"add", "-f=none/notes", "x"}));
  write("file", "");
  EXPECT_EQ(refuses("", "Cannot write 'file/notes': Not a directory"),
            notebook({"add", "-f=file/notes", "x"}));
}

TEST_F(Notebook, NoNumberIsLeftAfterTheHighest) {
  write("notes.txt", "notebook 1\n999999\tlow\t-\t-\ta\n");
  EXPECT_EQ(refuses("", "No number is left in 'notes.txt'"), notebook({"add", "x"}));
}

TEST_F(Notebook, SavingKeepsALinkAndTheRightsOfTheFile) {
  writeThree();
  std::filesystem::create_symlink("notes.txt", path("link"));
  const auto rights = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
  std::filesystem::permissions(path("notes.txt"), rights);
  EXPECT_EQ(prints("5. x\n"), notebook({"add", "-f=link", "x"}));
  EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
  EXPECT_EQ(three + "5\tnormal\t-\t-\tx\n", read("notes.txt"));
  EXPECT_EQ(rights, std::filesystem::status(path("notes.txt")).permissions());
  EXPECT_FALSE(std::filesystem::exists(path("notes.txt.new")));
}

TEST_F(Notebook, AConfigurationFileStandsBelowTheEnvironment) {
  writeThree();
  write(".notebookrc", "# As I like it.\n--style=full\n");
  const std::string leaves = "4. Rake leaves #garden";
  EXPECT_EQ(prints(leaves + " (low priority, due on 2026-04-01)\n"), notebook({"list", "-p=low"}));
  EXPECT_EQ(prints(leaves + "\n"), notebookWith({"NOTEBOOK_STYLE=brief"}, {"list", "-p=low"}));
  EXPECT_EQ(prints(leaves + " (low priority, due on 2026-04-01)\n"),
            notebookWith({"NOTEBOOK_STYLE=brief"}, {"list", "-p=low", "--style=full"}));
}

TEST_F(Notebook, AnErrorOfAConfigurationFileNamesFileAndLine) {
  write("rc", "# As I like it.\n\n--stile=full\n");
  EXPECT_EQ(refuses("list", "rc:3: Unknown option: --stile=full. Did you mean '--style'?"),
            notebook({"list", "--config=rc"}));
  EXPECT_EQ(refuses("list", "Cannot read 'none': No such file or directory"),
            notebook({"list", "--config=none"}));
}

TEST_F(Notebook, AnErrorOfTheEnvironmentNamesTheVariable) {
  EXPECT_EQ(refuses("list",
                    "Environment variable NOTEBOOK_LIMIT: Option 'limit' does not take "
                    "'0', expected: 1 to 1000"),
            notebookWith({"NOTEBOOK_LIMIT=0"}, {"list"}));
  EXPECT_EQ(refuses("show", "Environment variable NOTEBOOK_QUIET: expected 1, 0, true or false"),
            notebookWith({"NOTEBOOK_QUIET=yes"}, {"show", "1"}));
}

TEST_F(Notebook, MisspeltWordsAreGuessed) {
  EXPECT_EQ(refuses("", "Unknown command: lsit. Did you mean 'list'?"), notebook({"lsit"}));
  EXPECT_EQ(refuses("list", "Unknown option: --undatd. Did you mean '--undated'?"),
            notebook({"list", "--undatd"}));
}

TEST_F(Notebook, AFirstWordAloneListsItsCommands) {
  EXPECT_EQ(prints("  tag add     Add tags to a note.\n  tag remove  Remove tags from a note.\n"),
            notebook({"tag"}));
}

TEST_F(Notebook, ShowsTheHelpOfACommand) {
  EXPECT_EQ(prints(R"(Usage: notebook tag remove [OPTION]... NUMBER

Remove tags from a note.

Operands:
  NUMBER  Which note. From 1 to 999999.

Options:
  -t, --tag=TAG        What it no longer belongs to.
  -a, --all            It belongs to nothing any more.
  -f, --file=FILE      Where the notes are. Default: notes.txt. Environment:
                       NOTEBOOK_FILE.
      --style=STYLE    How much of a note to print. One of: brief, full.
                       Default: brief. Environment: NOTEBOOK_STYLE.
  -q, --quiet          Print no note that was changed. Environment:
                       NOTEBOOK_QUIET.
      --config=CONFIG  Where options of all commands are, one a line. Default:
                       ~/.notebookrc. Environment: NOTEBOOK_CONFIG.
  -h, --help           Show this help.
  -V, --version        Show the version.
)"),
            notebook({"tag", "remove", "--help"}));
}

TEST_F(Notebook, OutputThatCannotBeWrittenIsAnError) {
  writeThree();
  EXPECT_EQ((Outcome{1, "", "notebook: The output cannot be written.\n"}), toFullDevice("list"));
  EXPECT_EQ((Outcome{1, "", ""}), toFullDevice("list --help"));
}

}  // namespace
}  // namespace end_to_end
