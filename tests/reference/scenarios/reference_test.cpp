// Generated scenarios give equal transcripts in the library and in the reference.
// KIVO_SCENARIOS=N in the environment sets their number, KIVO_FIRST_SEED=S the first seed.

#include <gtest/gtest.h>

#include <cstdlib>

#include "reference/scenarios/comparison.h"
#include "reference/scenarios/scenario_generator.h"

namespace kivo_3_3::scenarios {
namespace {

using std::string;

constexpr std::uint64_t usualScenarios = 20000;
constexpr int mostDifferences = 5;

std::uint64_t numberFrom(const char* variable, std::uint64_t fallback) {
  const char* const text = std::getenv(variable);
  return text != nullptr ? std::strtoull(text, nullptr, 10) : fallback;
}

bool isDifferent(const string& scenario) { return differenceIn(scenario).has_value(); }

// The scenario, a minimal one that still shows a difference, and that difference.
string report(std::uint64_t seed, const string& scenario) {
  const string shortest = minimized(scenario, isDifferent);
  return "seed " + std::to_string(seed) + ":\n" + scenario + "\nin short:\n" + shortest + "\n" +
         differenceIn(shortest).value_or("no difference");
}

TEST(Reference, RandomScenariosGiveEqualTranscripts) {
  const std::uint64_t first = numberFrom("KIVO_FIRST_SEED", 1);
  const std::uint64_t count = numberFrom("KIVO_SCENARIOS", usualScenarios);
  int differences = 0;
  for (std::uint64_t seed = first; seed < first + count && differences < mostDifferences; ++seed) {
    const string scenario = generatedScenario(seed);
    if (!isDifferent(scenario))
      continue;
    ++differences;
    ADD_FAILURE() << report(seed, scenario);
  }
}

}  // namespace
}  // namespace kivo_3_3::scenarios
