// Offers libFuzzer random scenarios beside the inputs that it makes from others: changed byte by
// byte, few inputs stay scenarios in which many objects do something together.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "reference/scenarios/scenario_generator.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t room);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t room, unsigned int seed) {
  if (seed % 16 != 0)
    return LLVMFuzzerMutate(data, size, room);
  const std::string scenario = kivo_3_3::scenarios::generatedScenario(seed);
  const std::size_t length = std::min(scenario.size(), room);
  std::memcpy(data, scenario.data(), length);
  return length;
}
