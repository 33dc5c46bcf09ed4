#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "support/temporary_folder.h"
#include "tried.h"

// Output that cannot be written, files that are none, and input without an end.

namespace kivo_3_3 {
namespace {

// A full disk, or nothing at all, in place of standard output or standard error.
class Unwritable {
 public:
  Unwritable(std::FILE* stream, bool isClosed)
      : m_stream(stream), m_descriptor(fileno(stream)), m_kept(dup(m_descriptor)) {
    std::fflush(stream);
    const int full = open(isClosed ? "/dev/null" : "/dev/full", isClosed ? O_RDONLY : O_WRONLY);
    dup2(full, m_descriptor);
    close(full);
  }
  Unwritable(const Unwritable&) = delete;
  Unwritable& operator=(const Unwritable&) = delete;
  ~Unwritable() {
    std::clearerr(m_stream);
    dup2(m_kept, m_descriptor);
    close(m_kept);
  }

 private:
  std::FILE* m_stream;
  int m_descriptor, m_kept;
};

// The status of a tool that prints to the standard streams, one of which cannot be written.
int statusWithout(std::FILE* stream, bool isClosed, const char* argument) {
  Tool tool("tool", "Tries a tool.", "1.0");
  bool given = false;
  tool.flag("old", given, "").deprecated("do without");
  const Unwritable unwritable(stream, isClosed);
  return tool.parse({argument}).value_or(-1);
}

TEST(ToolOutput, ThatCannotBeWrittenEndsWhatWasAskedForWithOne) {
  for (const bool isClosed : {false, true}) {
    for (const char* asked : {"--help", "--version", "kivooption=kivodescribe=json"})
      EXPECT_EQ(1, statusWithout(stdout, isClosed, asked)) << asked;
  }
}

TEST(ToolOutput, ThatCannotBeWrittenChangesNoOtherStatus) {
  for (const bool isClosed : {false, true}) {
    EXPECT_EQ(2, statusWithout(stderr, isClosed, "--wrong"));
    EXPECT_EQ(-1, statusWithout(stderr, isClosed, "--old"));
  }
}

TEST(ToolOutput, OfALongErrorIsWhole) {
  const std::string word(1'000'000, 'x');
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(2, Tool("tool", "Tries a tool.").parse({word.c_str()}).value_or(-1));
  EXPECT_EQ("tool: Unexpected argument: " + word + "\nTry 'tool --help'.\n",
            ::testing::internal::GetCapturedStderr());
}

// A tool with one option and a configuration file.
class ToolFile : public ::testing::Test {
 protected:
  // What is printed for this file; empty if it was read.
  std::string refusal(const std::string& path) {
    Tried tool;
    tool.option("times", times, "").range(1, 9);
    tool.config("config", "", "");
    const int status = tool.run({("--config=" + path).c_str()});
    EXPECT_EQ(tool.err.empty() ? -1 : 2, status);
    return tool.err;
  }
  static std::string cannotRead(const std::string& path, const char* reason) {
    return "tool: Cannot read '" + path + "': " + reason + "\nTry 'tool --help'.\n";
  }

  const testing::TemporaryFolder folder;
  int times = 1;
};

TEST_F(ToolFile, ThatIsNoneIsRefusedWithTheReasonOfTheSystem) {
  const std::string path = folder.path("rc");
  EXPECT_EQ(cannotRead(path, "No such file or directory"), refusal(path));
  EXPECT_EQ(cannotRead("/dev/null/rc", "Not a directory"), refusal("/dev/null/rc"));
  EXPECT_EQ(cannotRead(folder.path(), "Is a directory"), refusal(folder.path()));
  ASSERT_EQ(0, symlink(path.c_str(), path.c_str()));
  EXPECT_EQ(cannotRead(path, "Too many levels of symbolic links"), refusal(path));
  const std::string longPath = "/" + std::string(100'000, 'x');
  EXPECT_EQ(cannotRead(longPath, "File name too long"), refusal(longPath));
  EXPECT_EQ(1, times);
}

TEST_F(ToolFile, OfTheDefaultPathIsReadUnlessItIsAbsent) {
  const std::string path = folder.path("rc");
  ASSERT_EQ(0, symlink(path.c_str(), path.c_str()));
  for (const std::string& absent : {folder.path("absent"), std::string("/dev/null/rc")}) {
    Tried tool;
    tool.config("config", absent.c_str(), "");
    EXPECT_EQ(-1, tool.run({})) << tool.err;
  }
  Tried tool;
  tool.config("config", path.c_str(), "");
  EXPECT_EQ(2, tool.run({}));
  EXPECT_EQ(cannotRead(path, "Too many levels of symbolic links"), tool.err);
}

TEST_F(ToolFile, WithoutAnEndIsRefused) {
  for (const char* path : {"/dev/zero", "/dev/urandom"})
    EXPECT_EQ(cannotRead(path, "File too large"), refusal(path));
}

TEST_F(ToolFile, WithALineOfAHundredMegabytesIsRefused) {
  const std::string path = folder.write("rc", "--times=" + std::string(100'000'000, '9') + '\n');
  EXPECT_EQ(cannotRead(path, "File too large"), refusal(path));
}

TEST_F(ToolFile, OfSixteenMebibytesIsRead) {
  const std::string end = "\n--times=7\n";
  const std::string comment = '#' + std::string((16U << 20U) - end.size() - 1, 'x');
  EXPECT_EQ("", refusal(folder.write("rc", comment + end)));
  EXPECT_EQ(7, times);
  const std::string path = folder.write("rc", comment + '-' + end);
  EXPECT_EQ(cannotRead(path, "File too large"), refusal(path));
}

// Writes to a pipe with a name until it is closed.
void fill(const std::string& path, const std::string& block, std::size_t times) {
  std::FILE* const pipe = std::fopen(path.c_str(), "w");
  for (; times != 0 && std::fwrite(block.data(), 1, block.size(), pipe) == block.size(); --times)
    continue;
  std::fclose(pipe);
}

TEST_F(ToolFile, ThatIsAPipeIsWaitedForAndReadToItsEnd) {
  const std::string path = folder.path("pipe");
  ASSERT_EQ(0, mkfifo(path.c_str(), 0600));
  std::thread writer(fill, path, "# nothing\n--times=2\n", 1000);
  EXPECT_EQ("", refusal(path));
  writer.join();
  EXPECT_EQ(2, times);
}

TEST_F(ToolFile, ThatIsAnEmptyPipeGivesNothing) {
  const std::string path = folder.path("pipe");
  ASSERT_EQ(0, mkfifo(path.c_str(), 0600));
  std::thread writer(fill, path, "", 0);
  EXPECT_EQ("", refusal(path));
  writer.join();
  EXPECT_EQ(1, times);
}

TEST_F(ToolFile, WithoutALineEndIsReadToItsEnd) {
  EXPECT_EQ("", refusal(folder.write("rc", "--times=2\r\n\r\n\t # no\n--times\n 3")));
  EXPECT_EQ(3, times);
}

TEST(ToolEnvironment, MayHoldTenMegabytes) {
  const std::string text(10'000'000, 'x');
  setenv("TRIED_LONG", text.c_str(), 1);
  std::string value;
  Tried tool;
  tool.option("value", value, "").env("TRIED_LONG");
  EXPECT_EQ(-1, tool.run({})) << tool.err.substr(0, 200);
  EXPECT_EQ(text, value);
  int number = 1;
  Tried other;
  other.option("number", number, "").env("TRIED_LONG");
  EXPECT_EQ(2, other.run({}));
  EXPECT_EQ(0U, other.err.find("tool: Environment variable TRIED_LONG: "));
  int count = 1;
  Tried third;
  third.count("count", count, "").env("TRIED_LONG");
  EXPECT_EQ(2, third.run({}));
  EXPECT_EQ(
      "tool: Environment variable TRIED_LONG: expected a number up to 1000000\n"
      "Try 'tool --help'.\n",
      third.err);
  unsetenv("TRIED_LONG");
}

TEST(ToolEnvironment, MayHoldAnyBytes) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte)
    all += static_cast<char>(byte);
  setenv("TRIED_BYTES", all.c_str(), 1);
  std::string value;
  Tried tool;
  tool.option("value", value, "").env("TRIED_BYTES");
  EXPECT_EQ(-1, tool.run({})) << tool.err;
  EXPECT_EQ(all, value);
  unsetenv("TRIED_BYTES");
}

}  // namespace
}  // namespace kivo_3_3
