// Exact names are found by hash. Only an abbreviation needs the sorted names, in which all names
// with one prefix are neighbours.

#include "options/name_index.h"

#include <algorithm>
#include <iterator>

#include "options/negation.h"

namespace kivo_3_3 {

struct NameIndex::Matches {
  int count = 0;
  std::uint32_t first = 0;
  std::string_view ahead;
};

const NameIndex::Name* NameIndex::findName(const HashedName& name) const {
  const Name* const named = m_names.find(name);
  if (!isNegated(name.text))
    return named;
  const Name* const negated =
      m_names.find(withoutNegation(name.text), [](const Name& found) { return found.isBoolean; });
  const bool isFirst = negated != nullptr && (named == nullptr || negated->option < named->option);
  return isFirst ? negated : named;
}

std::optional<unsigned int> NameIndex::find(const HashedName& name) const {
  const Name* const found = findName(name);
  return found != nullptr ? std::make_optional(found->option) : std::nullopt;
}

NameIndex::Match NameIndex::findBest(const HashedName& typed) {
  if (const Name* const exact = findName(typed))
    return {Match::unique, exact->option, {}, typed.text};
  if (m_sorted.size() != m_names.entries().size())
    sortNames();
  Matches matches;
  collect(m_sorted, typed.text, {}, matches);
  if (isNegated(typed.text))
    collect(m_sortedBooleans, withoutNegation(typed.text), negation, matches);
  else if (beginsWith(negation, typed.text))
    collect(m_sortedBooleans, {}, negation, matches);
  if (matches.count != 1)
    return {matches.count == 0 ? Match::none : Match::ambiguous};
  const Name& match = m_names[matches.first];
  return {Match::unique, match.option, matches.ahead, match.name.text};
}

void NameIndex::sortNames() {
  const auto& names = m_names.entries();
  Sorted sorted(m_sorted.get_allocator());
  Sorted booleans(m_sorted.get_allocator());
  for (std::uint32_t number = 0; number < names.size(); ++number)
    sorted.push_back(number);
  std::sort(sorted.begin(), sorted.end(), [&](std::uint32_t left, std::uint32_t right) {
    return names[left].name.text < names[right].name.text;
  });
  std::copy_if(sorted.begin(), sorted.end(), std::back_inserter(booleans),
               [&](std::uint32_t number) { return names[number].isBoolean; });
  m_sortedBooleans.swap(booleans);
  m_sorted.swap(sorted);
}

// Stops at the second match: two matches are enough to call a name ambiguous.
void NameIndex::collect(const Sorted& sorted, std::string_view prefix, std::string_view ahead,
                        Matches& matches) const {
  auto match = std::lower_bound(sorted.begin(), sorted.end(), prefix,
                                [&](std::uint32_t number, std::string_view wanted) {
                                  return m_names[number].name.text < wanted;
                                });
  for (; match != sorted.end() && beginsWith(m_names[*match].name.text, prefix); ++match) {
    if (++matches.count > 1)
      return;
    matches.first = *match;
    matches.ahead = ahead;
  }
}

}  // namespace kivo_3_3
