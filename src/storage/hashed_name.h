#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "storage/eight_characters.h"

namespace kivo_3_3 {

// A name that a tool declares, or one to look for among these, with its hash, which is computed
// once. The characters are owned elsewhere. (Texts from outside are hashed by TextHash.)
struct HashedName {
  HashedName() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a name is a text
  HashedName(std::string_view name) : text(name), hash(hashOf(name)) {}
  // NOLINTNEXTLINE(google-explicit-constructor)
  HashedName(const char* name) : HashedName(std::string_view(name)) {}

  // NOLINTNEXTLINE(google-explicit-constructor)
  operator std::string_view() const { return text; }

  friend bool operator==(const HashedName& left, const HashedName& right) {
    const std::size_t size = left.text.size();
    return left.hash == right.hash && size == right.text.size() &&
           (size <= eight || isSame(left.text.data(), right.text.data(), size));
  }

  std::string_view text;
  // Of the text alone; its highest bits are those that tell most. Up to eight characters and
  // their number are all of it: who has the same hash then, and is as long, has the same text.
  std::uint64_t hash = 0;

 private:
  static std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = text.size();
    for (std::size_t place = 0; place + eight < text.size(); place += eight)
      hash = mixed(hash ^ loadCharacters<std::uint64_t>(text.data() + place));
    return mixed(hash ^ lastEight(text));
  }
  // Another for each. All bits have a share in the highest.
  static std::uint64_t mixed(std::uint64_t bits) { return bits * 0x9E3779B97F4A7C15; }
  // More than eight characters.
  static bool isSame(const char* left, const char* right, std::size_t size) {
    const std::size_t last = size - eight;
    for (std::size_t place = 0; place < last; place += eight)
      if (loadCharacters<std::uint64_t>(left + place) !=
          loadCharacters<std::uint64_t>(right + place))
        return false;
    return loadCharacters<std::uint64_t>(left + last) ==
           loadCharacters<std::uint64_t>(right + last);
  }
};

}  // namespace kivo_3_3
