#include "textkit_fixture.h"

// How textkit reads a command line, and how it reports mistakes: every error is one line on
// standard error, with nothing on standard output.

namespace end_to_end {
namespace {

class TextkitErrors : public Textkit {};
class TextkitOptions : public Textkit {};
class TextkitOptionFile : public Textkit {};
class TextkitFiles : public Textkit {};

struct Mistake {
  Arguments arguments;
  int status;
  const char* message;
};

TEST_F(TextkitErrors, AnArgumentThatLooksLikeAnOptionAndIsNoneIsUnknown) {
  const Mistake mistakes[] = {
      {{"-count", "-zz"}, 2, "Unknown option: -zz"},
      {{"-count", "--zz=1", "-limit=x"}, 2, "Unknown option: --zz=1"},
      {{"-count", "-"}, 2, "Unknown option: -"},
      {{"---count"}, 2, "Unknown option: ---count"},
      {{"-Count"}, 2, "Unknown option: -Count"},
      {{"-count", "kivooption=kivologenable=1", "-zz"}, 2, "Unknown option: -zz"},
      // Dashes without a name match every name, but are an unknown option.
      {{"-=x"}, 2, "Unknown option '-=x'"},
      {{"\u2013"}, 2, "Unknown option '\u2013'"},
      {{"-\u2013 x"}, 2, "Unknown option '-\u2013 x'"},
  };
  for (const Mistake& m : mistakes)
    EXPECT_EQ(fails(m.status, m.message), textkit(m.arguments)) << m.message;
}

TEST_F(TextkitErrors, AnAbbreviationThatFitsSeveralNamesIsAmbiguous) {
  const Mistake mistakes[] = {
      {{"-co"}, 2, "Ambiguous option 'co' in argument: '-co', could be: 'count', 'context'"},
      {{"--li=3", "-search"},
       2,
       "Ambiguous option 'li' in argument: '--li=3', could be: 'literal', 'line-number', 'limit'"},
      {{"-no-"},
       2,
       "Ambiguous option 'no-' in argument: '-no-', could be: 'no-ignore-case', 'no-i', "
       "'no-line-number', 'no-n', 'no-verbose', 'no-v', 'no-quiet', 'no-q'"},
  };
  for (const Mistake& m : mistakes)
    EXPECT_EQ(fails(m.status, m.message), textkit(m.arguments)) << m.message;
}

TEST_F(TextkitErrors, AMissingOrUnexpectedValueIsReportedUnderThePrimaryName) {
  const Mistake mistakes[] = {
      {{"-search", "-p"}, 2, "Option 'pattern' requires a value in argument: '-p'"},
      {{"-search", "-pattern="}, 2, "Option 'pattern' requires a value in argument: '-pattern='"},
      {{"-search", "-p", ""}, 2, "Option 'pattern' requires a value in argument: '-p'"},
      {{"-search", "-C", "-2"},
       2,
       "Option 'context' received value from the next argument: '-2', but it seems to be an "
       "option. Use '-option=value' declaration form or make sure that value is not missed"},
      {{"-search", "-no-i=1"},
       2,
       "Option 'ignore-case' is boolean and should be declared in form '--option' or "
       "'--no-option' in argument: '-no-i=1'"},
      {{"-c=3"}, 2, "Option 'count'does not requires a value in argument: '-c=3'"},
      {{"-search", "-p=,,"}, 2, "No value parsed in argument ',,' for option 'pattern'"},
  };
  for (const Mistake& m : mistakes)
    EXPECT_EQ(fails(m.status, m.message), textkit(m.arguments)) << m.message;
}

TEST_F(TextkitErrors, AValueOfTheWrongTypeIsReportedWithTheRequiredType) {
  const struct {
    const char* argument;
    const char* option;
    const char* type;
  } cases[] = {
      {"-limit=x", "limit", "unsigned integer"},
      {"-limit=3,4", "limit", "unsigned integer"},
      {"-context=1.5", "context", "integer"},
      {"-context=0x10", "context", "integer"},
      {"-context=2147483648", "context", "integer"},
      {"-min-ratio=half", "min-ratio", "double"},
      {"-skip=9223372036854775808", "skip", "64 bit integer"},
      {"-basis=FF", "basis", "unsigned 64 bit or hex"},
  };
  for (const auto& c : cases) {
    const std::string argument = c.argument;
    const std::string value = argument.substr(argument.find('=') + 1);
    EXPECT_EQ(fails(2, "Value validation problem in argument '" + argument + "': Option '" +
                           c.option + "' can not parse '" + value + "' value, requires a type '" +
                           c.type + "' here."),
              textkit({"-search", argument}));
  }
}

TEST_F(TextkitErrors, AValueThatIsNotAllowedIsReportedWithTheAllowedOnes) {
  const Mistake mistakes[] = {
      {{"-count", "-what=pages"},
       2,
       "Value validation problem in argument '-what=pages': Option 'what' does not allow value "
       "'pages'. Possible values follows: 'lines', 'words', 'bytes', 'chars', 'blank'"},
      {{"-count", "-what", "lines,b"},
       2,
       "Value validation problem in argument '-what': Ambiguous value for option 'what'. "
       "Possible values follows: 'lines', 'words', 'bytes', 'chars', 'blank'"},
      {{"-count", "-what=Lines"},
       2,
       "Value validation problem in argument '-what=Lines': Option 'what' does not allow value "
       "'Lines'. Possible values follows: 'lines', 'words', 'bytes', 'chars', 'blank'"},
      {{"-count", "-format=csv,plain"},
       2,
       "Value validation problem in argument '-format=csv,plain': Option 'format' does not allow "
       "value 'csv,plain'. Possible values follows: 'plain', 'csv'"},
  };
  for (const Mistake& m : mistakes)
    EXPECT_EQ(fails(m.status, m.message), textkit(m.arguments)) << m.message;
}

TEST_F(TextkitErrors, AValueOverItsBoundIsRefused) {
  const Mistake mistakes[] = {
      {{"-search", "-limit=100001"},
       1,
       "Value '100001' is not valid for option 'limit' in argument '-limit=100001'"},
      {{"-search", "-l", "100001"},
       1,
       "Value '100001' is not valid for option 'limit' in argument '-l'"},
      // Unsigned types accept a minus sign; the value wraps around.
      {{"-search", "-limit=-1"},
       1,
       "Value '-1' is not valid for option 'limit' in argument '-limit=-1'"},
      {{"-count", "-min-ratio=1.01"},
       1,
       "Value '1.01' is not valid for option 'min-ratio' in argument '-min-ratio=1.01'"},
  };
  for (const Mistake& m : mistakes)
    EXPECT_EQ(fails(m.status, m.message), textkit(m.arguments)) << m.message;
  EXPECT_EQ(prints(""), textkit({"-search", "-pattern=x", "-limit=100000"}));
}

TEST_F(TextkitErrors, ActionsAndModifiersThatDoNotGoTogetherAreReported) {
  const Mistake mistakes[] = {
      {{"-count", "-search"},
       2,
       "Action '-search' and action '-count' were defined, but only one action possible."},
      {{"-search", "-hash"},
       2,
       "Action '-search' and action '-hash' were defined, but only one action possible."},
      // The message names an action that fits no allowed set, and the first action by name.
      {{"-search", "-x", "-count"},
       2,
       "Action '-search' and action '-count' were defined, but only one action possible."},
      {{"-count", "-limit=3"}, 2, "Action '-count' doesn't accept option '-limit'"},
      {{"-search", "-p=x", "-b", "1"}, 2, "Action '-search' doesn't accept option '-basis'"},
      {{"-hash", "-what=lines"}, 2, "Action '-hash' doesn't accept option '-what'"},
      {{"text"}, 2, "No action defined."},
      {{"--", "-count"}, 2, "No action defined."},
      {{}, 2, "No action defined."},
      {{"-search"}, 2, "Action '-search' needs a '-pattern' or a '-literal'."},
      {{"-count", ""}, 2, "A file name is empty."},
      {{"-count", "text", ""}, 2, "A file name is empty."},
  };
  for (const Mistake& m : mistakes)
    EXPECT_EQ(fails(m.status, m.message), textkit(m.arguments)) << m.message;
}

TEST_F(TextkitErrors, AnActionMayBeGivenTwice) {
  EXPECT_EQ(prints("1 (standard input)\n"), textkit({"-c", "-count", "-what=bytes"}, "x"));
}

TEST_F(TextkitErrors, OutputThatCannotBeWrittenIsAnErrorOfItsOwn) {
  const Outcome outcome = textkitAfter("exec > /dev/full", {"-count"});
  EXPECT_EQ(fails(11, "The output cannot be written."), outcome);
}

TEST_F(TextkitOptions, AreFoundByAbbreviationAndAfterAnyDash) {
  for (const char* action : {"-count", "--count", "-c", "-cou", "--cou", "\u2012cou", "\u2013count",
                             "\u2014c", "\u2015count", "\u2053count", "\u2013-count"}) {
    EXPECT_EQ(prints("1 1 2 (standard input)\n"), textkit({action}, "x\n")) << action;
  }
}

TEST_F(TextkitOptions, AfterATypographicDashThatMatchNoNameAreFiles) {
  EXPECT_EQ(fails(2, "No action defined."), textkit({"\u2013cuont"}));
  EXPECT_EQ((Outcome{10, "", "textkit: Cannot read '\u2013zz': No such file or directory\n"}),
            textkit({"-count", "\u2013zz"}));
}

TEST_F(TextkitOptions, TakeTheirValueFromTheSameOrTheNextArgument) {
  for (const Arguments& pattern :
       {Arguments{"-pattern=x"}, Arguments{"-pattern", "x"}, Arguments{"-pattern x"},
        Arguments{"--pat=x"}, Arguments{"-p", "x"}, Arguments{"-p=", "x"}, Arguments{"-p \t x"}}) {
    Arguments arguments = {"-search"};
    arguments.insert(arguments.end(), pattern.begin(), pattern.end());
    EXPECT_EQ(prints("x\n"), textkit(arguments, "x\ny\n")) << testing::PrintToString(pattern);
  }
}

TEST_F(TextkitOptions, TakeANextArgumentThatBeginsWithATypographicDash) {
  EXPECT_EQ(prints("\u2013x\n"), textkit({"-search", "-pattern", "\u2013x"}, "\u2013x\ny\n"));
  EXPECT_EQ(prints("-x\n"), textkit({"-search", "-pattern=-x"}, "-x\ny\n"));
}

TEST_F(TextkitOptions, CompleteAnAbbreviatedValue) {
  EXPECT_EQ(prints("file,words,lines\n(standard input),1,0\n"),
            textkit({"-count", "-what=w,li", "-format=c"}, "x"));
}

TEST_F(TextkitOptions, WarnAboutADeprecatedValueAndAcceptIt) {
  const Outcome warned = {0, "1 (standard input)\n",
                          "Warning: 'octets' argument is deprecated for the option '-what'. Use "
                          "the 'bytes' argument instead.\n"};
  EXPECT_EQ(warned, textkit({"-count", "-what=octets"}, "x"));
  EXPECT_EQ(warned, textkit({"-count", "-w=o"}, "x"));
}

TEST_F(TextkitOptions, GivenTwiceHaveTheirLastValue) {
  EXPECT_EQ(prints("X\n"), textkit({"-search", "-p=x", "-no-i", "-ignore-case"}, "X\n"));
  EXPECT_EQ(prints(""), textkit({"-search", "-p=x", "-i", "-no-ignore-case"}, "X\n"));
  EXPECT_EQ(prints("x\n"), textkit({"-search", "-p=x", "-limit=2", "-limit=1"}, "x\nx\nx\n"));
}

TEST_F(TextkitOptions, OfQuietAndVerboseTheLaterOneCounts) {
  const std::string problem = "textkit: Cannot read 'missing': No such file or directory\n";
  const std::string remark = "textkit: Read 1 bytes from 'text'\n";
  const struct {
    Arguments options;
    std::string err;
  } cases[] = {
      {{}, problem},
      {{"-verbose"}, remark + problem},
      {{"-quiet"}, ""},
      {{"-quiet", "-verbose"}, remark + problem},
      {{"-verbose", "-quiet"}, ""},
      {{"-v", "-q", "-v"}, remark + problem},
      {{"-verbose", "-no-quiet"}, problem},
      {{"-quiet", "-no-verbose"}, problem},
  };
  write("text", "x");
  for (const auto& c : cases) {
    Arguments arguments = {"-count", "-what=bytes", "-format=csv", "text", "missing"};
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    EXPECT_EQ((Outcome{10, "file,bytes\ntext,1\n", c.err}), textkit(arguments))
        << testing::PrintToString(c.options);
  }
}

TEST_F(TextkitFiles, AfterTheSeparatorMayLookLikeOptions) {
  write("-zz", "x");
  write("--", "xx");
  write("text", "xxx");
  EXPECT_EQ(prints("3 text\n1 -zz\n2 --\n6 total\n"),
            textkit({"-count", "-what=bytes", "text", "--", "-zz", "--"}));
}

TEST_F(TextkitFiles, NamedByADashAfterTheSeparatorAreStandardInput) {
  EXPECT_EQ(prints("(standard input):x\n(standard input)-y\n"),
            textkit({"-search", "-p=x", "-context=1", "--", "-", "-"}, "x\ny\n"));
}

TEST_F(TextkitFiles, KeepTheCommasInTheirNames) {
  write("a,b", "x");
  EXPECT_EQ(prints("1 a,b\n"), textkit({"-count", "-what=bytes", "a,b"}));
  EXPECT_EQ(prints("1 a,b\n"), textkit({"-count", "-what=bytes", "-file=a,b"}));
}

TEST_F(TextkitFiles, ThatCannotBeReadAreReportedAndSkipped) {
  write("text", "x\n");
  makeFolder("folder");
  EXPECT_EQ((Outcome{10, "1 text\n1 total\n",
                     "textkit: Cannot read 'missing': No such file or directory\n"
                     "textkit: Cannot read 'folder': Is a directory\n"
                     "textkit: Cannot read '': No such file or directory\n"}),
            textkit({"-count", "-what=lines", "missing", "folder", "text", "--", ""}));
  EXPECT_EQ((Outcome{10, "", "textkit: Cannot read 'folder': Is a directory\n"}),
            textkit({"-search", "-p=x", "folder"}));
}

TEST_F(TextkitFiles, StandardInputThatIsClosedCannotBeRead) {
  EXPECT_EQ((Outcome{10, "", "textkit: Cannot read '(standard input)': Bad file descriptor\n"}),
            textkitAfter("exec <&-", {"-hash"}));
}

TEST_F(TextkitOptionFile, HoldsOneArgumentALineAndComments) {
  write("text", "two words\ntwo,words #\nnone\n");
  write("options",
        "; what to do\n"
        "  -search\r\n"
        "\n"
        "   # a remark\n"
        "\t-literal=two,words #\n"
        "-pattern two w\n"
        "--\n"
        "text");
  EXPECT_EQ(prints("two words\ntwo,words #\n"), textkit({"-option-file=options"}));
}

TEST_F(TextkitOptionFile, MayNameFurtherFilesWhichAreReadAfterAllTheOthers) {
  write("first", "-option-file=third\none\n");
  write("second", "two\n");
  write("third", "three\n-count\n");
  for (const char* name : {"zero", "one", "two", "three"})
    write(name, "");
  EXPECT_EQ(prints("file,bytes\nzero,0\none,0\ntwo,0\nthree,0\n"),
            textkit({"-option-file", "first", "-opt=second", "zero", "-w=by", "-f=csv"}));
}

TEST_F(TextkitOptionFile, CountsAsLaterThanTheCommandLine) {
  write("options", "-no-ignore-case\n-quiet\n");
  EXPECT_EQ((Outcome{10, "", ""}),
            textkit({"-option-file=options", "-search", "-p=x", "-i", "-v", "missing"}));
}

TEST_F(TextkitOptionFile, MayBeReadTwice) {
  write("options", "text\n");
  write("text", "x");
  EXPECT_EQ(prints("1 text\n1 text\n2 total\n"),
            textkit({"-c", "-what=bytes", "-opt=options", "-opt=options"}));
}

TEST_F(TextkitOptionFile, ThatCannotBeReadEndsTheParse) {
  write("outer", "-option-file=inner");
  write("ring", "-option-file=ring");
  write("knot", "-option-file=tie");
  write("tie", "-option-file=knot");
  makeFolder("folder");
  const Mistake mistakes[] = {
      {{"-count", "-option-file=missing"}, 6, "Error reading option file 'missing'"},
      {{"-count", "-option-file", "folder"}, 6, "Error reading option file 'folder'"},
      {{"-count", "-option-file=outer"}, 6, "Error reading option file 'inner'"},
      {{"-count", "-option-file=a,b"}, 6, "Error reading option file 'a,b'"},
      {{"-count", "-option-file=ring"}, 6, "Error reading option file 'ring'"},
      {{"-count", "-option-file=knot"}, 6, "Error reading option file 'knot'"},
  };
  for (const Mistake& m : mistakes)
    EXPECT_EQ(fails(m.status, m.message), textkit(m.arguments)) << m.message;
}

TEST_F(TextkitOptionFile, WithAMistakeIsReportedLikeTheCommandLine) {
  write("options", "-count\n-zz\n");
  write("minus-one", "-1");
  EXPECT_EQ(fails(2, "Unknown option: -zz"), textkit({"-option-file=options"}));
  EXPECT_EQ((Outcome{10, "", "textkit: Cannot read '?': No such file or directory\n"}),
            textkit({"-count", "-option-file=minus-one"}));
}

}  // namespace
}  // namespace end_to_end
