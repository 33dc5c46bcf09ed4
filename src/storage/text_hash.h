#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "storage/eight_characters.h"

namespace kivo_3_3 {

// What the hash of a text depends on besides the text.
struct HashKey {
  std::uint64_t start;
  std::uint64_t factor;  // odd, for a factor of zero would give every text one hash
};

// Drawn when the process begins; a forked child has that of its parent. Made before other static
// objects, which may own tables.
extern const HashKey hashKey;

// The hash of texts that come from outside of the tool: without the key, nobody can construct
// texts that collide. (Names that a tool declares have a cheaper one: see HashedName.)
//
// Eight characters a step: a multiplication whose two halves are combined. The high bits depend
// on all characters and on the whole key.
class TextHash {
 public:
  static std::uint64_t of(std::string_view text, const HashKey& key = hashKey) {
    std::uint64_t hash = key.start ^ text.size();
    for (std::size_t place = 0; place + eight < text.size(); place += eight)
      hash = folded(hash ^ loadCharacters<std::uint64_t>(text.data() + place), key.factor);
    return folded(hash ^ lastEight(text), key.factor);
  }

  // The product of 128 bits, its upper half combined with its lower half, for compilers without
  // integers of that size.
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
