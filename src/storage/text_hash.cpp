// Draws the key of TextHash. A key that others could read or guess would protect nothing.

#include "storage/text_hash.h"

#include <cstring>

#include "bedrock/seed.h"

namespace kivo_3_3 {

namespace {

// Hashes the seed of the process, so that no key reveals it: other code may rely on its secrecy.
HashKey drawnKey() noexcept {
  const auto seed = BEDROCK::process_seed();
  char text[sizeof seed];
  std::memcpy(text, seed.data(), sizeof seed);
  const std::string_view all(text, sizeof text);
  return {TextHash::of(all, {0x9E3779B97F4A7C15, 0xC2B2AE3D27D4EB4F}),
          TextHash::of(all, {0xD6E8FEB86659FD93, 0xA0761D6478BD642F}) | 1};
}

}  // namespace

[[gnu::init_priority(101)]] const HashKey hashKey = drawnKey();

}  // namespace kivo_3_3
