// Implements the Damerau-Levenshtein distance, with transpositions that may be edited further.

#include "describe/nearest_name.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "bedrock/unicode.h"

namespace kivo_3_3 {

namespace {

constexpr std::size_t mostCharacters = 100;  // of a name or a typed text: they come from outside
constexpr std::size_t shortestName = 3;

// The first characters; a byte that is not UTF-8 is a character of its own.
std::u32string charactersOf(std::string_view text) {
  std::u32string characters;
  while (!text.empty() && characters.size() < mostCharacters) {
    char32_t character = 0;
    const std::size_t length = BEDROCK::utf8_to_utf32(text, character);
    constexpr char32_t afterLastCharacter = 0x110000;
    if (length == 0)
      character = afterLastCharacter + static_cast<unsigned char>(text.front());
    characters += character;
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return characters;
}

// Counts the steps between two texts. Reuses its memory from call to call.
class Distance {
 public:
  std::size_t between(const std::u32string& left, const std::u32string& right) {
    m_steps.assign((left.size() + 1) * (right.size() + 1), 0);
    m_width = right.size() + 1;
    for (std::size_t column = 0; column <= right.size(); ++column)
      at(0, column) = column;
    std::map<char32_t, std::size_t> lastRowOf;  // of each character of `left`
    for (std::size_t row = 1; row <= left.size(); ++row) {
      fillRow(row, left, right, lastRowOf);
      lastRowOf[left[row - 1]] = row;
    }
    return at(left.size(), right.size());
  }

 private:
  std::size_t& at(std::size_t row, std::size_t column) { return m_steps[row * m_width + column]; }

  void fillRow(std::size_t row, const std::u32string& left, const std::u32string& right,
               const std::map<char32_t, std::size_t>& lastRowOf) {
    at(row, 0) = row;
    std::size_t lastMatch = 0;  // the last column whose character is that of this row
    for (std::size_t column = 1; column <= right.size(); ++column) {
      const bool isSame = left[row - 1] == right[column - 1];
      const std::size_t replaced = at(row - 1, column - 1) + (isSame ? 0 : 1);
      const std::size_t inserted = at(row, column - 1) + 1;
      const std::size_t deleted = at(row - 1, column) + 1;
      std::size_t fewest = std::min({replaced, inserted, deleted});
      const auto swapped = lastRowOf.find(right[column - 1]);
      if (swapped != lastRowOf.end() && lastMatch != 0) {
        const std::size_t edited = (row - swapped->second - 1) + (column - lastMatch - 1);
        fewest = std::min(fewest, at(swapped->second - 1, lastMatch - 1) + edited + 1);
      }
      at(row, column) = fewest;
      if (isSame)
        lastMatch = column;
    }
  }

  std::vector<std::size_t> m_steps;
  std::size_t m_width = 0;
};

}  // namespace

const char* findNearestName(const OptionList& options, std::string_view typed) {
  const std::u32string wanted = charactersOf(typed);
  const char* nearest = nullptr;
  std::size_t limit = (wanted.size() + 1) / 4 + 1;  // exclusive
  Distance distance;
  for (const OptionDescription& option : options) {
    if (option.isHidden() || option.m_positional)
      continue;
    for (const HashedName& name : option.m_names) {
      const std::u32string characters = charactersOf(name.text);
      const std::size_t longer = std::max(characters.size(), wanted.size());
      const std::size_t shorter = std::min(characters.size(), wanted.size());
      if (characters.size() < shortestName || longer - shorter >= limit)
        continue;
      const std::size_t steps = distance.between(wanted, characters);
      if (steps >= limit)
        continue;
      limit = steps;
      nearest = name.text.data();
    }
  }
  return nearest;
}

}  // namespace kivo_3_3
