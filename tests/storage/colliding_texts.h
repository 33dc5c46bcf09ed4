#pragma once

// Texts whose hashes collide under a known key.

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "storage/text_hash.h"

namespace kivo_3_3::testing {

// A fixed key. The key of the process is secret, so no texts can be made to collide under it.
constexpr HashKey knownKey = {0x243F6A8885A308D3, 0x13198A2E03707345};

inline bool isUsableInAnArgument(std::uint64_t eightCharacters) {
  for (int shift = 0; shift < 64; shift += 8)
    if (((eightCharacters >> shift) & 0xFF) <= '-')  // no zero, line end, blank, comma or dash
      return false;
  return true;
}

inline std::string textOf(std::uint64_t first, std::uint64_t second) {
  std::string text(16, '\0');
  std::memcpy(&text[0], &first, 8);
  std::memcpy(&text[8], &second, 8);
  return text;
}

// `count` texts of 16 characters with one hash under the known key: in each text, the second half
// cancels the effect of the first half.
inline std::vector<std::string> textsOfOneHash(std::size_t count) {
  std::vector<std::string> texts;
  for (std::uint64_t number = 0; texts.size() < count; ++number) {
    const std::uint64_t first = number * 0x9E3779B97F4A7C15;
    if (!isUsableInAnArgument(first))
      continue;
    const std::uint64_t state =
        TextHash::foldedInHalves(knownKey.start ^ 16 ^ first, knownKey.factor);
    const std::string text = textOf(first, state ^ 0x123456789ABCDEF);
    if (isUsableInAnArgument(state ^ 0x123456789ABCDEF) && text[0] != ';')  // no comment
      texts.push_back(text);
  }
  return texts;
}

// The hash function of former versions, as on x86: multiplications by a constant, without a key.
inline std::uint64_t formerHashOf(const std::string& text) {
  const auto mixed = [](std::uint64_t bits) { return bits * 0x9E3779B97F4A7C15; };
  std::uint64_t hash = text.size();
  for (std::size_t place = 0; place < text.size(); place += 8) {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < 8; ++i)
      word |= std::uint64_t{static_cast<unsigned char>(text[place + i])} << (8 * i);
    hash = mixed(hash ^ word);
  }
  return hash;
}

// `count` texts of 40 characters that have at most 256 former hashes in all: they differ only in
// the last of each eight characters, which reaches only the top byte of the hash.
inline std::vector<std::string> textsOfOneFormerHash(std::size_t count) {
  std::vector<std::string> texts;
  for (std::uint64_t number = 0; texts.size() < count; ++number) {
    std::string text(40, 'x');
    std::uint64_t rest = number;
    for (std::size_t place = 7; place < 40; place += 8, rest /= 64)
      text[place] = static_cast<char>('0' + rest % 64);
    texts.push_back(text);
  }
  return texts;
}

}  // namespace kivo_3_3::testing
