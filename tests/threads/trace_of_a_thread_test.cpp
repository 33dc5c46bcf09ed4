// Each thread has a trace switch of its own.

#include <gtest/gtest.h>

#include <iostream>
#include <mutex>
#include <streambuf>
#include <string>

#include "threads/parsing.h"
#include "threads/together.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

constexpr int rounds = 20000;
constexpr const char* traceSwitch = "kivooption=kivologenable=1";

constexpr const char* traceOfAParse =
    "PositionalOptionsParser: recognizing argument 'x'\n"
    "AbbreviationParser: recognizing argument 'x'\n"
    "ignoring x\n";
constexpr const char* traceOfATakenName =
    "Tried to register an option with a name, which is alread registered: level\n";

// Captures the console for its lifetime. Locked, so that a line from the wrong thread shows up in
// the text and does not corrupt the heap.
class ConsoleOfAllThreads : private std::streambuf {
 public:
  ConsoleOfAllThreads() : m_output(std::cout.rdbuf(this)), m_error(std::cerr.rdbuf(this)) {}
  ConsoleOfAllThreads(const ConsoleOfAllThreads&) = delete;
  ConsoleOfAllThreads& operator=(const ConsoleOfAllThreads&) = delete;
  ~ConsoleOfAllThreads() override {
    std::cout.rdbuf(m_output);
    std::cerr.rdbuf(m_error);
  }

  // Empty if the console has this text the given number of times and nothing else; otherwise the
  // text from the first difference on.
  string differenceFrom(const string& text, int times) {
    std::size_t place = 0;
    for (int i = 0; i < times; ++i, place += text.size())
      if (m_written.compare(place, text.size(), text) != 0)
        return "after " + std::to_string(i) + " times: " + m_written.substr(place, 200);
    return m_written.size() == place ? "" : "at the end: " + m_written.substr(place, 200);
  }

 private:
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_written.append(text, static_cast<std::size_t>(size));
    return size;
  }
  int_type overflow(int_type character) override {
    const char written = traits_type::to_char_type(character);
    xsputn(&written, 1);
    return traits_type::not_eof(character);
  }

  std::mutex m_mutex;
  string m_written;
  std::streambuf* m_output;
  std::streambuf* m_error;
};

ParserHandle declared() {
  ParserHandle parser = makeParser();
  parser->option("level", "", vtS32);
  return parser;
}

void declareATakenName(IParser& parser) { parser.option("level", "", vtS32); }

// Does everything that would be traced, with the trace off.
void workInSilence() {
  const ParserHandle parser = declared();
  for (int round = 0; round < rounds; ++round) {
    EXPECT_EQ("level=7:7 | y", parsed(*parser, {"x", "--level=7", "--", "y"}, {"level"}));
    declareATakenName(*parser);
  }
}

TEST(TraceOfAThread, HasAllItsLinesAndNoneOfAnotherThread) {
  ConsoleOfAllThreads console;
  together(2, [&](int number) {
    if (number == 1)
      return workInSilence();
    const ParserHandle parser = declared();
    for (int round = 0; round < rounds; ++round)
      EXPECT_EQ("", parsed(*parser, {traceSwitch, "x"}, {"level"}));
  });
  EXPECT_EQ("", console.differenceFrom(traceOfAParse, rounds));
}

// The trace of the thread is on while its parser declares.
TEST(TraceOfAThread, ShowsTheDeclarationsRejectedOnThatThread) {
  ConsoleOfAllThreads console;
  together(2, [&](int number) {
    if (number == 1)
      return workInSilence();
    const ParserHandle parser = declared();
    parsed(*parser, {traceSwitch}, {"level"});
    for (int round = 0; round < rounds; ++round)
      declareATakenName(*parser);
  });
  EXPECT_EQ("", console.differenceFrom(traceOfATakenName, rounds));
}

TEST(TraceOfAThread, IsSwitchedOffForThatThreadAlone) {
  ConsoleOfAllThreads console;
  Handover<int> turns[2];
  together(2, [&](int number) {
    const ParserHandle parser = declared();
    if (number == 0) {
      parsed(*parser, {traceSwitch}, {"level"});
      turns[1].give(1);
      turns[0].take();
      declareATakenName(*parser);  // traced: the other thread has only switched off its own
      return;
    }
    turns[1].take();
    declareATakenName(*parser);
    parsed(*parser, {"x"}, {"level"});
    turns[0].give(1);
  });
  EXPECT_EQ("", console.differenceFrom(traceOfATakenName, 1));
}

TEST(TraceOfAThread, IsNotInheritedByNewThreads) {
  ConsoleOfAllThreads console;
  const ParserHandle parser = declared();
  std::thread([&] {
    parsed(*parser, {traceSwitch}, {"level"});
    std::thread([&] { declareATakenName(*parser); }).join();
    declareATakenName(*parser);
  }).join();
  declareATakenName(*parser);
  EXPECT_EQ("", console.differenceFrom(traceOfATakenName, 1));
}

}  // namespace

}  // namespace kivo_3_3::testing
