// Threads that use the library for the first time in their process, all at the same time.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace {

using std::string;

// What the program writes to both of its streams, then its exit status.
string run(const string& arguments) {
  const string command = string("'" FIRST_USE_PATH "' ") + arguments + " 2>&1";
  std::FILE* const output = popen(command.c_str(), "r");
  if (output == nullptr)
    return "cannot be started";
  string text;
  std::array<char, 4096> buffer;
  for (std::size_t count = 1; count != 0;) {
    count = std::fread(buffer.data(), 1, buffer.size(), output);
    text.append(buffer.data(), count);
  }
  return text + "exit status " + std::to_string(pclose(output)) + "\n";
}

constexpr const char* outcomeOfAThread =
    "one silent stream\n"
    "level=1:1,2:2,3:3 x3\n"
    "level=3:3 mask=1F:1,1Fh:31 ratio=0.25:0.250000 "
    "level=3:3 mask=0x1F:31 ratio=0.5:0.500000\n"
    "ratio=25e-2:0.250000\n"
    "level=0:'text' after 1 assertion\n"
    "level=4:4 -level=<integer>              How hard to try.\n\n";

// The parameter is the number of the act that all threads begin with.
class FirstUse : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Acts, FirstUse, ::testing::Range(0, 6));

TEST_P(FirstUse, ByAllThreadsAtOnceIsLikeAnyOther) {
  constexpr int processes = 10;
  const string one = outcomeOfAThread;
  for (int process = 0; process < processes; ++process)
    ASSERT_EQ(one + one + one + one + "exit status 0\n", run(std::to_string(GetParam())));
}

}  // namespace
