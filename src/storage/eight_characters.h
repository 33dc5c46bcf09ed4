#pragma once

// Reads characters as integers, to hash or compare eight of them in one step. If two short texts
// of one size were read as the same integer, HashedName would take one name for another.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kivo_3_3 {

// Characters in one step.
constexpr std::size_t eight = sizeof(std::uint64_t);

template <class Integer>
std::uint64_t loadCharacters(const char* text) {
  Integer integer;
  std::memcpy(&integer, text, sizeof(integer));
  return integer;
}

// The last eight characters of `text`, or all of a shorter one, some of them twice: up to eight
// characters the result is one-to-one for a given size.
inline std::uint64_t lastEight(std::string_view text) {
  constexpr std::size_t four = sizeof(std::uint32_t);
  const char* const end = text.data() + text.size();
  if (text.size() >= eight)
    return loadCharacters<std::uint64_t>(end - eight);
  if (text.size() >= four)
    return loadCharacters<std::uint32_t>(text.data()) | loadCharacters<std::uint32_t>(end - four)
                                                            << 32;
  if (text.empty())
    return 0;
  const char* const middle = text.data() + text.size() / 2;
  return loadCharacters<std::uint8_t>(text.data()) | loadCharacters<std::uint8_t>(middle) << 8 |
         loadCharacters<std::uint8_t>(end - 1) << 16;
}

}  // namespace kivo_3_3
