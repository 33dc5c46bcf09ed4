#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "process.h"

// Each allocation of an example fails in turn. The example does its work all the same, or says why
// not and exits with a status: no signal ends it.

namespace end_to_end {
namespace {

constexpr int firstSignal = 128;

class ScarceMemory : public testing::Test {
 protected:
  ScarceMemory() {
    writeFile(m_folder.path() + "/text", "some text\n");
    writeFile(m_folder.path() + "/notes.txt", notes);
    writeFile(m_folder.path() + "/options", "--style=full\n");
  }

  // Runs a command line with one allocation more each time until none has to fail.
  void failEach(const std::string& how, const std::vector<std::string>& words) const {
    const std::string out = outcomeOf("once", 1000000, words).out;
    for (int allowed = 0; !HasFailure(); ++allowed) {
      SCOPED_TRACE(how + " after " + std::to_string(allowed) + " allocations");
      const Outcome outcome = outcomeOf(how, allowed, words);
      EXPECT_LT(outcome.status, firstSignal) << outcome;
      EXPECT_TRUE(outcome.status == 0 ? outcome.out == out || mayBeShort : !outcome.err.empty())
          << outcome;
      EXPECT_EQ(notes, readFile(m_folder.path() + "/notes.txt"));
      if (outcome.err.find("memory sufficed\n") != std::string::npos)
        return;
    }
  }
  void failEach(const std::vector<std::string>& words) const {
    failEach("once", words);
    failEach("for ever", words);
  }

  bool mayBeShort = false;  // the output of a run that succeeds
  const std::string notes = "notebook 1\n1\thigh\t2026-05-01\tgarden\tBuy seeds\n";

 private:
  Outcome outcomeOf(const std::string& how, int allowed,
                    const std::vector<std::string>& words) const {
    std::vector<std::string> command = {"env", "ALLOCATIONS=" + std::to_string(allowed)};
    if (how == "for ever")
      command.emplace_back("ALLOCATIONS_FAIL=1");
    command.insert(command.end(), words.begin(), words.end());
    return run(command, m_folder.path(), "");
  }

  TemporaryFolder m_folder;
};

TEST_F(ScarceMemory, TextkitCounts) { failEach({TEXTKIT_PATH, "-count", "-verbose", "text"}); }

TEST_F(ScarceMemory, TextkitSearches) {
  failEach({TEXTKIT_PATH, "-search", "-literal=some", "-limit=3", "-quiet", "text"});
}

// The help leaves out what could not be declared.
TEST_F(ScarceMemory, TextkitHelps) {
  mayBeShort = true;
  failEach({TEXTKIT_PATH, "-help", "count"});
}

TEST_F(ScarceMemory, NotebookLists) {
  failEach({NOTEBOOK_PATH, "list", "--config=options", "--due-by=2026-06-01", "--tag=garden"});
}

// The note keeps the tag that it has, so that the file is the same after each run.
TEST_F(ScarceMemory, NotebookSavesAllOrNothing) {
  failEach({NOTEBOOK_PATH, "tag", "add", "1", "garden", "--config=options"});
}

}  // namespace
}  // namespace end_to_end
