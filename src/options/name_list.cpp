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

// Each tag of the smaller set is searched in the larger one: an action may have thousands.
bool isIntersected(const Texts& first, const Texts& second) {
  const Texts& larger = first.size() < second.size() ? second : first;
  const Texts& smaller = &larger == &first ? second : first;
  auto place = larger.begin();
  for (const std::string_view tag : smaller) {
    place = std::lower_bound(place, larger.end(), tag);
    if (place != larger.end() && *place == tag)
      return true;
  }
  return false;
}

}  // namespace kivo_3_3
