#pragma once

// Names with their hashes. If two different names compared equal, an option would be declared,
// found or stored under the name of another.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "storage/eight_characters.h"

namespace kivo_3_3 {

// A declared name, or one to look up among the declared names, with its hash, computed once. Does
// not own its characters. The hash has no key: a tool chooses its names, so they are not hostile.
// Texts of the user are hashed by TextHash.
struct HashedName {
  HashedName() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a name is a text
  HashedName(std::string_view name) : text(name), hash(hashOf(name)) {}
  // NOLINTNEXTLINE(google-explicit-constructor)
  HashedName(const char* name) : HashedName(std::string_view(name)) {}

  // NOLINTNEXTLINE(google-explicit-constructor)
  operator std::string_view() const { return text; }

  // Up to eight characters the hash is one-to-one for a given length: equal hash and length mean
  // equal text. Without this shortcut a typical command line takes 3 % more instructions; with a
  // call of memcmp() instead of isSame() fifty options take 3 % more.
  friend bool operator==(const HashedName& left, const HashedName& right) {
    const std::size_t size = left.text.size();
    return left.hash == right.hash && size == right.text.size() &&
           (size <= eight || isSame(left.text.data(), right.text.data(), size));
  }

  std::string_view text;
  // Depends on the text alone. Its high bits depend on all characters.
  std::uint64_t hash = 0;

 private:
  static std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = text.size();
    for (std::size_t place = 0; place + eight < text.size(); place += eight)
      hash = mixed(hash ^ loadCharacters<std::uint64_t>(text.data() + place));
    return mixed(hash ^ lastEight(text));
  }
  // One-to-one, since the factor is odd. Every input bit affects the high bits. The factor is
  // 2^64 divided by the golden ratio.
  static std::uint64_t mixed(std::uint64_t bits) { return bits * 0x9E3779B97F4A7C15; }
  // For texts of more than eight characters, both of this size. The last step may overlap the one
  // before it.
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
