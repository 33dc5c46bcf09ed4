// Option files that name each other in a chain of ten thousand, and one option file that is named a
// hundred thousand times.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "size/measurement.h"
#include "support/command.h"
#include "support/stored.h"
#include "support/temporary_folder.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

constexpr int chainLength = 10000;

string fileName(int number) { return "file" + std::to_string(number); }

class OptionFileChain : public ::testing::Test {
 protected:
  OptionFileChain() {
    command.option("text", vtString);
    command.optionFiles();
  }

  string naming(const string& file) const { return "--option-file=" + folder.path(file) + "\n"; }

  // Each file has a value of its own, `more`, and the name of the next file. The last file of the
  // chain names the file "last".
  void writeChain(const string& more) {
    for (int i = 0; i < chainLength; ++i)
      folder.write(fileName(i), "--text=" + std::to_string(i) + "\n" + more +
                                    naming(i + 1 < chainLength ? fileName(i + 1) : "last"));
  }

  int parseFile(const string& file) {
    return command.parse({"--option-file=" + folder.path(file)});
  }

  // The number of values; -1 if they are not 0, 1, 2 and so on.
  int countTexts() {
    int count = 0;
    for (const Value& value : values(command.result(), "text")) {
      if (value.text != std::to_string(count))
        return -1;
      ++count;
    }
    return count;
  }

  TemporaryFolder folder;
  Command command;
};

TEST_F(OptionFileChain, IsReadToItsEndWhateverTheLastFileIs) {
  writeChain("");
  const string unreadable = "Error reading option file '";
  const struct {
    const char* end;
    string lastFile;
    int status;
    string error;
  } cases[] = {
      {"a missing file", "--option-file=/missing", 6, unreadable + "/missing'"},
      {"an empty file", "", 0, unreadable + "/missing'"},  // a success does not clear the message
      {"the first file", naming(fileName(0)), 6, unreadable + folder.path(fileName(0)) + "'"},
      {"the file before it", naming(fileName(chainLength - 1)), 6,
       unreadable + folder.path(fileName(chainLength - 1)) + "'"},
      {"itself", naming("last"), 6, unreadable + folder.path("last") + "'"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.end);
    folder.write("last", c.lastFile);
    ASSERT_EQ(0, command.parse({}));  // frees the previous result before the measurement
    const Measurement measured(string("a chain of 10,000 option files, at its end ") + c.end);
    EXPECT_EQ(c.status, parseFile(fileName(0)));
    EXPECT_EQ(c.error, command.error());
    EXPECT_EQ(chainLength, countTexts());
  }
}

TEST_F(OptionFileChain, MayReadOneFileAtEachOfItsLinks) {
  folder.write("common", "--common\n");
  folder.write("last", "");
  command.option("common", vtNull);
  writeChain(naming("common"));
  const Measurement measured("10,000 option files, each naming one and the same as well");
  EXPECT_EQ(0, parseFile(fileName(0)));
  EXPECT_EQ(chainLength, countTexts());
  const auto& common = givenTo(command.result(), "common").positions;
  EXPECT_EQ(static_cast<std::size_t>(chainLength), common.size());
}

TEST_F(OptionFileChain, OfOneFileNamedAgainAndAgainIsNoRing) {
  folder.write("common", "--common\n");
  command.option("common", vtNull);
  std::vector<string> arguments;
  for (int i = 0; i < 10 * chainLength; ++i)
    arguments.push_back("--option-file=" + folder.path("common"));
  const Measurement measured("one option file, named 100,000 times");
  EXPECT_EQ(0, command.parse(arguments));
  EXPECT_EQ(arguments.size(), givenTo(command.result(), "common").positions.size());
}

}  // namespace

}  // namespace kivo_3_3::testing
