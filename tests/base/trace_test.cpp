#include "base/trace.h"

#include <gtest/gtest.h>

#include "bedrock/console.h"
#include "support/command.h"
#include "support/console_capture.h"
#include "support/temporary_folder.h"

namespace kivo_3_3::testing {
namespace {

using internal::kivoLog;
using internal::kivoLogEnabled;

constexpr const char* traceSwitch = "kivooption=kivologenable=1";

const bool enabledAtLoad = kivoLogEnabled;

// The trace is off before and after every test.
class Trace : public ::testing::Test {
 protected:
  Trace() { kivoLogEnabled = false; }
  ~Trace() override { kivoLogEnabled = false; }
};

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(Trace, IsOffAtLoad) { EXPECT_FALSE(enabledAtLoad); }

TEST_F(Trace, WhileOffEveryCallGivesTheSameSilentStream) {
  std::ostream& silent = kivoLog();
  EXPECT_EQ(&silent, &kivoLog());
  silent << "anything" << std::endl;
  EXPECT_EQ(&silent, &kivoLog());
  EXPECT_NE(&BEDROCK::ucout, &silent);
  EXPECT_NE(&BEDROCK::ucerr, &silent);
}

TEST_F(Trace, WhileOnItIsTheConsole) {
  kivoLogEnabled = true;
  EXPECT_EQ(&BEDROCK::ucout, &kivoLog());
}

TEST_F(Trace, SwitchedOnAndOffItIsTheSameSilentStreamAgain) {
  std::ostream& silent = kivoLog();
  kivoLogEnabled = true;
  EXPECT_NE(&silent, &kivoLog());
  kivoLogEnabled = false;
  EXPECT_EQ(&silent, &kivoLog());
}

TEST_F(Trace, TheSilentStreamFailsAtTheFirstWriteAndStaysSo) {
  internal::KivoLog log;
  std::ostream& silent = log.silentStream();
  EXPECT_TRUE(silent.good());
  silent << 'x';
  EXPECT_TRUE(silent.bad());
  silent << "more" << std::endl;
  EXPECT_TRUE(silent.bad());
}

TEST_F(Trace, TheHolderMakesItsSilentStreamOnce) {
  const internal::KivoLog unused;
  internal::KivoLog log;
  EXPECT_EQ(&log.silentStream(), &log.silentStream());
}

TEST_F(Trace, TheSilentBufferTakesNoCharacter) {
  internal::basic_nullbuf<char> buffer;
  EXPECT_EQ(std::char_traits<char>::eof(), buffer.sputc('x'));
  EXPECT_EQ(0, buffer.sputn("abc", 3));
}

TEST_F(Trace, ALineEndsWithALineBreak) {
  const ConsoleCapture console;
  kivoLogEnabled = true;
  internal::traceLine("Writer: ", "1");
  internal::traceLine("Writer: ", std::string("2"));
  EXPECT_EQ("Writer: 1\nWriter: 2\n", console.out());
  EXPECT_EQ("", console.err());
}

TEST_F(Trace, ALineIsFlushed) {
  struct CountsFlushes : std::stringbuf {
    int flushes = 0;
    int sync() override { return ++flushes, 0; }
  } buffer;
  kivoLogEnabled = true;
  std::streambuf* const console = BEDROCK::ucout.rdbuf(&buffer);
  internal::traceLine("Writer: line");
  BEDROCK::ucout.rdbuf(console);
  EXPECT_EQ(1, buffer.flushes);
}

TEST_F(Trace, WhileOffNoLineIsComposed) {
  struct Watched {
    operator std::string_view() const { return wasRead = true, "part"; }
    mutable bool wasRead = false;
  } part;
  const ConsoleCapture console;
  internal::traceLine("Writer: ", part);
  EXPECT_FALSE(part.wasRead);
  EXPECT_EQ("", console.out());
}

TEST_F(Trace, WithoutTheSwitchNoParseWritesAnything) {
  const std::vector<std::string> commandLines[] = {
      {},
      {"--level=3", "file", "--", "rest"},
      {"--level=x"},
      {"--level"},
      {"--unknown"},
      {"--level=3", traceSwitch},
      {"--", traceSwitch},
      {"kivooption=kivologenable=0", "--level=3"},
      {" kivooption=kivologenable=1", "--level=3"},
  };
  for (const auto& args : commandLines) {
    SCOPED_TRACE(args.empty() ? "nothing" : args.back());
    Command command(parserFlags::leftoverArgumentsArePositional);
    command.option("level,l", vtS32);
    const ConsoleCapture console;
    command.parse(args);
    EXPECT_EQ("", console.out());
    EXPECT_EQ("", console.err());
  }
}

TEST_F(Trace, TheSwitchAsFirstArgumentWritesTheLinesToStandardOutput) {
  Command command;
  const ConsoleCapture console;
  EXPECT_EQ(0, command.parse({traceSwitch, "plain", "--", "rest"}));
  EXPECT_EQ(
      "PositionalOptionsParser: recognizing argument 'plain'\n"
      "AbbreviationParser: recognizing argument 'plain'\n"
      "ignoring plain\n"
      "collectNonparsingArguments: stored argument: 'rest'\n",
      console.out());
  EXPECT_EQ("", console.err());
}

TEST_F(Trace, NoRecognizerSeesTheSwitchAndNoResultStoresIt) {
  Command command;
  command.option("word", vtString)->positional();
  const ConsoleCapture console;
  EXPECT_EQ("word=a@+1", command.parsed({traceSwitch, "a"}));
  EXPECT_FALSE(contains(console.out(), "kivologenable")) << console.out();
  EXPECT_TRUE(contains(console.out(), "PositionalOptionsParser: parsing argument 'a'\n"));
}

TEST_F(Trace, IsSwitchedOnOrOffByEveryParse) {
  Command command;
  command.option("level", vtS32);
  {
    const ConsoleCapture console;
    EXPECT_EQ(0, command.parse({traceSwitch, "--level=3"}));
    EXPECT_NE("", console.out());
  }
  const ConsoleCapture console;
  EXPECT_EQ(0, command.parse({"--level=3"}));
  EXPECT_EQ("", console.out());
}

TEST_F(Trace, IsSwitchedOnOrOffByEveryOptionFile) {
  const TemporaryFolder folder;
  const std::string silent = folder.write("silent", "--level=3\n");
  const std::string traced = folder.write("traced", std::string(traceSwitch) + "\n--level=4\n");
  Command command;
  command.option("level", vtS32);
  command.optionFiles();
  const ConsoleCapture console;
  EXPECT_EQ(0, command.parse({traceSwitch, "--level=2", "--option-file=" + silent,
                              "--option-file=" + traced}));
  EXPECT_TRUE(contains(console.out(), "recognizing argument '--level=2'"));
  EXPECT_FALSE(contains(console.out(), "recognizing argument '--level=3'"));
  EXPECT_TRUE(contains(console.out(), "recognizing argument '--level=4'"));
}

}  // namespace
}  // namespace kivo_3_3::testing
