// Variants that share a text, on several threads.

#include <gtest/gtest.h>
#include <kivo/value.h>

#include <memory>
#include <string>
#include <vector>

#include "stratum2/text_pool.h"
#include "threads/parsing.h"
#include "threads/together.h"

namespace kivo_3_3::testing {

namespace {

using std::string;
using Variants = std::vector<variant_t>;

// Each thread has one variant of every text, and all threads release their variants at the same
// time.
TEST(TextOfAVariant, IsFreedWithItsLastOwnerOnWhateverThread) {
  constexpr int texts = 100000;
  constexpr int threads = 2;
  Variants owners[threads];
  for (int i = 0; i < texts; ++i) {
    const variant_t shared(("text " + std::to_string(i)).c_str());
    for (Variants& mine : owners)
      mine.push_back(shared);
  }
  together(threads, [&](int number) {
    int place = 0;
    for (variant_t& mine : owners[number]) {
      variant_t copy(mine);
      mine = variant_t();
      ASSERT_EQ("text " + std::to_string(place++), copy.get<const char*>());
    }
  });
}

// The texts are from two pools. One is destroyed before the threads start, the other by one of the
// threads, while both release texts.
TEST(TextOfAVariant, MadeInAPoolIsFreedOnWhateverThread) {
  constexpr int texts = 50000;
  std::vector<variant_t> shared;
  {
    stratum2::text_pool_t pool;
    for (int i = 0; i < texts; ++i)
      shared.push_back(pool.make(std::to_string(i).c_str()));
  }
  auto pool = std::make_unique<stratum2::text_pool_t>();
  for (int i = 0; i < texts; ++i)
    shared.push_back(pool->make(std::to_string(i).c_str()));
  together(2, [&](int number) {
    const std::size_t half = shared.size() / 2;
    for (std::size_t i = 0; i < half; ++i) {
      variant_t& mine = shared[i * 2 + static_cast<std::size_t>(number)];
      const variant_t copy = mine;
      mine = {};
      ASSERT_EQ(std::to_string((i * 2 + static_cast<std::size_t>(number)) % texts),
                copy.get<const char*>());
    }
    if (number == 0)
      pool.reset();
  });
}

// Reading or copying a shared variant changes nothing but its reference count.
TEST(TextOfAVariant, IsCopiedFromOneVariantByAllThreads) {
  constexpr int copies = 200000;
  constexpr int threads = 4;
  variant_t shared("text");
  together(threads, [&](int) {
    const variant_t& original = shared;
    for (int i = 0; i < copies; ++i) {
      const variant_t copy = original;
      const variant_t another = copy;
      ASSERT_TRUE(original == another);
    }
  });
  EXPECT_STREQ("text", shared.get<const char*>());
}

// Each thread declares the shared variant as a default, stores it with every parse, and reads it.
TEST(TextOfAVariant, MayBeTheDefaultOfParsersOnSeveralThreads) {
  constexpr int rounds = 10000;
  const variant_t shared("text");
  together(2, [&](int) {
    for (int round = 0; round < rounds; ++round) {
      const ParserHandle parser = makeParser();
      parser->option("name", "", vtString)->defaultValue(shared);
      parser->option("mode", "", vtString)->allowValue(shared);
      ASSERT_EQ("name=text:'text' mode=text:'text'",
                parsed(*parser, {"--mode=te"}, {"name", "mode"}));
    }
  });
  EXPECT_STREQ("text", shared.get<const char*>());
}

}  // namespace

}  // namespace kivo_3_3::testing
