// The library creates some objects at their first use, and only once, whichever thread uses them
// first. All threads begin with the same act and then do the other acts, each thread in a different
// order.
//   first_use ACT
//
// This program does not use standard streams: they would create the first locale before the threads
// do.

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

// All threads share one stream that discards the trace.
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

// Converts defaults to text, and texts to numbers.
string convertNumbers() {
  const ParserHandle parser = makeParser();
  parser->option("level", "", vtS32)->defaultValue(3);
  parser->option("mask", "", vtU64);
  parser->option("ratio", "", vtDouble)->defaultValue(0.25);
  return parsed(*parser, {"--mask=1F,1Fh"}, {"level", "mask", "ratio"}) + " " +
         parsed(*parser, {"--mask=0x1F", "--ratio=0.5"}, {"level", "mask", "ratio"});
}

// A number with an exponent is read by a stream, which needs a locale.
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

// The first locale numbers the ids of its facets, so an id other than 0 means that there is a
// locale.
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
