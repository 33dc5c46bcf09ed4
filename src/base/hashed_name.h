#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kivo_3_3 {

// What the hash of a text depends on besides the text. Whoever does not know the key cannot make
// up texts that collide, so that a table of texts from outside stays fast.
struct HashKey {
  std::uint64_t start;
  std::uint64_t factor;  // odd, for a factor of zero would give every text one hash
};

// Drawn anew for each process. Made before other static objects, which may own tables.
extern const HashKey hashKey;

// A name with its hash, which is computed once. The characters are owned elsewhere.
struct HashedName {
  HashedName() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a name is a text
  HashedName(std::string_view name) : text(name), hash(hashOf(name)) {}
  // NOLINTNEXTLINE(google-explicit-constructor)
  HashedName(const char* name) : HashedName(std::string_view(name)) {}

  // NOLINTNEXTLINE(google-explicit-constructor)
  operator std::string_view() const { return text; }

  friend bool operator==(const HashedName& left, const HashedName& right) {
    return left.hash == right.hash && left.text.size() == right.text.size() &&
           isSame(left.text.data(), right.text.data(), left.text.size());
  }

  // Eight characters a step: a multiplication whose two halves are combined. The high bits
  // depend on all characters and on the whole key.
  [[gnu::always_inline]] static std::uint64_t hashOf(std::string_view text,
                                                     const HashKey& key = hashKey) {
    std::uint64_t hash = key.start ^ text.size();
    for (std::size_t place = 0; place + eight < text.size(); place += eight)
      hash = folded(hash ^ load<std::uint64_t>(text.data() + place), key.factor);
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

  std::string_view text;
  std::uint64_t hash = 0;

 private:
  static constexpr std::size_t eight = sizeof(std::uint64_t);
  static constexpr std::size_t four = sizeof(std::uint32_t);

  static std::uint64_t folded(std::uint64_t left, std::uint64_t right) {
#ifdef __SIZEOF_INT128__
    __extension__ using Product = unsigned __int128;
    const Product product = Product{left} * right;
    return static_cast<std::uint64_t>(product >> 64) ^ static_cast<std::uint64_t>(product);
#else
    return foldedInHalves(left, right);
#endif
  }
  // The last eight characters. Of a shorter text all characters, some of them twice: together
  // with the size they stand for one text only.
  static std::uint64_t lastEight(std::string_view text) {
    const char* const end = text.data() + text.size();
    if (text.size() >= eight)
      return load<std::uint64_t>(end - eight);
    if (text.size() >= four)
      return load<std::uint32_t>(text.data()) | load<std::uint32_t>(end - four) << 32;
    if (text.empty())
      return 0;
    const char* const middle = text.data() + text.size() / 2;
    return load<std::uint8_t>(text.data()) | load<std::uint8_t>(middle) << 8 |
           load<std::uint8_t>(end - 1) << 16;
  }
  static bool isSame(const char* left, const char* right, std::size_t size) {
    if (size < four)
      return size == 0 || (left[0] == right[0] && left[size / 2] == right[size / 2] &&
                           left[size - 1] == right[size - 1]);
    if (size < eight)
      return load<std::uint32_t>(left) == load<std::uint32_t>(right) &&
             load<std::uint32_t>(left + size - four) == load<std::uint32_t>(right + size - four);
    for (std::size_t place = 0; place + eight < size; place += eight)
      if (load<std::uint64_t>(left + place) != load<std::uint64_t>(right + place))
        return false;
    return load<std::uint64_t>(left + size - eight) == load<std::uint64_t>(right + size - eight);
  }
  template <class Integer>
  static std::uint64_t load(const char* text) {
    Integer integer;
    std::memcpy(&integer, text, sizeof(integer));
    return integer;
  }
};

}  // namespace kivo_3_3
