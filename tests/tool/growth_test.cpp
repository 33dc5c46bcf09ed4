#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "support/temporary_folder.h"
#include "tried.h"

// Very many declarations and arguments. The limits are far above what a walk through all of them
// takes; if each of them walked through all others, that would take minutes.

namespace kivo_3_3 {
namespace {

constexpr std::size_t many = 100'000;

std::string name(std::size_t number) { return "name" + std::to_string(number); }

// A test that may take 20 seconds.
class ToolOfVeryMany : public ::testing::Test {
 protected:
  ~ToolOfVeryMany() override {
    EXPECT_GT(std::chrono::seconds(20), std::chrono::steady_clock::now() - m_begin);
  }

  // The status, or -1, for these words.
  int run(const std::vector<std::string>& arguments) {
    std::vector<const char*> all = {"tool"};
    for (const std::string& word : arguments)
      all.push_back(word.c_str());
    return tool.parse(static_cast<int>(all.size()), all.data()).value_or(-1);
  }

  Tried tool;
  std::vector<std::string> words;

 private:
  const std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
};

TEST_F(ToolOfVeryMany, OptionsGivesEachItsValue) {
  std::vector<int> values(many);
  for (std::size_t number = 0; number < many; ++number) {
    tool.option(name(number).c_str(), values[number], "").required();
    words.push_back("--" + name(number) + '=' + std::to_string(number));
  }
  EXPECT_EQ(-1, run(words)) << tool.err;
  for (std::size_t number = 0; number < many; ++number)
    ASSERT_EQ(static_cast<int>(number), values[number]);
}

TEST_F(ToolOfVeryMany, OperandsGivesEachItsValue) {
  std::vector<std::string> values(many);
  for (std::size_t number = 0; number < many; ++number) {
    tool.operand(name(number).c_str(), values[number], "");
    words.push_back(name(number));
  }
  EXPECT_EQ(-1, run(words)) << tool.err;
  EXPECT_EQ(words, values);
}

TEST_F(ToolOfVeryMany, CommandsFindsTheLastOne) {
  for (std::size_t number = 0; number < many; ++number)
    tool.command(name(number).c_str(), "", [number](Tool& inner) {
      return inner.parse().value_or(static_cast<int>(number));
    });
  EXPECT_EQ(static_cast<int>(many) - 1, run({name(many - 1)})) << tool.err;
}

TEST_F(ToolOfVeryMany, SectionsShowsThemAll) {
  bool given = false;
  for (std::size_t number = 0; number < many; ++number) {
    tool.section(name(number).c_str());
    tool.flag(name(number).c_str(), given, "");
  }
  const std::string help = tool.help();
  EXPECT_NE(std::string::npos,
            help.find("\n\n" + name(many - 1) + ":\n      --" + name(many - 1) + '\n'));
}

TEST_F(ToolOfVeryMany, GroupsFindsTheWrongOne) {
  std::vector<int> counts(many);
  for (std::size_t number = 0; number < many; ++number)
    tool.count(name(number).c_str(), counts[number], "");
  for (std::size_t number = 1; number < many; ++number)
    tool.atMostOne({name(number - 1).c_str(), name(number).c_str()});
  EXPECT_EQ(2, run({"--" + name(many - 2), "--" + name(many - 1)}));
  EXPECT_EQ("tool: At most one of these may be given: --" + name(many - 2) + ", --" +
                name(many - 1) + "\nTry 'tool --help'.\n",
            tool.err);
}

TEST_F(ToolOfVeryMany, ChoicesSuggestsOne) {
  std::string value = name(0);
  auto option = tool.option("choice", value, "");
  for (std::size_t number = 0; number < many; ++number)
    option.choices(std::initializer_list<const char*>{name(number).c_str()});
  EXPECT_EQ(2, run({"--choice=nmae99999"}));
  EXPECT_NE(std::string::npos, tool.err.find(". Did you mean 'name99999' or '"));
}

TEST_F(ToolOfVeryMany, MisspeltNamesSuggestsForTheFirstOne) {
  bool given = false;
  for (std::size_t number = 0; number < many; ++number) {
    tool.flag(name(number).c_str(), given, "");
    words.push_back("--nmae" + std::to_string(number));
  }
  EXPECT_EQ(2, run(words));
  EXPECT_EQ(0U, tool.err.find("tool: Unknown option: --nmae0. Did you mean '--name0'?"))
      << tool.err;
}

TEST_F(ToolOfVeryMany, LinesOfAFileGivesEachItsValue) {
  const testing::TemporaryFolder folder;
  std::vector<int> values(many);
  std::string lines;
  for (std::size_t number = 0; number < many; ++number) {
    tool.option(name(number).c_str(), values[number], "");
    lines += "--" + name(number) + "\n" + std::to_string(number) + '\n';
  }
  tool.config("config", folder.write("rc", lines).c_str(), "");
  EXPECT_EQ(-1, run({})) << tool.err;
  for (std::size_t number = 0; number < many; ++number)
    ASSERT_EQ(static_cast<int>(number), values[number]);
}

TEST_F(ToolOfVeryMany, VariablesOfOneNameReadsItForEach) {
  std::vector<int> values(many);
  setenv("TRIED_NUMBER", "7", 1);
  for (std::size_t number = 0; number < many; ++number)
    tool.option(name(number).c_str(), values[number], "").env("TRIED_NUMBER");
  EXPECT_EQ(-1, run({})) << tool.err;
  EXPECT_EQ(std::vector<int>(many, 7), values);
  unsetenv("TRIED_NUMBER");
}

}  // namespace
}  // namespace kivo_3_3
