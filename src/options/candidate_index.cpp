// Only values of one type are sorted, since numbers of different types may have no order. Nor do
// doubles have one, if one of them is no number.

#include "options/candidate_index.h"

#include <algorithm>

namespace kivo_3_3 {

CandidateIndex::CandidateIndex(const OptionDescription& option) {
  const bool isSortable = option.m_type == vtString || option.m_type <= vtU64;
  for (const variant_t& value : option.m_allowedValues)
    add(value, isSortable && value.type() == option.m_type);
  for (const auto& [value, instead] : option.m_deprecatedValues)
    add(value, isSortable && value.type() == option.m_type);
}

void CandidateIndex::add(const variant_t& candidate, bool isSorted) {
  ++m_size;
  if (!isSorted)
    return m_others.push_back(candidate);
  const auto [place, isNew] = m_sorted.emplace(candidate, variant_t());
  if (!isNew)
    place->second = candidate;
}

bool CandidateIndex::has(const variant_t& value) const {
  return m_sorted.find(value) != m_sorted.end() ||
         std::find(m_others.begin(), m_others.end(), value) != m_others.end();
}

void CandidateIndex::complete(Completion& completion) const {
  for (auto place = m_sorted.lower_bound(variant_t(completion.typed.data(), true));
       place != m_sorted.end() && beginsWith(readAsText(place->first), completion.typed); ++place) {
    completion.consider(place->first);
    if (place->second.type() != vtNull)
      completion.consider(place->second);
  }
  for (const variant_t& other : m_others)
    completion.consider(other);
}

}  // namespace kivo_3_3
