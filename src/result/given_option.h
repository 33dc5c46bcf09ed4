#pragma once

// The occurrences and values stored for one option. If `isAscending` were wrong, a bisection would
// miss values that were given.

#include <cstddef>
#include <limits>

#include "options/option_data.h"
#include "storage/segmented_list.h"

namespace kivo_3_3 {

// What was given for one option, in the order in which it was stored.
struct GivenOption {
  // Makes room for what `times` calls of append(more) add, so that these calls cannot fail.
  // `memory` must outlive this object and be the same in every call. Raises std::bad_alloc.
  template <class Occurrences>
  void makeRoomFor(const Occurrences& more, OwnedMemory& memory, std::size_t times = 1) {
    positions.makeRoom(more.positions.size() * times, memory);
    values.makeRoom(more.values.size() * times, memory);
  }
  // Adds the positions and values of `more` at the end. There must be room for them.
  template <class Occurrences>
  void append(const Occurrences& more) noexcept;

  SegmentedList<int> positions;  // one for each occurrence
  SegmentedList<GivenValue> values;
  // Whether positions and values both ascend. They do not if one parse stored into the result
  // during another one, or if IArgumentParser::m_idx, which is exported, was set back.
  bool isAscending = true;

 private:
  // The position and the value's position added last; below every position before the first.
  int m_position = std::numeric_limits<int>::min();
  int m_valuePosition = std::numeric_limits<int>::min();
};

template <class Occurrences>
[[gnu::always_inline]] inline void GivenOption::append(const Occurrences& more) noexcept {
  for (const int position : more.positions) {
    isAscending = isAscending && m_position <= position;
    m_position = position;
    positions.push_back(position);
  }
  for (const GivenValue& value : more.values) {
    isAscending = isAscending && m_valuePosition <= value.position;
    m_valuePosition = value.position;
    values.push_back(value);
  }
}

}  // namespace kivo_3_3
