// Threads that each have tools of their own, with all that a tool may declare.

#include <kivo/tool.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/temporary_folder.h"
#include "threads/together.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

enum class Tone { warm, cold };

// A tool with its variables, and what becomes of it.
class Letters {
 public:
  explicit Letters(const string& folder) : m_path(folder + "/rc") {
    m_tool.output([this](const char* text, bool isError) {
      m_told += (isError ? "error: " : "printed: ") + string(text);
    });
    m_tool.option("copies,c", m_copies, "How many.").range(1, 9).env("KIVO_THREADS_COPIES");
    m_tool.option("tone", m_tone, "How.").choices({{"warm", Tone::warm}, {"cold", Tone::cold}});
    m_tool.config("config", m_path.c_str(), "Further arguments.").shownDefault("RC");
    m_tool.flag("quick", m_isQuick, "Be quick.");
    m_tool.flag("slow", m_isSlow, "Be slow.");
    m_tool.atMostOne({"quick", "slow"});
    m_tool.command("send", "Send letters.", [this](Tool& tool) { return send(tool); });
    m_tool.command("send back", "Send one back.",
                   [](Tool& tool) { return tool.parse().value_or(7); });
  }

  // The status, the variables, and what was printed.
  string after(const std::vector<const char*>& arguments) {
    std::vector<const char*> words = {"letters"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const int status = m_tool.main(static_cast<int>(words.size()), words.data());
    return std::to_string(status) + ' ' + std::to_string(m_copies) +
           (m_tone == Tone::cold ? " cold" : " warm") + (m_isQuick ? " quick" : "") +
           (m_isSlow ? " slow" : "") + m_names + ' ' + m_told;
  }

 private:
  int send(Tool& tool) {
    std::vector<string> names;
    double weight = 0.5;
    tool.option("weight", weight, "How heavy.").check([](double one) {
      return one < 2 ? "" : "a light letter";
    });
    tool.each(
        "stamp", [this](const char* stamp) { m_names += string(" *") + stamp; }, "A stamp.");
    tool.rest("name", names, "To whom.").required();
    if (const std::optional<int> exit = tool.parse())
      return *exit;
    for (const string& name : names)
      m_names += ' ' + name;
    return 3;
  }

  const string m_path;
  int m_copies = 1;
  Tone m_tone = Tone::warm;
  bool m_isQuick = false, m_isSlow = false;
  string m_names, m_told;
  Tool m_tool{"letters", "Sends letters.", "1.2"};
};

struct Episode {
  std::vector<const char*> arguments;
  const char* outcome;
};

const std::vector<Episode> episodes = {
    {{"send", "Ada", "Bob"}, "3 4 cold Ada Bob "},
    {{"-c", "5", "send", "--tone=w", "--stamp=a", "Eve", "--stamp", "b"}, "3 5 warm *a *b Eve "},
    {{"--quick", "send", "back"}, "7 4 cold quick "},
    {{"send", "--quick", "--slow", "Ada"},
     "2 1 warm error: letters: At most one of these may be given: --quick, --slow\n"
     "Try 'letters send --help'.\n"},
    {{"send", "--weight=2.5", "Ada"},
     "2 1 warm error: letters: Option 'weight' does not take '2.5', expected: a light letter\n"
     "Try 'letters send --help'.\n"},
    {{"send"}, "2 1 warm error: letters: Operand 'name' is required\nTry 'letters send --help'.\n"},
    {{"sned"},
     "2 1 warm error: letters: Unknown command: sned. Did you mean 'send'?\n"
     "Try 'letters --help'.\n"},
    {{"send", "--config=/", "Ada"},
     "2 1 warm error: letters: Cannot read '/': Is a directory\n"
     "Try 'letters send --help'.\n"},
    {{"send", "back", "--help"},
     "0 1 warm printed: Usage: letters send back [OPTION]...\n\nSend one back.\n\nOptions:\n"
     "  -c, --copies=COPIES  How many. From 1 to 9. Default: 1. Environment:\n"
     "                       KIVO_THREADS_COPIES.\n"
     "      --tone=TONE      How. One of: warm, cold. Default: warm.\n"
     "      --config=CONFIG  Further arguments. Default: RC.\n"
     "      --quick          Be quick.\n"
     "      --slow           Be slow.\n"
     "  -h, --help           Show this help.\n"
     "  -V, --version        Show the version.\n"},
    {{"--version"}, "0 1 warm printed: letters 1.2\n"}};

// The variable of the environment is set before the threads begin: while one thread changes the
// environment, no other one may read it.
class SeparateTools : public ::testing::TestWithParam<int> {
 protected:
  SeparateTools() {
    setenv("KIVO_THREADS_COPIES", "4", 1);
    setenv("COLUMNS", "80", 1);
  }
  ~SeparateTools() override {
    unsetenv("KIVO_THREADS_COPIES");
    unsetenv("COLUMNS");
  }
};

INSTANTIATE_TEST_SUITE_P(Threads, SeparateTools, ::testing::Values(1, 2, 4));

// Each thread begins with another episode.
TEST_P(SeparateTools, OfThreadsDoNotNoticeEachOther) {
  constexpr std::size_t rounds = 100;
  const int threads = GetParam();
  std::vector<string> differences(static_cast<std::size_t>(threads));
  together(threads, [&](int number) {
    const auto thread = static_cast<std::size_t>(number);
    const TemporaryFolder folder;
    folder.write("rc", "# how\n--tone\ncold\n--copies=2\n");
    for (std::size_t round = 0; round < rounds * episodes.size(); ++round) {
      const Episode& episode = episodes[(round + thread * 3) % episodes.size()];
      const string outcome = Letters(folder.path()).after(episode.arguments);
      if (outcome != episode.outcome)
        differences[thread] = "expected: " + string(episode.outcome) + "\nactual: " + outcome;
    }
  });
  for (const string& difference : differences)
    EXPECT_EQ("", difference);
}

}  // namespace

}  // namespace kivo_3_3::testing
