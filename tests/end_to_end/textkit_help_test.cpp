#include "support/golden_file.h"
#include "textkit_fixture.h"

// The help of textkit: the topics, one action with everything that goes with it, and the hidden
// options.

namespace end_to_end {
namespace {

class TextkitHelp : public Textkit {
 protected:
  // The command line as a user types it, and its output.
  std::string shown(const Arguments& arguments) const {
    std::string text = "$ textkit";
    for (const std::string& argument : arguments)
      text += " " + argument;
    const Outcome outcome = textkit(arguments);
    EXPECT_EQ(0, outcome.status) << text;
    EXPECT_EQ("", outcome.err) << text;
    return text + "\n" + outcome.out;
  }
};

const char* const topics =
    "    count         Count lines, words, bytes, characters or blank lines.\n"
    "    hash          Show the 64-bit FNV-1a hash.\n"
    "    help          Show the actions, or all about those that are named.\n"
    "    help-hidden   Show the options that help leaves out.\n"
    "    search        Show the lines that hold a text.\n";

const char* const helpOnHash =
    "-hash, -x, -checksum          Show the 64-bit FNV-1a hash.\n"
    "-basis, -b=<unsigned 64 bit or hex> (14695981039346656037)\n"
    "                              Start value of the hash, as in\n"
    "                              0xcbf29ce484222325.\n"
    "-skip, -k=<64 bit integer> (0)\n"
    "                              Bytes to pass over in each file; with a negative \n"
    "                              number all but so many at its end.\n"
    "\n"
    "With every action:\n"
    "-format, -f=plain | csv (plain)\n"
    "                              How to write the result.\n"
    "-option-file=<string>         A file with further arguments, one a line.\n"
    "-quiet, -q | -no-quiet (default)\n"
    "                              Say nothing of files that cannot be read; the\n"
    "                              later of the two counts.\n"
    "-verbose, -v | -no-verbose (default)\n"
    "                              Tell on standard error what is read.\n";

const char* const helpOnLimit =
    "-limit, -l=<unsigned integer> Matching lines to show from each file, at most\n"
    "                              100000.\n";

const char* const hiddenHelp =
    "kivo_hidden\n"
    " For those who test scripts around textkit.\n"
    "\n"
    "-dry-run                      Read the command line and stop there.\n";

TEST_F(TextkitHelp, WithoutATopicListsTheActions) {
  for (const char* action : {"-help", "--help", "-h", "\u2013help"})
    EXPECT_EQ(prints(topics), textkit({action})) << action;
  EXPECT_EQ(prints(topics), textkit({"-help", ""}));
  EXPECT_EQ(prints(topics), textkit({"-help", "--"}));
}

TEST_F(TextkitHelp, OnAnActionShowsAllThatCanBeGivenWithIt) {
  for (const char* name : {"hash", "x", "checksum"}) {
    EXPECT_EQ(prints(helpOnHash), textkit({"-help", name})) << name;
    EXPECT_EQ(prints(helpOnHash), textkit({name, "-h"})) << name;
    EXPECT_EQ(prints(helpOnHash), textkit({"-h", "--", name})) << name;
  }
}

TEST_F(TextkitHelp, OnAnOptionShowsThatOptionAlone) {
  EXPECT_EQ(prints(helpOnLimit), textkit({"-help", "limit"}));
  EXPECT_EQ(prints(helpOnLimit), textkit({"-help", "l"}));
}

TEST_F(TextkitHelp, TakesSeveralTopics) {
  EXPECT_EQ(prints(std::string(helpOnHash) + "\n" + helpOnLimit),
            textkit({"-help", "hash", "limit"}));
}

TEST_F(TextkitHelp, OnAnUnknownTopicListsTheActions) {
  EXPECT_EQ(prints(std::string("Help for sea not available.Please use one of the following "
                               "topics:\n") +
                   topics),
            textkit({"-help", "sea"}));
}

TEST_F(TextkitHelp, ShowsWhatIsHiddenOnlyWhenAskedForIt) {
  EXPECT_EQ(prints(hiddenHelp), textkit({"-help-hidden"}));
  EXPECT_EQ(prints(""), textkit({"-help", "dry-run"}));
  EXPECT_EQ(fails(2, "Action '-help-hidden' takes no topic."), textkit({"-help-hidden", "hash"}));
}

TEST_F(TextkitHelp, HidesAnOptionThatWorksLikeTheOthers) {
  EXPECT_EQ(prints(""), textkit({"-count", "-dry-run", "missing"}));
  EXPECT_EQ(fails(2, "Unknown option: -zz"), textkit({"-count", "-dry-run", "-zz"}));
  EXPECT_EQ(prints(topics), textkit({"-help", "-dry-run"}));
}

TEST_F(TextkitHelp, IsAnActionLikeTheOthers) {
  EXPECT_EQ(fails(2,
                  "Action '-help' and action '-count' were defined, but only one action "
                  "possible."),
            textkit({"-help", "-count"}));
  EXPECT_EQ(fails(2, "Action '-help' doesn't accept option '-limit'"),
            textkit({"-help", "-limit=3"}));
  EXPECT_EQ(fails(2, "Ambiguous option 'hel' in argument: '-hel', could be: 'help', 'help-hidden'"),
            textkit({"-hel"}));
}

TEST_F(TextkitHelp, ThatCannotBeWrittenIsAnError) {
  EXPECT_EQ(fails(11, "The output cannot be written."),
            textkitAfter("exec > /dev/full", {"-help"}));
}

TEST_F(TextkitHelp, IsEqualToTheGoldenFile) {
  std::string help = shown({"-help"});
  for (const char* action : {"count", "hash", "help", "help-hidden", "search"})
    help += shown({"-help", action});
  help += shown({"-help-hidden"});
  kivo_3_3::testing::compareWithFile(HELP_FOLDER "/textkit.txt", help);
}

}  // namespace
}  // namespace end_to_end
