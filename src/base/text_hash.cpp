#include "base/text_hash.h"

#include "bedrock/seed.h"

namespace kivo_3_3 {

namespace {

HashKey drawnKey() {
  const auto [start, factor] = BEDROCK::process_seed();
  return {start, factor | 1};
}

}  // namespace

[[gnu::init_priority(101)]] const HashKey hashKey = drawnKey();

}  // namespace kivo_3_3
