#include "textkit_fixture.h"

// textkit under bad conditions: no room for its output, closed streams, a small stack and few open
// files.

namespace end_to_end {
namespace {

const char* const traceSwitch = "kivooption=kivologenable=1";
const char* const closedOrFull[] = {">/dev/full", ">&-"};

class TextkitHardship : public Textkit {};

TEST_F(TextkitHardship, ATraceThatCannotBeWrittenIsOutputThatCannotBeWritten) {
  for (const std::string stream : closedOrFull) {
    SCOPED_TRACE(stream);
    EXPECT_EQ(fails(11, "The output cannot be written."),
              textkitAfter("exec " + stream, {traceSwitch, "-count"}));
    EXPECT_EQ(fails(2, "Unknown option: -zz"),
              textkitAfter("exec " + stream, {traceSwitch, "-count", "-zz"}));
    EXPECT_EQ(fails(1, "Value '200000' is not valid for option 'limit' in argument '-l=200000'"),
              textkitAfter("exec " + stream, {traceSwitch, "-s", "-l=200000"}));
  }
}

TEST_F(TextkitHardship, AnOptionFileMayGetTheDescriptorOfStandardOutput) {
  write("options", std::string(traceSwitch) + "\n-count\n--\ntext\n");
  write("text", "");
  EXPECT_EQ(fails(11, "The output cannot be written."),
            textkitAfter("exec >&-", {traceSwitch, "-opt=options"}));
  EXPECT_EQ(std::string(traceSwitch) + "\n-count\n--\ntext\n", tool({"cat", "options"}).out);
  EXPECT_EQ(fails(6, "Error reading option file 'missing'"),
            textkitAfter("exec >&-", {"-opt=missing"}));
}

TEST_F(TextkitHardship, AWarningThatCannotBeWrittenIsIgnored) {
  for (const std::string stream : closedOrFull) {
    SCOPED_TRACE(stream);
    EXPECT_EQ(prints("5 1 (standard input)\n"),
              textkitAfter("exec 2" + stream, {"-count", "-what=octets,lines"}));
    EXPECT_EQ((Outcome{2, "", ""}), textkitAfter("exec 2" + stream, {"-count", "-what=octet,x"}));
    EXPECT_EQ((Outcome{6, "", ""}), textkitAfter("exec 2" + stream, {"-opt=missing"}));
  }
}

TEST_F(TextkitHardship, WithoutAnyStreamTheExitStatusStillTellsTheOutcome) {
  const char* const closed = "exec <&- >&- 2>&-";
  write("text", "");
  write("options", "-hash\n");
  EXPECT_EQ((Outcome{10, "", ""}), textkitAfter(closed, {"-count", "-what=octets"}));
  EXPECT_EQ((Outcome{11, "", ""}), textkitAfter(closed, {traceSwitch, "-count", "-what=octets"}));
  EXPECT_EQ((Outcome{11, "", ""}), textkitAfter(closed, {"-opt=options", "text"}));
  EXPECT_EQ((Outcome{0, "", ""}), textkitAfter(closed, {"-opt=options", "-dry-run"}));
  EXPECT_EQ((Outcome{2, "", ""}), textkitAfter(closed, {traceSwitch, "-zz"}));
}

// Option files are read one after the other, not recursively.
TEST_F(TextkitHardship, AChainOfOptionFilesNeedsNeitherStackNorOpenFiles) {
  constexpr int length = 10000;
  for (int i = 0; i < length; ++i)
    write(std::to_string(i), "-option-file=" + std::to_string(i + 1) + "\n");
  const char* const scarce = "ulimit -s 1024; ulimit -n 16";
  write(std::to_string(length), "-count\n");
  EXPECT_EQ(prints("1 1 5 (standard input)\n"), textkitAfter(scarce, {"-opt=0"}));
  write(std::to_string(length), "-option-file=0\n");
  EXPECT_EQ(fails(6, "Error reading option file '0'"), textkitAfter(scarce, {"-opt=0"}));
}

TEST_F(TextkitHardship, AMillionLinesAndALongOneComeThroughAnOptionFile) {
  std::string lines = "-search\n";
  for (int i = 0; i < 1000000; ++i)
    lines += "-literal=text\n";
  write("options", lines);
  EXPECT_EQ(prints("text\n"), textkitAfter("ulimit -s 1024", {"-opt=options"}));
  const std::string value(10000000, 'x');
  write("options", "-search\n-limit=" + value + "\n");
  EXPECT_EQ(fails(2, "Value validation problem in argument '-limit=" + value +
                         "': Option 'limit' can not parse '" + value +
                         "' value, requires a type 'unsigned integer' here."),
            textkitAfter("ulimit -s 1024", {"-opt=options"}));
}

}  // namespace
}  // namespace end_to_end
