// Generated scenarios must reach every status, message, trace line and event: a difference is
// only found in behaviour that some scenario reaches.

#include <gtest/gtest.h>

#include <map>

#include "fuzz/script.h"
#include "reference/scenarios/comparison.h"
#include "reference/scenarios/scenario_generator.h"

namespace kivo_3_3::scenarios {
namespace {

using std::string;

constexpr std::uint64_t scenarios = 8000;

// A text in transcripts, and the least number of scenarios that must show it: about half of the
// number that do.
struct Reached {
  const char* part;
  int least;
};

constexpr Reached statuses[] = {{"status 0, drew ", 2000}, {"status 1", 150}, {"status 2", 1500},
                                {"status 3", 150},         {"status 4", 100}, {"status 6", 50}};

constexpr Reached messages[] = {
    {"'Unknown option: ", 300},
    {"'Unknown option '", 300},
    {"'Ambiguous option '", 200},
    {"'does not requires a value in argument: '", 200},
    {"' is boolean and should be declared in form '--option' or '--no-option'", 150},
    {"' requires a value in argument: '", 150},
    {", but it seems to be an option. Use '-option=value' declaration form", 300},
    {"Value validation problem in argument '", 1000},
    {" can not parse '", 700},
    {" does not allow value '", 300},
    {"Ambiguous value for option '", 10},
    {"'No value parsed in argument '", 30},
    {"' is not valid for option '", 20},
    {"'Error reading option file '", 50},
    {"'Unidentified problem detected.'", 100},
    {"' were defined, but only one action possible.'", 20},
    {"' doesn't accept option '-", 15},
    {"'No action defined.'", 100},
    {"Unknown error handled.", 15},
    {" not available.Please use one of the following topics:", 150},
    {"Warning: '", 20},
};

constexpr Reached traced[] = {
    {"> Tried to register an option with a name", 20},
    {"Parser: recognizing argument '", 500},
    {": best match option for '", 300},
    {": failed to get best match for '", 50},
    {"Parser: parsing argument '", 500},
    {": detected option: '", 300},
    {": value from the same argument taken: '", 300},
    {": no value in the same argument, looking next", 100},
    {": got value from the next argument: '", 50},
    {": sent event on option parsed", 300},
    {"PositionalOptionsParser: option is '", 100},
    {": adding values to result container:", 300},
    {": not using tokenizer", 100},
    {": using tokenizer on char: '", 200},
    {": value is: '", 200},
    {": sent event on value parsed, option: '", 150},
    {" One of the handler signaled the value is not valid.", 3},
    {": stored option to result container.", 200},
    {": removing argument: '", 200},
    {"> ignoring ", 100},
    {"> collectNonparsingArguments: stored argument: '", 50},
    {"> collectNonparsingArguments: recognize result: ", 20},
    {"> collectNonparsingArguments: parse result: 0", 2},
};

constexpr Reached others[] = {
    {": option '", 1000},
    {": value '", 700},
    {": unknown '", 700},
    {" same text", 500},
    {"P1 answers yes", 50},
    {"answers no", 150},
    {"exception 7", 5},
    {"standard exception", 3},
    {"assertion can_get<T>()", 150},
    {"assertion !RunningCall::isInUse(*this)", 20},
    {"out of range: basic_string::at", 20},
    {"reference:'", 30},
    {"  present\n", 50},
    {"nothing", 700},
    {"@end", 500},
    {"; last '", 1500},
    {"; last null null", 300},
    {"| '", 500},
    {", traced", 700},
    {"meanwhile locale", 75},
    {"meanwhile buffer", 50},
};

constexpr Reached described[] = {
    {"near null", 500},
    {"near '", 150},
    {"means null", 150},
    {"means '", 200},
    {"> {\"schema\":\"kivo-description/1\"", 1000},
    {"\"commands\":[", 250},
    {"\"annotations\":{", 200},
    {"\"deprecated\":[", 150},
    {"\"replacement\":\"\"", 20},
    {"\"allowed\":[", 350},
    {"\"default\":true", 50},
    {"\"default\":\"1.23457e+06\"", 20},
    {"\"actions\":[]", 300},
    {"\"actions\":[\"", 50},
    {"\"type\":\"other\"", 60},
    {"\"separator\":null", 350},
    {"\"positional\":true", 400},
    {"\"hidden\":true", 300},
    {"\"together\":[[", 250},
    {"\\u0085", 500},
    {"\uFFFD", 500},
};

class Reach : public ::testing::Test {
 protected:
  // The number of scenarios that show each part.
  static const std::map<string, int>& counts() {
    static const std::map<string, int> all = counted();
    return all;
  }

  template <class List>
  static void expectAll(const List& list) {
    for (const Reached& wanted : list)
      EXPECT_GE(counts().at(wanted.part), wanted.least) << wanted.part;
  }

 private:
  static std::map<string, int> counted() {
    std::map<string, int> all;
    for (std::uint64_t seed = 1; seed <= scenarios; ++seed) {
      const string transcript = transcriptOf(generatedScenario(seed), referenceWorld());
      count(transcript, statuses, all);
      count(transcript, messages, all);
      count(transcript, traced, all);
      count(transcript, others, all);
      count(transcript, described, all);
    }
    return all;
  }

  template <class List>
  static void count(const string& transcript, const List& list, std::map<string, int>& all) {
    for (const Reached& wanted : list)
      all[wanted.part] += transcript.find(wanted.part) != string::npos ? 1 : 0;
  }
};

TEST_F(Reach, EveryStatusIsReached) { expectAll(statuses); }
TEST_F(Reach, EveryMessageIsReached) { expectAll(messages); }
TEST_F(Reach, EveryTraceLineIsReached) { expectAll(traced); }
TEST_F(Reach, EventsExceptionsAndReadsAreReached) { expectAll(others); }
TEST_F(Reach, EveryPartOfADescriptionIsReached) { expectAll(described); }

}  // namespace
}  // namespace kivo_3_3::scenarios
