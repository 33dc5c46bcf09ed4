// What the library makes at its first use, it makes once, whichever thread asks for it first. All
// threads start with the same act, and then do the others, each in another order.
//   first_use ACT
//
// No standard streams in here: they would make the first locale before the threads do.

#include <kivo/kivo.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <string>

#include "base/trace.h"
#include "bedrock/assertion.h"
#include "threads/parsing.h"
#include "threads/together.h"

namespace kivo_3_3::testing {

namespace {

using std::string;

thread_local int failedAssertions = 0;

void countAssertion(const char*, const char*, int) { ++failedAssertions; }

// The stream that swallows the trace is one for all threads.
std::atomic<std::ostream*> silentStream = nullptr;

string traceNothing() {
  std::ostream* const mine = &internal::kivoLog();
  std::ostream* others = nullptr;
  const bool isFirst = silentStream.compare_exchange_strong(others, mine);
  return isFirst || others == mine ? "one silent stream" : "another silent stream";
}

string parseTypographicDashes() {
  const ParserHandle parser = makeParser();
  parser->option("level", "", vtS32);
  return parsed(*parser, {"\u2012level=1", "\u2013level=2", "\u2014level=3"}, {"level"});
}

// Defaults become text, texts become numbers.
string convertNumbers() {
  const ParserHandle parser = makeParser();
  parser->option("level", "", vtS32)->defaultValue(3);
  parser->option("mask", "", vtU64);
  parser->option("ratio", "", vtDouble)->defaultValue(0.25);
  return parsed(*parser, {"--mask=1F,1Fh"}, {"level", "mask", "ratio"}) + " " +
         parsed(*parser, {"--mask=0x1F", "--ratio=0.5"}, {"level", "mask", "ratio"});
}

// With an exponent, a number is read by a stream, which needs a locale.
string convertThroughAStream() {
  const ParserHandle parser = makeParser();
  parser->option("ratio", "", vtDouble);
  return parsed(*parser, {"--ratio=25e-2"}, {"ratio"});
}

string readAnUnsuitableDefault() {
  const ParserHandle parser = makeParser();
  parser->option("level", "", vtS32)->defaultValue("text");
  const int before = failedAssertions;
  const string contents = parsed(*parser, {}, {"level"});
  return contents + " after " + std::to_string(failedAssertions - before) + " assertion";
}

string readAStreamAndHelp() {
  const ParserHandle parser = makeParser();
  parser->option("level", "How hard to try.", vtS32);
  const ResultHandle result = makeResult(*parser);
  parser->parseStream(" \t--level=4\n", result.get());
  return contentsOf(*result, {"level"}) + " " + parser->getDescription("level", false);
}

constexpr string (*acts[])() = {traceNothing,          parseTypographicDashes,  convertNumbers,
                                convertThroughAStream, readAnUnsuitableDefault, readAStreamAndHelp};
constexpr int actCount = sizeof acts / sizeof acts[0];

string actAll(int first, int shift) {
  string outcomes[actCount];
  outcomes[first] = acts[first]();
  for (int i = 0; i < actCount; ++i) {
    const int act = (first + shift + i) % actCount;
    if (act != first)
      outcomes[act] = acts[act]();
  }
  string all;
  for (const string& outcome : outcomes)
    all += outcome + "\n";
  return all;
}

// Locales number their parts as they are made.
bool isThereALocale() {
#ifdef __GLIBCXX__
  return *reinterpret_cast<const std::size_t*>(&std::ctype<char>::id) != 0;
#else
  return false;
#endif
}

}  // namespace

}  // namespace kivo_3_3::testing

int main(int argc, char** argv) {
  using namespace kivo_3_3::testing;
  if (argc != 2)
    return 2;
  if (isThereALocale()) {
    std::puts("There is a locale before the threads start.");
    return 1;
  }
  BEDROCK::set_assertion_handler(countAssertion);
  constexpr int threads = 4;
  const int first = std::atoi(argv[1]) % actCount;
  string outcomes[threads];
  together(threads, [&](int number) { outcomes[number] = actAll(first, number + 1); });
  for (const string& outcome : outcomes)
    std::printf("%s", outcome.c_str());
  return 0;
}
