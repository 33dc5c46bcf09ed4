#include "bedrock/seed.h"

#include <sys/auxv.h>

#include <cstring>

namespace BEDROCK {

std::array<std::uint64_t, 2> process_seed() noexcept {
  std::array<std::uint64_t, 2> seed = {};
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel hands over an address as a number
  const auto* const random = reinterpret_cast<const unsigned char*>(getauxval(AT_RANDOM));
  if (random != nullptr)
    std::memcpy(seed.data(), random, sizeof seed);
  return seed;
}

}  // namespace BEDROCK
