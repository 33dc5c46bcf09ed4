#include "options/name_list.h"

namespace kivo_3_3 {

namespace {

constexpr std::size_t mostNames = 3;
constexpr std::size_t longestThirdName = 2;

}  // namespace

result_t split(const std::string& text, std::vector<std::string>& words) {
  std::size_t begin = 0;
  for (std::size_t comma = text.find(','); comma != std::string::npos;
       comma = text.find(',', begin)) {
    words.push_back(text.substr(begin, comma - begin));
    begin = comma + 1;
  }
  if (begin < text.size())
    words.push_back(text.substr(begin));
  return found;
}

int validateName(const std::vector<std::string>& names) {
  if (names.size() > mostNames)
    return 1;
  return names.size() == mostNames && names.back().size() > longestThirdName ? 1 : 0;
}

bool isIntersected(const std::set<std::string>& first, const std::set<std::string>& second) {
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
