#pragma once

// The keyed hash for texts from outside. If an attacker could predict it, the texts of one command
// line or option file could be made to collide, and reading them would take quadratic time.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "storage/eight_characters.h"

namespace kivo_3_3 {

// The secret part of the hash.
struct HashKey {
  std::uint64_t start;
  std::uint64_t factor;  // odd, and so never zero, which would give all texts one hash
};

// Drawn when the process starts; a forked child inherits it. Initialised before other static
// objects, since these may own tables.
extern const HashKey hashKey;

// Hashes eight characters a step by a 128-bit multiplication, of which both halves are combined.
// The high bits depend on all characters and on the whole key. Declared names have a cheaper hash:
// see HashedName.
class TextHash {
 public:
  static std::uint64_t of(std::string_view text, const HashKey& key = hashKey) {
    std::uint64_t hash = key.start ^ text.size();
    for (std::size_t place = 0; place + eight < text.size(); place += eight)
      hash = folded(hash ^ loadCharacters<std::uint64_t>(text.data() + place), key.factor);
    return folded(hash ^ lastEight(text), key.factor);
  }

  // The 128-bit product, its halves combined by exclusive or, in 64-bit arithmetic: for compilers
  // without 128-bit integers.
  static constexpr std::uint64_t foldedInHalves(std::uint64_t left, std::uint64_t right) {
    const std::uint64_t low = 0xFFFFFFFF;
    const std::uint64_t lowLow = (left & low) * (right & low);
    const std::uint64_t highLow = (left >> 32) * (right & low);
    const std::uint64_t lowHigh = (left & low) * (right >> 32);
    const std::uint64_t middle = (lowLow >> 32) + (highLow & low) + (lowHigh & low);
    const std::uint64_t upper =
        (left >> 32) * (right >> 32) + (highLow >> 32) + (lowHigh >> 32) + (middle >> 32);
    return upper ^ (middle << 32 | (lowLow & low));
  }

 private:
  static std::uint64_t folded(std::uint64_t left, std::uint64_t right) {
#ifdef __SIZEOF_INT128__
    __extension__ using Product = unsigned __int128;
    const Product product = Product{left} * right;
    return static_cast<std::uint64_t>(product >> 64) ^ static_cast<std::uint64_t>(product);
#else
    return foldedInHalves(left, right);
#endif
  }
};

}  // namespace kivo_3_3
