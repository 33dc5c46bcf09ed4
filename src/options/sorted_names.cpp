// Sorting takes no memory, so a search cannot fail.

#include "options/sorted_names.h"

#include <algorithm>

#include "base/begins_with.h"

namespace kivo_3_3 {

SortedNames::Found SortedNames::find(std::string_view prefix) {
  if (m_count != beginOf(m_runs))
    sortAdded();
  Found found;
  for (std::size_t run = 0; run < m_runs; ++run)
    findInRun(run, prefix, found);
  return found;
}

void SortedNames::findInRun(std::size_t run, std::string_view prefix, Found& found) const {
  const auto isBefore = [](const Entry& entry, std::string_view text) { return entry.text < text; };
  const Entry* const end = m_entries.data() + m_ends[run];
  const Entry* place = std::lower_bound(m_entries.data() + beginOf(run), end, prefix, isBefore);
  for (; place != end && found.count < 2 && beginsWith(place->text, prefix); ++place)
    if (found.count++ == 0)
      found.first = *place;
}

// The added names become a run, together with the runs that are not twice as long.
void SortedNames::sortAdded() {
  const std::size_t end = m_count;
  std::size_t begin = beginOf(m_runs);
  while (m_runs != 0 && begin - beginOf(m_runs - 1) < 2 * (end - begin))
    begin = beginOf(--m_runs);
  Entry* const entries = m_entries.data();
  // By a heap: std::sort() would add a kilobyte of code for what a process does once.
  const auto isBefore = [](const Entry& left, const Entry& right) {
    return left.text < right.text;
  };
  std::make_heap(entries + begin, entries + end, isBefore);
  std::sort_heap(entries + begin, entries + end, isBefore);
  m_ends[m_runs++] = static_cast<std::uint32_t>(end);
}

}  // namespace kivo_3_3
