#include "bedrock/file.h"

#include <gtest/gtest.h>
#include <unistd.h>
#include <utime.h>

#include "allocation/allocation_limit.h"
#include "support/temporary_folder.h"

namespace kivo_3_3::testing {
namespace {

TEST(FileIdentity, IsTheSameForEveryNameOfAFile) {
  const TemporaryFolder folder;
  const std::string name = folder.write("file", "text");
  std::filesystem::create_symlink(name, folder.path("link"));
  const std::string identity = BEDROCK::file_identity(name.c_str());
  EXPECT_EQ(identity, BEDROCK::file_identity(folder.path("./file").c_str()));
  EXPECT_EQ(identity, BEDROCK::file_identity(folder.path("link").c_str()));
  EXPECT_NE(identity, BEDROCK::file_identity(folder.write("other", "text").c_str()));
}

// On 32 bits, plain stat() fails for such files.
TEST(FileIdentity, IsKnownForALargeFileAndForOneFromTheFarFuture) {
  const TemporaryFolder folder;
  const std::string large = folder.write("large", "");
  std::filesystem::resize_file(large, std::uintmax_t{5} << 30);
  EXPECT_EQ(BEDROCK::file_identity(large.c_str()),
            BEDROCK::file_identity(folder.path("./large").c_str()));
  const std::string future = folder.write("future", "");
  const struct utimbuf in2050 = {2'540'000'000, 2'540'000'000};
  ASSERT_EQ(0, utime(future.c_str(), &in2050));
  EXPECT_EQ(BEDROCK::file_identity(future.c_str()),
            BEDROCK::file_identity(folder.path("./future").c_str()));
}

TEST(FileIdentity, OfAMissingFileIsItsName) {
  EXPECT_EQ("no-such-file", BEDROCK::file_identity("no-such-file"));
}

TEST(LoadFile, ReadsTheWholeFileAndReturnsZero) {
  const TemporaryFolder folder;
  const std::string name = folder.write("file", "--level=3\n--verbose\n");
  std::string text;
  EXPECT_EQ(0, BEDROCK::load_file(name.c_str(), text));
  EXPECT_EQ("--level=3\n--verbose\n", text);
}

TEST(LoadFile, ReplacesWhatTheTextHeld) {
  const TemporaryFolder folder;
  const std::string name = folder.write("file", "new");
  std::string text = "something old and longer";
  EXPECT_EQ(0, BEDROCK::load_file(name.c_str(), text));
  EXPECT_EQ("new", text);
}

TEST(LoadFile, AnEmptyFileGivesAnEmptyText) {
  const TemporaryFolder folder;
  const std::string name = folder.write("file", "");
  std::string text = "old";
  EXPECT_EQ(0, BEDROCK::load_file(name.c_str(), text));
  EXPECT_EQ("", text);
}

TEST(LoadFile, BytesAreNotConverted) {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte)
    bytes += static_cast<char>(byte);
  bytes += "\r\n\n\r\x1A end";
  const TemporaryFolder folder;
  const std::string name = folder.write("file", bytes);
  std::string text;
  EXPECT_EQ(0, BEDROCK::load_file(name.c_str(), text));
  EXPECT_EQ(bytes, text);
}

TEST(LoadFile, StopsAtTheFirstZeroByte) {
  const TemporaryFolder folder;
  const std::string name = folder.write("file", std::string("--a\0--b\n", 8));
  std::string text;
  EXPECT_EQ(0, BEDROCK::load_file(name.c_str(), text));
  EXPECT_EQ("--a", text);
}

TEST(LoadFile, StopsAtAZeroByteFarIntoTheFile) {
  const std::string lines(100'000, 'x');
  const TemporaryFolder folder;
  const std::string name = folder.write("file", lines + '\0' + lines);
  std::string text;
  EXPECT_EQ(0, BEDROCK::load_file(name.c_str(), text));
  EXPECT_TRUE(lines == text);
}

TEST(LoadFile, OfEndlessZerosGivesAnEmptyText) {
  std::string text = "old";
  EXPECT_EQ(0, BEDROCK::load_file("/dev/zero", text));
  EXPECT_EQ("", text);
}

// The file, of 5 GB, is not read to its end, and no memory is allocated for its whole size.
TEST(LoadFile, OfASparseFileGivesTheBytesBeforeTheHole) {
  const TemporaryFolder folder;
  const std::string name = folder.write("file", "--level=3\n");
  std::filesystem::resize_file(name, std::uintmax_t{5} << 30);
  std::string text;
  EXPECT_EQ(0, BEDROCK::load_file(name.c_str(), text));
  EXPECT_EQ("--level=3\n", text);
  EXPECT_GT(std::size_t{1} << 20, text.capacity());
}

// The size of a pipe is unknown until its end is reached.
TEST(LoadFile, ReadsAPipeToItsEnd) {
  int ends[2] = {};
  ASSERT_EQ(0, pipe(ends));
  const std::string lines(40'000, 'x');
  ASSERT_EQ(static_cast<ssize_t>(lines.size()), write(ends[1], lines.data(), lines.size()));
  close(ends[1]);
  std::string text;
  EXPECT_EQ(0, BEDROCK::load_file(("/proc/self/fd/" + std::to_string(ends[0])).c_str(), text));
  close(ends[0]);
  EXPECT_TRUE(lines == text);
}

TEST(LoadFile, ReadsAFileLargerThanAnyBufferToItsEnd) {
  std::string lines;
  for (int line = 0; line < 50'000; ++line)
    lines += "--value=" + std::to_string(line) + "\n";
  const TemporaryFolder folder;
  const std::string name = folder.write("file", lines);
  std::string text;
  EXPECT_EQ(0, BEDROCK::load_file(name.c_str(), text));
  EXPECT_TRUE(lines == text);
}

// The size of a regular file is known before reading, so one allocation is enough.
TEST(LoadFile, OfALongFileAllocatesTheTextOnce) {
  const TemporaryFolder folder;
  const std::string expected(1'000'000, 'x');
  const std::string name = folder.write("file", expected);
  std::string text;
  {
    const AllocationLimit limit(1, Failing::once);
    EXPECT_EQ(0, BEDROCK::load_file(name.c_str(), text));
    EXPECT_FALSE(limit.reached());
  }
  EXPECT_TRUE(expected == text);
}

TEST(LoadFile, WhatCannotBeReadIsAnErrorAndLeavesTheText) {
  const TemporaryFolder folder;
  const struct {
    const char* why;
    std::string name;
  } cases[] = {
      {"missing", folder.path("no-such-file")},
      {"no name", ""},
      {"a folder", folder.path()},
      {"below a file", "/proc/self/exe/file"},
      {"opens, but cannot be read to its end", "/proc/self/mem"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    std::string text = "kept";
    EXPECT_EQ(1, BEDROCK::load_file(c.name.c_str(), text));
    EXPECT_EQ("kept", text);
  }
}

}  // namespace
}  // namespace kivo_3_3::testing
