// Exact names are found by hash. Only an abbreviation needs the sorted names, in which all names
// with one prefix are neighbours.

#include "options/name_index.h"

#include <algorithm>

#include "options/negation.h"

namespace kivo_3_3 {

void NameIndex::makeRoomFor(std::size_t count) {
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

void NameIndex::findBest(const HashedName& typed, Match& match) {
  if (const Name* const exact = findName(typed))
    match.setTo(exact->option, {}, typed.text);
  else
    findAbbreviated(typed.text, match);
}

void NameIndex::findAbbreviated(std::string_view typed, Match& match) {
  if (m_sorted == nullptr || m_sorted->named != m_names.entries().size() ||
      m_sorted->repeated != m_repeated.size())
    sortAdded();
  const SortedNames::Found plain = m_sorted->all.find(typed);
  SortedNames::Found negated;
  if (const auto prefix = prefixBehindNegation(typed))
    negated = m_sorted->booleans.find(*prefix);
  if (plain.count + negated.count != 1)
    match.kind = plain.count + negated.count == 0 ? Match::none : Match::ambiguous;
  else if (plain.count == 1)
    match.setTo(plain.first.option, {}, plain.first.text);
  else
    match.setTo(negated.first.option, negation, negated.first.text);
}

// Calls `visit` for the names that were added since the last call of sortAdded().
template <class Visit>
void NameIndex::eachUnsorted(Visit visit) const {
  for (std::size_t name = m_sorted->named; name < m_names.entries().size(); ++name)
    visit(m_names.entries()[name]);
  for (std::size_t name = m_sorted->repeated; name < m_repeated.size(); ++name)
    visit(m_repeated[name]);
}

// Adds all new names to the sorted ones, or none.
void NameIndex::sortAdded() {
  if (m_sorted == nullptr)
    m_sorted = std::make_unique<Sorted>();
  std::size_t count = 0;
  std::size_t booleans = 0;
  eachUnsorted([&](const Name& name) {
    ++count;
    booleans += name.isBoolean ? 1 : 0;
  });
  m_sorted->all.makeRoomFor(count);
  m_sorted->booleans.makeRoomFor(booleans);
  eachUnsorted([&](const Name& name) {
    m_sorted->all.add(name.name.text, name.option);
    if (name.isBoolean)
      m_sorted->booleans.add(name.name.text, name.option);
  });
  m_sorted->named = m_names.entries().size();
  m_sorted->repeated = m_repeated.size();
}

}  // namespace kivo_3_3
