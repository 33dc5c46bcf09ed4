#include "textkit_fixture.h"

// The whole trace of a parse: what is tried, in which order, and with which outcome.

namespace end_to_end {
namespace {

const char* const traceSwitch = "kivooption=kivologenable=1";

class TextkitTrace : public Textkit {};

// The trace of: an action after a typographic dash; a value in the next argument, which is split
// and completed; a positional argument; a negated boolean; a value in the same argument, which is
// not split; an argument after the separator.
const char* const wholeTrace =
    "PositionalOptionsParser: recognizing argument '\u2013cou'\n"
    "AbbreviationParser: recognizing argument '\u2013cou'\n"
    "AbbreviationParser: best match option for 'cou' in argument '\u2013cou' is 'count'\n"
    "AbbreviationParser: parsing argument '\u2013cou'\n"
    "AbbreviationParser: detected option: 'count'\n"
    "AbbreviationParser: sent event on option parsed\n"
    "AbbreviationParser: stored option to result container.\n"
    "AbbreviationParser: removing argument: '\u2013cou'\n"
    "PositionalOptionsParser: recognizing argument '-w'\n"
    "AbbreviationParser: recognizing argument '-w'\n"
    "AbbreviationParser: best match option for 'w' in argument '-w' is 'w'\n"
    "AbbreviationParser: parsing argument '-w'\n"
    "AbbreviationParser: detected option: 'what'\n"
    "AbbreviationParser: no value in the same argument, looking next\n"
    "AbbreviationParser: got value from the next argument: 'li,oct'\n"
    "AbbreviationParser: sent event on option parsed\n"
    "AbbreviationParser: adding values to result container:\n"
    "AbbreviationParser: using tokenizer on char: ','\n"
    "AbbreviationParser: value is: 'li'\n"
    "AbbreviationParser: sent event on value parsed, option: 'what', value: 'lines'\n"
    "AbbreviationParser: value is: 'oct'\n"
    "AbbreviationParser: sent event on value parsed, option: 'what', value: 'octets'\n"
    "AbbreviationParser: stored option to result container.\n"
    "AbbreviationParser: removing argument: '-w'\n"
    "AbbreviationParser: removing argument: 'li,oct'\n"
    "PositionalOptionsParser: recognizing argument 'text'\n"
    "AbbreviationParser: recognizing argument 'text'\n"
    "PositionalOptionsParser: parsing argument 'text'\n"
    "PositionalOptionsParser: option is 'file'\n"
    "PositionalOptionsParser: adding values to result container:\n"
    "PositionalOptionsParser: not using tokenizer\n"
    "PositionalOptionsParser: stored option to result container.\n"
    "PositionalOptionsParser: removing argument: 'text'\n"
    "PositionalOptionsParser: recognizing argument '--no-quiet'\n"
    "AbbreviationParser: recognizing argument '--no-quiet'\n"
    "AbbreviationParser: best match option for 'no-quiet' in argument '--no-quiet' is "
    "'no-quiet'\n"
    "AbbreviationParser: parsing argument '--no-quiet'\n"
    "AbbreviationParser: detected option: 'quiet'\n"
    "AbbreviationParser: sent event on option parsed\n"
    "AbbreviationParser: adding values to result container:\n"
    "AbbreviationParser: not using tokenizer\n"
    "AbbreviationParser: stored option to result container.\n"
    "AbbreviationParser: removing argument: '--no-quiet'\n"
    "PositionalOptionsParser: recognizing argument '-skip=1'\n"
    "AbbreviationParser: recognizing argument '-skip=1'\n"
    "AbbreviationParser: best match option for 'skip' in argument '-skip=1' is 'skip'\n"
    "AbbreviationParser: parsing argument '-skip=1'\n"
    "AbbreviationParser: detected option: 'skip'\n"
    "AbbreviationParser: value from the same argument taken: '1'\n"
    "AbbreviationParser: sent event on option parsed\n"
    "AbbreviationParser: adding values to result container:\n"
    "AbbreviationParser: not using tokenizer\n"
    "AbbreviationParser: stored option to result container.\n"
    "AbbreviationParser: removing argument: '-skip=1'\n"
    "collectNonparsingArguments: stored argument: '-'\n";

TEST_F(TextkitTrace, ShowsTheWholeParse) {
  write("text", "a\nb\n");
  const Outcome traced = textkit(
      {traceSwitch, "\u2013cou", "-w", "li,oct", "text", "--no-quiet", "-skip=1", "--", "-"},
      "one\n");
  EXPECT_EQ((Outcome{0, std::string(wholeTrace) + "2 3 text\n1 3 (standard input)\n3 6 total\n",
                     "Warning: 'octets' argument is deprecated for the option '-what'. Use the "
                     "'bytes' argument instead.\n"}),
            traced);
}

TEST_F(TextkitTrace, EndsWithTheFailureOfAMissingValue) {
  const char* const trace =
      "PositionalOptionsParser: recognizing argument '-search'\n"
      "AbbreviationParser: recognizing argument '-search'\n"
      "AbbreviationParser: best match option for 'search' in argument '-search' is 'search'\n"
      "AbbreviationParser: parsing argument '-search'\n"
      "AbbreviationParser: detected option: 'search'\n"
      "AbbreviationParser: sent event on option parsed\n"
      "AbbreviationParser: stored option to result container.\n"
      "AbbreviationParser: removing argument: '-search'\n"
      "PositionalOptionsParser: recognizing argument '-p'\n"
      "AbbreviationParser: recognizing argument '-p'\n"
      "AbbreviationParser: best match option for 'p' in argument '-p' is 'p'\n"
      "AbbreviationParser: parsing argument '-p'\n"
      "AbbreviationParser: detected option: 'pattern'\n"
      "AbbreviationParser: no value in the same argument, looking next\n"
      "AbbreviationParser: Option 'pattern' requires a value in argument: '-p'\n";
  EXPECT_EQ((Outcome{2, trace, "textkit: Option 'pattern' requires a value in argument: '-p'\n"}),
            textkit({traceSwitch, "-search", "-p"}));
}

TEST_F(TextkitTrace, OfAnAmbiguousOptionNamesTheCandidates) {
  const char* const trace =
      "PositionalOptionsParser: recognizing argument '-co'\n"
      "AbbreviationParser: recognizing argument '-co'\n"
      "AbbreviationParser: failed to get best match for 'co' in argument '-co':Ambiguous option, "
      "possible options are: 'count', 'context'\n"
      "AbbreviationParser: parsing argument '-co'\n";
  EXPECT_EQ((Outcome{2, trace,
                     "textkit: Ambiguous option 'co' in argument: '-co', could be: 'count', "
                     "'context'\n"}),
            textkit({traceSwitch, "-co"}));
}

TEST_F(TextkitTrace, OfARefusedValueNamesTheHandler) {
  const char* const trace =
      "PositionalOptionsParser: recognizing argument '-limit=200000'\n"
      "AbbreviationParser: recognizing argument '-limit=200000'\n"
      "AbbreviationParser: best match option for 'limit' in argument '-limit=200000' is 'limit'\n"
      "AbbreviationParser: parsing argument '-limit=200000'\n"
      "AbbreviationParser: detected option: 'limit'\n"
      "AbbreviationParser: value from the same argument taken: '200000'\n"
      "AbbreviationParser: sent event on option parsed\n"
      "AbbreviationParser: adding values to result container:\n"
      "AbbreviationParser: not using tokenizer\n"
      "AbbreviationParserValue '200000' is not valid for option 'limit' in argument "
      "'-limit=200000' One of the handler signaled the value is not valid.\n";
  EXPECT_EQ((Outcome{1, trace,
                     "textkit: Value '200000' is not valid for option 'limit' in argument "
                     "'-limit=200000'\n"}),
            textkit({traceSwitch, "-limit=200000"}));
}

TEST_F(TextkitTrace, EndsWhereAnOptionFileBegins) {
  write("silent", "-count\n");
  write("traced", std::string(traceSwitch) + "\n--\ntext\n");
  write("text", "");
  const char* const optionFile =
      "PositionalOptionsParser: recognizing argument '-opt=silent'\n"
      "AbbreviationParser: recognizing argument '-opt=silent'\n"
      "AbbreviationParser: best match option for 'opt' in argument '-opt=silent' is "
      "'option-file'\n"
      "AbbreviationParser: parsing argument '-opt=silent'\n"
      "AbbreviationParser: detected option: 'option-file'\n"
      "AbbreviationParser: value from the same argument taken: 'silent'\n"
      "AbbreviationParser: sent event on option parsed\n"
      "AbbreviationParser: adding values to result container:\n"
      "AbbreviationParser: not using tokenizer\n"
      "AbbreviationParser: stored option to result container.\n"
      "AbbreviationParser: removing argument: '-opt=silent'\n";
  EXPECT_EQ(prints(std::string(optionFile) + "0 0 0 (standard input)\n"),
            textkit({traceSwitch, "-opt=silent"}));
  EXPECT_EQ(prints("collectNonparsingArguments: stored argument: 'text'\n0 0 0 text\n"),
            textkit({"-opt=silent", "-opt=traced"}));
}

TEST_F(TextkitTrace, WithoutTheSwitchInFrontIsSilent) {
  EXPECT_EQ((Outcome{10, "",
                     std::string("textkit: Cannot read '") + traceSwitch +
                         "': No such file or directory\n"}),
            textkit({"-hash", traceSwitch}));
}

}  // namespace
}  // namespace end_to_end
