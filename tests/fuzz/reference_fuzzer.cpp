// Runs a scenario in the library and in the reference: the transcripts are equal. The steps are
// described in reference/scenarios/scenario.h.

#include "fuzz/fuzz.h"
#include "fuzz/script.h"
#include "reference/scenarios/comparison.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kivo_3_3;
  const auto difference = scenarios::differenceIn(fuzzing::textOf(data, size));
  if (difference)
    fuzzing::broken("the library does what the reference does", *difference);
  return 0;
}
