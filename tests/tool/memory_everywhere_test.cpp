#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "allocation/allocation_limit.h"
#include "support/temporary_folder.h"
#include "tried.h"

// Memory runs out at each place in turn, from the first declaration to the last text that is
// printed, for a tool that declares everything.

namespace kivo_3_3 {
namespace {

using testing::AllocationLimit;
using testing::Failing;
using Arguments = std::initializer_list<const char*>;

enum class Tone { low, high };

// What a tool prints, kept without an allocation.
class Told {
 public:
  void add(const char* text) {
    m_size += std::strlen(text);
    ASSERT_LT(m_size, sizeof m_text);
    std::strcat(m_text, text);
  }
  std::string text() const { return m_text; }

 private:
  char m_text[10'000] = "";
  std::size_t m_size = 0;
};

struct Variables {
  int number = 1;
  bool truth = false, quick = false, slow = false;
  int count = 7;
  Tone tone = Tone::low;
  std::vector<std::string> names = {"a name that is too long to be kept without memory"};
  double weight = 0.5;

  std::string text() const {
    std::string all = std::to_string(number) + (truth ? " true" : "") + (quick ? " quick" : "") +
                      (slow ? " slow" : "") + ' ' + std::to_string(count) +
                      (tone == Tone::high ? " high " : " low ") + std::to_string(weight);
    for (const std::string& name : names)
      all += ' ' + name;
    return all;
  }
};

void declareOptions(Tool& tool, Variables& variables, const char* path) {
  tool.option("number,n", variables.number, "How many of them, in a text that is long.")
      .range(1, 9)
      .env("TRIED_NUMBER_OF_THE_ENVIRONMENT")
      .placeholder("A NUMBER BETWEEN THE TWO")
      .check([&variables](int number) { return number != 8 + variables.count ? "" : "another"; });
  tool.option("truth", variables.truth, "Whether.").deprecated("say the truth without an option");
  tool.section("A heading that is too long to be kept without memory");
  tool.flag("quick", variables.quick, "Be quick.");
  tool.flag("slow", variables.slow, "Be slow.").hidden();
  tool.count("verbose,v", variables.count, "Tell more.").shownDefault("nothing is told of it");
  tool.atMostOne({"quick", "slow"});
  tool.config("config", path, "A file with further arguments.");
  tool.footer("A last word that is too long to be kept without memory.");
}

void declareFurther(Tool& tool, Variables& variables) {
  tool.option("tone", variables.tone, "How.")
      .choices({{"low", Tone::low}, {"high", Tone::high}})
      .deprecatedChoice("loud as a trumpet in the morning", "high");
  tool.option("weight", variables.weight, "How heavy.", [](const char* text, double& weight) {
    weight = std::atof(text);
    return weight < 100 ? "" : "less than a hundred of them";
  });
  tool.rest("name", variables.names, "To whom.").required();
}

// Runs a tool with commands, or one with actions. The tool's own functions need no memory.
int runAll(Variables& variables, Told& told, const char* path, bool hasCommands,
           Arguments arguments) {
  Tool tool("tool", "Tries a tool, in a text that is too long to be kept without memory.", "1.0");
  tool.output([&told](const char* text, bool) { told.add(text); });
  declareOptions(tool, variables, path);
  if (hasCommands) {
    tool.command("send", "Send it.", [](Tool& inner) { return inner.parse().value_or(6); });
    tool.command("send letters", "Send letters.", [&](Tool& inner) {
      declareFurther(inner, variables);
      return inner.parse().value_or(5);
    });
  } else {
    bool* const truth = &variables.truth;
    declareFurther(tool, variables);
    tool.action("send,s", "Send letters.", [truth] { return *truth ? 4 : 5; });
    tool.flag("only-sent", variables.slow, "With it.").only("send");
  }
  return tool.parse(arguments).value_or(9);
}

constexpr const char* outOfMemory = "tool: Memory has run out.\n";
constexpr long untilOutput = 30;  // allocations; before that, the tool prints to standard error

int countIn(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

class ToolWithoutMemoryAnywhere : public ::testing::Test {
 protected:
  ToolWithoutMemoryAnywhere() {
    setenv("TRIED_NUMBER_OF_THE_ENVIRONMENT", "4", 1);
    setenv("COLUMNS", "80", 1);
  }
  ~ToolWithoutMemoryAnywhere() override {
    unsetenv("TRIED_NUMBER_OF_THE_ENVIRONMENT");
    unsetenv("COLUMNS");
  }

  // With memory, the command line has this status, and `whole` is among what is printed.
  void fails(bool hasCommands, int status, const char* whole, Arguments arguments) {
    for (const Failing failing : {Failing::once, Failing::forEver}) {
      bool isReached = true;
      for (long allowed = 0; isReached && !HasFailure(); ++allowed) {
        SCOPED_TRACE(allowed);
        const long before = testing::liveBlocks();
        {
          const Variables unchanged;
          Variables variables;
          Told told;
          int given = 0;
          {
            const AllocationLimit limit(allowed, failing);
            given = runAll(variables, told, m_path.c_str(), hasCommands, arguments);
            isReached = limit.reached();
          }
          const bool isWhole = given == status && told.text().find(whole) != std::string::npos;
          const bool isTold =
              given == 3 && (countIn(told.text(), outOfMemory) == 1 || allowed < untilOutput);
          // If memory is there again, a suggestion may be missing.
          const bool isSame = given == status && failing == Failing::once;
          EXPECT_TRUE(isReached ? isTold || isSame : isWhole) << given << '\n' << told.text();
          if (given == 3) {
            EXPECT_EQ(unchanged.text(), variables.text());
          }
        }
        EXPECT_EQ(before, testing::liveBlocks());
      }
    }
  }

 private:
  const testing::TemporaryFolder m_folder;
  const std::string m_path =
      m_folder.write("rc", "# a comment\n--verbose\n--no-truth\n-n=3\n--quick\n");
};

TEST_F(ToolWithoutMemoryAnywhere, RunsNoCommand) {
  fails(true, 5, "tool: Option '--tone': 'loud as a trumpet in the morning' is deprecated",
        {"-v", "send", "let", "--tone=loud", "--weight=3", "Ada", "", "-", "--truth"});
}

TEST_F(ToolWithoutMemoryAnywhere, RunsNoCommandThatBeginsLongerOnes) {
  fails(true, 6, "", {"send", "--quick"});
}

TEST_F(ToolWithoutMemoryAnywhere, RunsNoAction) {
  fails(false, 4, "tool: Option '--truth' is deprecated: say the truth without an option\n",
        {"--send", "-n", "4", "--tone", "h", "--truth", "--only-sent", "Ada"});
}

TEST_F(ToolWithoutMemoryAnywhere, PrintsNoHelp) {
  fails(true, 0, "Usage: tool send letters [OPTION]... NAME...", {"send", "letters", "--help"});
  fails(false, 0, "\nA last word that is too long", {"--help"});
}

TEST_F(ToolWithoutMemoryAnywhere, PrintsNoVersion) {
  fails(false, 0, "tool 1.0\n", {"--send", "--version"});
}

TEST_F(ToolWithoutMemoryAnywhere, DescribesNothing) {
  fails(true, 0, R"("words":"send letters")", {"kivooption=kivodescribe=json"});
}

TEST_F(ToolWithoutMemoryAnywhere, ListsNoCommands) {
  fails(true, 2, "tool: A command is required\n", {"--quick"});
  fails(true, 2, "tool: Unknown command: sned. Did you mean 'send'?\n", {"sned"});
}

TEST_F(ToolWithoutMemoryAnywhere, RefusesNothing) {
  fails(false, 2, "tool: Unknown option: --numbr=4. Did you mean '--number'?", {"--numbr=4"});
  fails(false, 2, "tool: Operand 'name' is required\n", {"--send"});
  fails(false, 2, "tool: At most one of these may be given: --quick, --slow\n",
        {"--send", "--quick", "--slow", "Ada"});
}

TEST_F(ToolWithoutMemoryAnywhere, RefusesNoFile) {
  fails(false, 2, "tool: Cannot read '/': Is a directory\n", {"--send", "--config=/", "Ada"});
}

TEST_F(ToolWithoutMemoryAnywhere, GivesHelpAsTextOrFails) {
  std::string whole;
  for (long allowed = -1; allowed < 1000; ++allowed) {
    SCOPED_TRACE(allowed);
    Variables variables;
    Tool tool("tool", "Tries a tool.", "1.0");
    declareOptions(tool, variables, "");
    std::string text;
    bool isThrown = false;
    {
      const AllocationLimit limit(allowed, Failing::once);
      try {
        text = tool.help();
      } catch (const std::bad_alloc&) {  // there was no memory for the text that is returned
        isThrown = true;
      }
    }
    whole = allowed == -1 ? text : whole;
    if (!text.empty()) {
      EXPECT_EQ(whole, text);
    }
    tool.output([](const char*, bool) {});
    EXPECT_EQ(text.empty() && !isThrown ? 3 : -1, tool.parse({}).value_or(-1));
  }
}

}  // namespace
}  // namespace kivo_3_3
