// Exact names are found by hash. Only an abbreviation needs the sorted names, in which all names
// with one prefix are neighbours.

#include "options/name_index.h"

#include <algorithm>
#include <iterator>

#include "options/negation.h"

namespace kivo_3_3 {

struct NameIndex::Matches {
  int count = 0;
  const Name* first = nullptr;
  std::string_view ahead;
};

// The sorted list is dropped here and not in add(): widening a table moves the names that are in
// it, even if the declaration then fails and nothing is added.
void NameIndex::makeRoomFor(std::size_t count) {
  m_sorted.clear();
  m_names.makeRoomFor(count);
  if (m_repeated.capacity() - m_repeated.size() < count)
    m_repeated.reserve(std::max(m_repeated.capacity() * 2, m_repeated.size() + count));
}

void NameIndex::add(const HashedName& name, std::uint32_t option, bool isBoolean) noexcept {
  const auto answersInstead = [&](const Name& other) { return other.isBoolean || !isBoolean; };
  const Name added = {name, option, isBoolean};
  const std::size_t before = m_names.entries().size();
  m_names.findOrAdd(name, answersInstead, [&] { return added; });
  if (m_names.entries().size() == before)
    m_repeated.push_back(added);
}

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
  if (m_sorted.size() != m_names.entries().size() + m_repeated.size())
    sortNames();
  Matches matches;
  collect(m_sorted, typed.text, {}, matches);
  if (const auto prefix = prefixBehindNegation(typed.text))
    collect(m_sortedBooleans, *prefix, negation, matches);
  if (matches.count != 1)
    return {matches.count == 0 ? Match::none : Match::ambiguous};
  const Name& match = *matches.first;
  return {Match::unique, match.option, matches.ahead, match.name.text};
}

void NameIndex::sortNames() {
  Sorted sorted(m_sorted.get_allocator());
  for (const Name& name : m_names.entries())
    sorted.push_back(&name);
  for (const Name& name : m_repeated)
    sorted.push_back(&name);
  std::sort(sorted.begin(), sorted.end(),
            [](const Name* left, const Name* right) { return left->name.text < right->name.text; });
  Sorted booleans(m_sorted.get_allocator());
  std::copy_if(sorted.begin(), sorted.end(), std::back_inserter(booleans),
               [](const Name* name) { return name->isBoolean; });
  m_sortedBooleans.swap(booleans);
  m_sorted.swap(sorted);
}

// Two matches suffice to know that a name is ambiguous.
void NameIndex::collect(const Sorted& sorted, std::string_view prefix, std::string_view ahead,
                        Matches& matches) {
  auto match = std::lower_bound(
      sorted.begin(), sorted.end(), prefix,
      [](const Name* name, std::string_view wanted) { return name->name.text < wanted; });
  for (; match != sorted.end() && beginsWith((*match)->name.text, prefix); ++match) {
    if (++matches.count > 1)
      return;
    matches.first = *match;
    matches.ahead = ahead;
  }
}

}  // namespace kivo_3_3
