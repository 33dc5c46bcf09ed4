// Reads the random seed of the process from the auxiliary vector, which needs no system call. With
// a seed that can be guessed, an attacker could make up texts whose hashes collide.

#include "bedrock/seed.h"

#include <sys/auxv.h>

#include <cstring>

namespace BEDROCK {

std::array<std::uint64_t, 2> process_seed() noexcept {
  std::array<std::uint64_t, 2> seed = {};
  // NOLINTNEXTLINE(performance-no-int-to-ptr): getauxval() returns the address as an integer
  const auto* const random = reinterpret_cast<const unsigned char*>(getauxval(AT_RANDOM));
  if (random != nullptr)
    std::memcpy(seed.data(), random, sizeof seed);
  return seed;
}

}  // namespace BEDROCK
