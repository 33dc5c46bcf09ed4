#include "storage/text_hash.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>

#include "bedrock/seed.h"
#include "storage/colliding_texts.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

std::uint64_t hashOf(const string& text) { return TextHash::of(text, knownKey); }

TEST(TextHash, DependsOnBothHalvesOfTheKey) {
  const HashKey otherStart = {knownKey.start + 1, knownKey.factor};
  const HashKey otherFactor = {knownKey.start, knownKey.factor + 2};
  for (const char* text : {"", "a", "a text", "a text of more than eight characters"}) {
    EXPECT_NE(hashOf(text), TextHash::of(text, otherStart)) << text;
    EXPECT_NE(hashOf(text), TextHash::of(text, otherFactor)) << text;
  }
}

TEST(TextHash, HasAKeyOfThisProcess) {
  EXPECT_EQ(1u, hashKey.factor % 2);
  EXPECT_EQ(TextHash::of("a text", hashKey), TextHash::of("a text"));
  EXPECT_NE(TextHash::of("a text", knownKey), TextHash::of("a text"));
}

TEST(TextHash, HasAKeyThatDoesNotShowTheSeed) {
  for (const std::uint64_t half : BEDROCK::process_seed()) {
    EXPECT_NE(half >> 8, hashKey.start >> 8);
    EXPECT_NE(half >> 8, hashKey.factor >> 8);
  }
}

TEST(TextHash, IsTheSameWithoutIntegersOf128Bits) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 10'000; ++i) {
    const HashKey key = {random(), random() | 1};
    // The hash of the empty text is one folded product, that of start and factor.
    EXPECT_EQ(TextHash::of("", key), TextHash::foldedInHalves(key.start, key.factor));
  }
}

TEST(TextHash, DependsOnEveryCharacterAndOnTheSize) {
  for (std::size_t size = 0; size != 40; ++size) {
    const string text(size, 'a');
    EXPECT_NE(hashOf(text), hashOf(text + 'a')) << size;
    for (std::size_t place = 0; place != size; ++place)
      for (const char other : {'b', '\0', '\xe1'}) {
        string changed = text;
        changed[place] = other;
        EXPECT_NE(hashOf(text), hashOf(changed)) << size << " at " << place;
      }
  }
}

// The first slot in a set of 1,024 slots: the ten high bits of the hash.
std::uint64_t slotIn1024(const string& text) { return hashOf(text) >> (64 - 10); }

TEST(TextHash, SpreadsTextsThatDifferInOneCharacter) {
  for (std::size_t size = 1; size <= 24; ++size)
    for (std::size_t place = 0; place < size; ++place) {
      std::set<std::uint64_t> slots;
      for (int character = 0; character < 256; ++character) {
        string text(size, 'a');
        text[place] = static_cast<char>(character);
        slots.insert(slotIn1024(text));
      }
      EXPECT_LT(96u, slots.size()) << size << " characters, at " << place;
    }
}

TEST(TextHash, SpreadsNumberedTexts) {
  for (const char* const begin : {"", "v", "value", "a-long-value-", "/usr/share/doc/file-"}) {
    std::set<std::uint64_t> slots;
    for (int number = 100; number < 612; ++number)
      slots.insert(slotIn1024(begin + std::to_string(number)));
    EXPECT_LT(300u, slots.size()) << begin;
  }
}

}  // namespace
}  // namespace kivo_3_3::testing
