// One algorithm splits names and tags; validateName() is the only limit on what may be declared.

#include "options/name_list.h"

#include <algorithm>

namespace kivo_3_3 {

namespace {

constexpr std::size_t mostNames = 3;
constexpr std::size_t longestThirdName = 2;

template <class Words>
result_t splitInto(Words& words, std::string_view text) {
  const auto commas = std::count(text.begin(), text.end(), ',');
  words.reserve(words.size() + static_cast<std::size_t>(commas) + 1);
  for (std::size_t comma = text.find(','); comma != std::string_view::npos;
       comma = text.find(',')) {
    words.push_back(text.substr(0, comma));
    text.remove_prefix(comma + 1);
  }
  if (!text.empty())
    words.push_back(text);
  return found;
}

}  // namespace

result_t split(std::string_view text, Texts& words) { return splitInto(words, text); }

result_t split(std::string_view text, Names& names) { return splitInto(names, text); }

int validateName(const Names& names) {
  if (names.size() > mostNames)
    return 1;
  return names.size() == mostNames && names.back().text.size() > longestThirdName ? 1 : 0;
}

bool isIntersected(const Texts& first, const Texts& second) {
  auto left = first.begin();
  auto right = second.begin();
  while (left != first.end() && right != second.end()) {
    const int order = left->compare(*right);
    if (order == 0)
      return true;
    ++(order < 0 ? left : right);
  }
  return false;
}

}  // namespace kivo_3_3
