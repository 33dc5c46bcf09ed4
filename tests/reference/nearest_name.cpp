#include "reference/nearest_name.h"

#include <algorithm>
#include <vector>

#include "reference/characters.h"

namespace kivo_3_3::reference {

namespace {

using Characters = std::vector<std::string>;

constexpr std::size_t mostCharacters = 100;
constexpr std::size_t shortestName = 3;

Characters firstCharactersOf(const std::string& text) {
  Characters characters = charactersOf(text);
  characters.resize(std::min(characters.size(), mostCharacters));
  return characters;
}

// The number of steps that turn the first i characters of one text into the first j characters of
// another, for all i and j.
class Steps {
 public:
  Steps(const Characters& from, const Characters& to)
      : m_from(from), m_to(to), m_fewest(from.size() + 1, std::vector<std::size_t>(to.size() + 1)) {
    for (std::size_t i = 0; i <= from.size(); ++i)
      for (std::size_t j = 0; j <= to.size(); ++j)
        m_fewest[i][j] = fewest(i, j);
  }

  std::size_t all() const { return m_fewest.back().back(); }

 private:
  std::size_t fewest(std::size_t i, std::size_t j) const {
    if (i == 0 || j == 0)
      return i + j;
    const std::size_t replaced = m_fewest[i - 1][j - 1] + (m_from[i - 1] == m_to[j - 1] ? 0 : 1);
    return std::min({replaced, m_fewest[i - 1][j] + 1, m_fewest[i][j - 1] + 1, swapped(i, j)});
  }

  // Swaps the last characters of the two beginnings. What stands between the two that are swapped
  // is deleted before, or inserted after.
  std::size_t swapped(std::size_t i, std::size_t j) const {
    const std::size_t left = lastBefore(m_from, i - 1, m_to[j - 1]);
    const std::size_t right = lastBefore(m_to, j - 1, m_from[i - 1]);
    if (left == 0 || right == 0)
      return i + j;
    return m_fewest[left - 1][right - 1] + (i - left - 1) + 1 + (j - right - 1);
  }

  // The number of characters up to the last such one among the first `end`; 0 if there is none.
  static std::size_t lastBefore(const Characters& text, std::size_t end,
                                const std::string& character) {
    while (end != 0 && text[end - 1] != character)
      --end;
    return end;
  }

  const Characters& m_from;
  const Characters& m_to;
  std::vector<std::vector<std::size_t>> m_fewest;
};

bool isOffered(const Option& option) {
  return !option.isPositional && option.groupKey != "kivo_hidden";
}

}  // namespace

std::optional<std::string> nearestName(const Options& options, const std::string& typed) {
  const Characters from = firstCharactersOf(typed);
  std::size_t allowed = (from.size() + 1) / 4;
  std::optional<std::string> nearest;
  for (const Option& option : options)
    for (const std::string& name : option.names) {
      const Characters to = firstCharactersOf(name);
      if (!isOffered(option) || to.size() < shortestName)
        continue;
      const std::size_t steps = Steps(from, to).all();
      if (steps > allowed || (nearest && steps == allowed))
        continue;
      nearest = name;
      allowed = steps;
    }
  return nearest;
}

}  // namespace kivo_3_3::reference
